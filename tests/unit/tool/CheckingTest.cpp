// What check finds in a file, one fault at a time.
#include "tool/Checking.h"

#include "unit/support/InstrumentImage.h"
#include "unit/support/TestProgram.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

namespace velluto::tool {

void PrintTo(const Finding &finding, std::ostream *out)
{
    *out << finding.offset << ": " << Sentence(finding, Speaker{});
}

namespace {

using test::Bytes;
using test::InstrumentFile;
using Findings = std::vector<Finding>;

// Directory at 36, bodies at 84 and 86, index at 89 with its words at 105 and 109, "KEND" at 113, count at 117.
Bytes TwoPrograms()
{
    return InstrumentFile({{"One", 2, {1, 2}}, {"Two", 5, {3, 4, 5}}});
}

Findings Changed(std::size_t offset, std::uint8_t byte, Kind kind = Kind::Program)
{
    Bytes image = TwoPrograms();
    image.at(offset) = byte;
    return CheckImage(image, kind);
}

Findings OfPlaces(const std::vector<int> &places, Kind kind)
{
    std::vector<test::Item> items;
    items.reserve(places.size());
    for (const int place : places) {
        items.push_back({"Item", place, {1}});
    }
    return CheckImage(InstrumentFile(items), kind);
}

TEST(ToolCheck, ShippedFilesHaveNoFault)
{
    for (const auto &entry : std::filesystem::recursive_directory_iterator(VELLUTO_DATA)) {
        const std::string path = entry.path().string();
        if (KindOf(path) != Kind::None) {
            EXPECT_EQ(CheckImage(test::ReadBytes(path), KindOf(path)), Findings{}) << path;
        }
    }
    EXPECT_EQ(CheckImage(TwoPrograms(), Kind::Program), Findings{});
    EXPECT_EQ(CheckImage(InstrumentFile({}), Kind::Style), Findings{});
}

TEST(ToolCheck, AnEmptyNewFileNeedNotBeFramed)
{
    std::string image;
    BuildEmptyImage(image);
    EXPECT_EQ(CheckImage(Bytes(image.begin(), image.end()), Kind::Program), Findings{});
}

TEST(ToolCheck, WhatIsNoFileOfTheInstrumentIsOneFinding)
{
    EXPECT_EQ(CheckImage({}, Kind::Program), (Findings{{0, Fault::TooShort, 0, 0, 0}}));
    EXPECT_EQ(CheckImage(Bytes(35), Kind::Program), (Findings{{35, Fault::TooShort, 35, 0, 0}}));
    EXPECT_EQ(CheckImage(Bytes(1000), Kind::Program), (Findings{{23, Fault::NoMark, 0, 0, 0}}));
}

TEST(ToolCheck, AFileOfALaterInstrumentIsNamedAsSuch)
{
    EXPECT_EQ(Changed(29, 1), (Findings{{29, Fault::LaterInstrument, 0, 0, 0}}));
}

TEST(ToolCheck, TheFixedBytesOfTheHead)
{
    EXPECT_EQ(Changed(3, 0x18), (Findings{{3, Fault::HeadByte, 0x18, 0x14, 0}}));
    EXPECT_EQ(Changed(15, 0x0D), (Findings{{15, Fault::HeadByte, 0x0D, 0x0C, 0}}));
    EXPECT_EQ(Changed(16, 0x0A), (Findings{{16, Fault::HeadByte, 0x0A, 0x0B, 0}}));
    EXPECT_EQ(Changed(28, 0x06), (Findings{{28, Fault::HeadByte, 0x06, 0x05, 0}}));
    EXPECT_EQ(Changed(33, 1), (Findings{{33, Fault::HeadByte, 1, 0, 0}}));
}

TEST(ToolCheck, LengthsAndCounts)
{
    EXPECT_EQ(Changed(7, 112), (Findings{{4, Fault::OuterLength, 112, 113, 0}}));
    EXPECT_EQ(Changed(4, 1), (Findings{{4, Fault::OuterLength, 0x01000071, 113, 0}}));
    EXPECT_EQ(Changed(35, 50), (Findings{{34, Fault::DirectoryLength, 50, 0, 0}}));
    EXPECT_EQ(Changed(34, 0x40), (Findings{{34, Fault::DirectoryLength, 0x4030, 0, 0}, {34, Fault::DirectoryBeyond, 684, 0, 0}}));
    EXPECT_EQ(Changed(120, 4), (Findings{{117, Fault::Count, 4, 3, 0}}));
    EXPECT_EQ(Changed(117, 1), (Findings{{117, Fault::Count, 0x01000003, 3, 0}}));
    EXPECT_EQ(Changed(96, 25), (Findings{{93, Fault::OuterLength, 25, 24, 0}}));
}

TEST(ToolCheck, TheIndex)
{
    EXPECT_EQ(Changed(89, 0xFF), (Findings{{89, Fault::IndexByte, 0xFF, 0xFE, 0}}));
    EXPECT_EQ(Changed(98, 'b'), (Findings{{98, Fault::IndexByte, 'b', 'B', 0}}));
    EXPECT_EQ(Changed(104, 29), (Findings{{104, Fault::IndexByte, 29, 28, 0}}));
    EXPECT_EQ(Changed(108, 85), (Findings{{105, Fault::BodyGap, 85, 84, 0}}));
    EXPECT_EQ(Changed(108, 88), (Findings{{105, Fault::BodyGap, 88, 84, 0}, {109, Fault::BodyOrder, 2, 86, 0}}));
    EXPECT_EQ(Changed(112, 90), (Findings{{109, Fault::BodyOutside, 2, 90, 0}}));
    EXPECT_EQ(Changed(112, 83), (Findings{{109, Fault::BodyOutside, 2, 83, 0}}));
    EXPECT_EQ(Changed(109, 1), (Findings{{109, Fault::BodyOutside, 2, 0x01000056, 0}}));
}

TEST(ToolCheck, AFileThatIsCutOffOrHasMoreBehindIt)
{
    Bytes image = TwoPrograms();
    image.resize(100);
    EXPECT_EQ(CheckImage(image, Kind::Program), (Findings{{100, Fault::EndMissing, 0, 0, 0}}));
    image = TwoPrograms();
    image.resize(image.size() + 7);
    EXPECT_EQ(CheckImage(image, Kind::Program), (Findings{{121, Fault::BytesBehind, 7, 0, 0}}));
    image = InstrumentFile({});
    image.at(35) = 24; // one item, for which there is no room
    EXPECT_EQ(CheckImage(image, Kind::None).back(), (Finding{34, Fault::DirectoryBeyond, 1, 0, 0}));
}

TEST(ToolCheck, PlacesAreInTheirBankOnceAndInOrder)
{
    EXPECT_EQ(OfPlaces({0, 127}, Kind::Program), Findings{});
    EXPECT_EQ(OfPlaces({0, 128}, Kind::Program), (Findings{{80, Fault::PlaceBeyond, 2, 129, 128}}));
    EXPECT_EQ(OfPlaces({0, 8}, Kind::Performance), (Findings{{80, Fault::PlaceBeyond, 2, 9, 8}}));
    EXPECT_EQ(OfPlaces({3, 3}, Kind::Program), (Findings{{80, Fault::PlaceShared, 2, 4, 1}}));
    EXPECT_EQ(OfPlaces({4, 2, 3}, Kind::Performance), (Findings{{80, Fault::PlaceOrder, 2, 3, 5}}));
    EXPECT_EQ(OfPlaces({4, 2, 2}, Kind::None), Findings{});
    EXPECT_EQ(OfPlaces({0, 1, 2, 3, 4, 5, 6, 7, 7}, Kind::Performance),
              (Findings{{34, Fault::TooManyItems, 9, 8, 0}, {248, Fault::PlaceShared, 9, 8, 8}}));
}

TEST(ToolCheck, StylesAndTheirSts)
{
    EXPECT_EQ(OfPlaces({0, 1, 5}, Kind::Style), Findings{});
    EXPECT_EQ(OfPlaces({0, 0, 5, 5}, Kind::Style), Findings{});
    EXPECT_EQ(OfPlaces({0, 5, 0, 5}, Kind::Style), Findings{});
    EXPECT_EQ(OfPlaces({0, 16}, Kind::Style), (Findings{{80, Fault::PlaceBeyond, 2, 17, 16}}));
    EXPECT_EQ(OfPlaces({0, 0, 5, 6, 6}, Kind::Style), (Findings{{104, Fault::StsMissing, 3, 6, 0}}));
    EXPECT_EQ(OfPlaces({0, 0, 0, 0}, Kind::Style), (Findings{{104, Fault::PlaceShared, 3, 1, 1}}));
    EXPECT_EQ(OfPlaces({0, 5, 0, 6}, Kind::Style), (Findings{{128, Fault::StsOrder, 4, 7, 6}}));
    EXPECT_EQ(OfPlaces({0, 5, 0}, Kind::Style).front(), (Finding{34, Fault::StsUneven, 3, 0, 0}));
    EXPECT_EQ(OfPlaces({0, 5, 5}, Kind::Style), (Findings{{104, Fault::PlaceShared, 3, 6, 2}}));
}

TEST(ToolCheck, EveryFaultHasASentenceInBothLanguages)
{
    for (int fault = 0; fault <= static_cast<int>(Fault::StsOrder); ++fault) {
        const Finding finding{0, static_cast<Fault>(fault), 1111, 2222, 3333};
        const std::string english = Sentence(finding, Speaker{kEnglishBase});
        const std::string italian = Sentence(finding, Speaker{kItalianBase});
        EXPECT_FALSE(english.empty()) << fault;
        EXPECT_FALSE(italian.empty()) << fault;
        EXPECT_NE(english, italian);
        for (const char *number : {"1111", "2222", "3333"}) {
            EXPECT_EQ(english.find(number) == std::string::npos, italian.find(number) == std::string::npos) << english;
        }
    }
}

TEST(ToolCheck, AnyDamageIsReadInItsBounds)
{
    std::mt19937 random(1);
    const Bytes whole = test::ReadBytes(VELLUTO_SAMPLES "/Sparse-5.sty");
    for (int round = 0; round < 3000; ++round) {
        Bytes image = whole;
        for (int change = 0; change < 4; ++change) {
            const bool atEnd = random() % 2 == 0;
            const std::size_t from = atEnd ? image.size() - 100 : 0;
            image.at(from + random() % 100) = static_cast<std::uint8_t>(random());
        }
        image.resize(image.size() - (random() % 3 == 0 ? random() % image.size() : 0));
        for (const Finding &finding : CheckImage(image, static_cast<Kind>(random() % 4))) {
            EXPECT_LE(finding.offset, image.size());
        }
    }
}

} // namespace
} // namespace velluto::tool
