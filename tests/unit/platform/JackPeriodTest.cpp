// Where in a period of JACK's a message goes.
#include "platform/rtmidi/JackPorts.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// 48 frames are a millisecond. A message comes one period and two milliseconds after it is due.
constexpr std::int64_t kFrames = 48;
constexpr std::int64_t kRate = 48000;
constexpr std::int64_t kDelay = kFrames + 96;
constexpr std::int64_t kNow = 1'000'500; // half a millisecond into the period
constexpr JackPeriod kRight{1'000'000, kNow, kFrames, kRate};

TEST(JackPeriodTest, AMessageKeepsItsPlaceBesideThePeriodsBegin)
{
    EXPECT_EQ(kRight.Place(1'000'000), kDelay);
    EXPECT_EQ(kRight.Place(1'000'000 - 2'500), kDelay - 120);
    EXPECT_EQ(kRight.Place(1'000'000 - 4'000), kDelay - 192) << "late: below the first frame";
}

TEST(JackPeriodTest, AClockThatIsAheadIsTakenForNow)
{
    constexpr JackPeriod kAhead{1'020'000, kNow, kFrames, kRate};
    EXPECT_EQ(kAhead.Place(kNow), kDelay);
    EXPECT_EQ(kAhead.Place(kNow - 1'000), kDelay - 48);
}

TEST(JackPeriodTest, AClockThatIsAheadByAMomentIsRight)
{
    constexpr JackPeriod kSmoothed{kNow + 100, kNow, kFrames, kRate};
    EXPECT_EQ(kSmoothed.Place(kNow + 100), kDelay);
    constexpr JackPeriod kAhead{kNow + 101, kNow, kFrames, kRate};
    EXPECT_EQ(kAhead.Place(kNow), kDelay);
}

TEST(JackPeriodTest, AClockThatIsBehindIsTakenForOnePeriodAgo)
{
    constexpr JackPeriod kBehind{980'000, kNow, kFrames, kRate};
    EXPECT_EQ(kBehind.Place(kNow - 1'000), kDelay);
    EXPECT_EQ(kBehind.Place(kNow), kDelay + 48);
}

} // namespace
} // namespace velluto::test
