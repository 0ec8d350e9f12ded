// The watch over connections, roused by announcements: what they tell is made up here.
#include "platform/rtmidi/PortWatch.h"

#include "platform/MidiDevices.h"
#include "platform/rtmidi/Announcements.h"
#include "platform/rtmidi/QuietAlsa.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <array>
#include <latch>
#include <semaphore>
#include <set>

namespace velluto::test {
namespace {

using namespace std::chrono_literals;
using Word = Announcer::Word;

// Announces what is written to it, a word a byte.
class PaperAnnouncer : public Announcer {
public:
    PaperAnnouncer() { EXPECT_EQ(::pipe(ends_.data()), 0); }
    ~PaperAnnouncer() override
    {
        ::close(ends_[0]);
        FallSilent();
    }
    PaperAnnouncer(const PaperAnnouncer &) = delete;
    PaperAnnouncer &operator=(const PaperAnnouncer &) = delete;

    void Announce(Word word) const
    {
        const char byte = static_cast<char>(word);
        EXPECT_EQ(::write(ends_[1], &byte, 1), 1);
    }
    // As a device that has gone.
    void FallSilent() { ::close(std::exchange(ends_[1], -1)); }

    [[nodiscard]] int Descriptor() const override { return ends_[0]; }
    Word Take() override
    {
        char byte = 0;
        EXPECT_EQ(::read(ends_[0], &byte, 1), 1);
        return static_cast<Word>(byte);
    }

private:
    std::array<int, 2> ends_{-1, -1};
};

// A system with outputs that tests take away.
class AnnouncedSystem : public MidiSystem {
public:
    AnnouncedSystem()
    {
        auto made = std::make_unique<PaperAnnouncer>();
        announcer = made.get();
        announcements = std::make_unique<Announcements>(std::move(made), [this]() { changed(); });
    }
    ~AnnouncedSystem() override { announcements.reset(); }
    AnnouncedSystem(const AnnouncedSystem &) = delete;
    AnnouncedSystem &operator=(const AnnouncedSystem &) = delete;

    void TakeAway(const std::string &name)
    {
        const std::lock_guard lock(mutex_);
        names_.erase(name);
    }

    // Waits until it has been looked at so often.
    [[nodiscard]] bool IsLookedAt(int count)
    {
        std::unique_lock lock(mutex_);
        return looked_.wait_for(lock, 20s, [&]() { return looks_ >= count; });
    }

    [[nodiscard]] bool Alive() const override { return true; }
    bool Connect() override { return true; }
    bool Activate() override { return true; }
    std::vector<std::string> Names(PortKind kind) override
    {
        const std::lock_guard lock(mutex_);
        looks_ += kind == PortKind::Output ? 1 : 0;
        looked_.notify_all();
        return {names_.begin(), names_.end()};
    }
    [[nodiscard]] bool TellsChanges() const override { return announcements->GoOn(); }
    int OpenOutput(const std::string & /*name*/, std::unique_ptr<SystemOutput> & /*end*/) override { return MidiCode::kError; }
    int OpenInput(const std::string & /*name*/, std::shared_ptr<MessageSink> /*sink*/, std::unique_ptr<SystemInput> & /*end*/) override
    {
        return MidiCode::kError;
    }
    std::unique_ptr<SourcePort> MakeSource() override { return nullptr; }

    PaperAnnouncer *announcer = nullptr;
    std::unique_ptr<Announcements> announcements;

private:
    std::mutex mutex_;
    std::condition_variable looked_;
    int looks_ = 0;
    std::set<std::string> names_{"one", "two"};
};

class Connected : public WatchedPort {
public:
    explicit Connected(const char *port) { name = port; }
    void LetGo() override { gone.count_down(); }
    std::latch gone{1};
};

TEST(PortWatch, WhereWordComesNobodyLooksBetweenOneAndTheNext)
{
    EXPECT_FALSE(LooksUnasked(true, true, 0));
    EXPECT_TRUE(LooksUnasked(true, true, 1));
    EXPECT_TRUE(LooksUnasked(true, false, 0));
    EXPECT_FALSE(LooksUnasked(false, false, 0)); // nothing is open
}

TEST(PortWatch, AConnectionIsLetGoAtTheWordThatItsPortHasGone)
{
    AnnouncedSystem system;
    Connected one("one");
    PortWatch watch(system, 1ms);
    watch.Add(one);
    ASSERT_TRUE(system.IsLookedAt(1 + PortWatch::kLooksAfterWord)); // from now on it sleeps
    system.TakeAway("one");
    system.announcer->Announce(Word::OfPorts);
    one.gone.wait();
}

TEST(PortWatch, OthersStayConnected)
{
    AnnouncedSystem system;
    Connected one("one");
    Connected two("two");
    PortWatch watch(system, 1ms);
    watch.Add(one);
    watch.Add(two);
    system.TakeAway("one");
    system.announcer->Announce(Word::OfPorts);
    one.gone.wait();
    EXPECT_FALSE(two.gone.try_wait());
    watch.Remove(two);
}

TEST(PortWatch, WhenAnnouncementsEndPortsAreLookedAtWithoutThem)
{
    AnnouncedSystem system;
    Connected one("one");
    PortWatch watch(system, 1ms);
    watch.Add(one);
    ASSERT_TRUE(system.IsLookedAt(1 + PortWatch::kLooksAfterWord));
    system.announcer->Announce(Word::End);
    ASSERT_TRUE(system.IsLookedAt(3 * (1 + PortWatch::kLooksAfterWord)));
    EXPECT_FALSE(system.TellsChanges());
    system.TakeAway("one");
    one.gone.wait();
}

struct AnnouncementsTest : testing::Test {
    AnnouncementsTest()
    {
        auto made = std::make_unique<PaperAnnouncer>();
        announcer = made.get();
        announcements = std::make_unique<Announcements>(std::move(made), [this]() { heard.release(); });
    }
    std::counting_semaphore<> heard{0};
    PaperAnnouncer *announcer = nullptr;
    std::unique_ptr<Announcements> announcements;
};

TEST_F(AnnouncementsTest, WordOfPortsIsHeardAndOtherWordIsNot)
{
    announcer->Announce(Word::None);
    announcer->Announce(Word::OfPorts);
    heard.acquire();
    EXPECT_FALSE(heard.try_acquire());
    EXPECT_TRUE(announcements->GoOn());
}

TEST_F(AnnouncementsTest, TheirEndIsHeardOnce)
{
    announcer->Announce(Word::End);
    heard.acquire();
    EXPECT_FALSE(announcements->GoOn());
    announcements.reset();
    EXPECT_FALSE(heard.try_acquire());
}

TEST_F(AnnouncementsTest, ADeviceThatFallsSilentIsTheirEnd)
{
    announcer->FallSilent();
    heard.acquire();
    EXPECT_FALSE(announcements->GoOn());
}

TEST_F(AnnouncementsTest, TheyEndWithTheirObjectWhileNothingIsAnnounced)
{
    announcements.reset();
    EXPECT_FALSE(heard.try_acquire());
}

TEST(AlsaAnnouncements, WithoutTheDeviceThereAreNoneAndNoWords)
{
    if (::access("/dev/snd/seq", F_OK) == 0) {
        GTEST_SKIP() << "this machine has the device";
    }
    testing::internal::CaptureStderr();
    QuietAlsa();
    EXPECT_EQ(OpenAlsaAnnouncer(), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace velluto::test
