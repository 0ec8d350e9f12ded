#include "platform/kept/UnfinishedSave.h"

#include "unit/support/NativePath.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace velluto::test {
namespace {

using Old = UnfinishedSave::Old;

const std::string kNew = "the new file";

UnfinishedSave SaveOfNew(Old old, const std::string &path, const std::string &kept)
{
    Checksum sum;
    sum.Add({reinterpret_cast<const std::uint8_t *>(kNew.data()), kNew.size()});
    return {old, path, kept, kNew.size(), sum.Value(), kNew};
}

TEST(UnfinishedSave, ComesBackFromItsTextWhateverThePathHolds)
{
    for (const std::string &name : {std::string("/a/Stage.pcg"), std::string("/a\n12:b\xFF\xFE/ 3:.pcg"), "/" + std::string(4000, 'x')}) {
        const std::string path = OnFirstDisk(name);
        UnfinishedSave save = SaveOfNew(Old::Aside, path, ".velluto-1");
        EXPECT_EQ(ParseJournalText(JournalText(save)), save);
        save = {Old::None, path, "", 0, 0, std::nullopt};
        EXPECT_EQ(ParseJournalText(JournalText(save)), save);
        save.beginning = std::string("\0\n\xFF", 3);
        EXPECT_EQ(ParseJournalText(JournalText(save)), save);
    }
}

TEST(UnfinishedSave, TheChecksumIsTheSameInWhateverPiecesTheBytesCome)
{
    std::mt19937 random(5); // NOLINT: the same pieces in every run
    for (std::size_t length = 0; length < 70; ++length) {
        std::vector<std::uint8_t> bytes(length);
        std::ranges::generate(bytes, [&random] { return static_cast<std::uint8_t>(random()); });
        Checksum whole;
        whole.Add(bytes);
        for (int round = 0; round < 20; ++round) {
            Checksum pieces;
            for (std::span<const std::uint8_t> left = bytes; !left.empty();) {
                const std::size_t step = 1 + random() % left.size();
                pieces.Add(left.first(step));
                left = left.subspan(step);
            }
            ASSERT_EQ(pieces.Value(), whole.Value()) << length;
        }
    }
}

TEST(UnfinishedSave, TheChecksumIsThatOfTheVersionsBefore)
{
    const auto sum = [](const std::vector<std::uint8_t> &bytes) {
        Checksum all;
        all.Add(bytes);
        return all.Value();
    };
    EXPECT_EQ(sum({}), 0xCBF29CE484222325U);
    // What a journal of before tells has to be understood by every later version.
    EXPECT_EQ(sum({'t', 'h', 'e', ' ', 'n', 'e', 'w', ' ', 'f', 'i', 'l', 'e'}), 0x76FA40F2286C9308U);
}

TEST(UnfinishedSave, ATextThatIsCutOrChangedAnywhereIsNone)
{
    const std::string text = JournalText(SaveOfNew(Old::Aside, OnFirstDisk("/a/Stage.pcg"), ".velluto-1"));
    for (std::size_t at = 0; at < text.size(); ++at) {
        EXPECT_FALSE(ParseJournalText(text.substr(0, at)));
        EXPECT_FALSE(ParseJournalText(text.substr(at + 1)));
        for (const int bit : {0x01, 0x10, 0x80}) {
            std::string changed = text;
            changed[at] = static_cast<char>(changed[at] ^ bit);
            EXPECT_FALSE(ParseJournalText(changed)) << at;
        }
    }
    EXPECT_FALSE(ParseJournalText(text + "x"));
    EXPECT_FALSE(ParseJournalText("18446744073709551615:x\n"));
    EXPECT_FALSE(ParseJournalText(std::string(100, '9') + ":x\n"));
}

TEST(UnfinishedSave, OnlyAHiddenNameBesideTheFileIsTaken)
{
    const auto isTaken = [](Old old, const std::string &of, const std::string &kept) {
        return ParseJournalText(JournalText(SaveOfNew(old, of, kept))).has_value();
    };
    const std::string path = OnFirstDisk("/a/Stage.pcg");
    EXPECT_TRUE(isTaken(Old::Aside, path, ".velluto-1"));
    EXPECT_FALSE(isTaken(Old::Aside, path, "Other.pcg"));
    EXPECT_FALSE(isTaken(Old::Aside, path, ".velluto-/../../b"));
    EXPECT_FALSE(isTaken(Old::Aside, path, ""));
    EXPECT_FALSE(isTaken(Old::None, path, ".velluto-1"));
    EXPECT_FALSE(isTaken(Old::Aside, "a/Stage.pcg", ".velluto-1"));
    EXPECT_FALSE(isTaken(static_cast<Old>(4), path, ""));
}

class UndoTest : public testing::Test {
protected:
    static void Put(const std::string &path, std::string_view text) { WriteBytes(path, {text.begin(), text.end()}); }
    static std::string Text(const std::string &path)
    {
        const Bytes bytes = ReadBytes(path);
        return {bytes.begin(), bytes.end()};
    }
    [[nodiscard]] bool UndoNew(Old old) const { return Undo(SaveOfNew(old, path_, old == Old::Aside ? ".velluto-1" : "")); }

    TempFolder folder_;
    std::string path_ = folder_.At("Stage.pcg");
    std::string kept_ = folder_.At(".velluto-1");
};

TEST_F(UndoTest, AnOldFileTakenAwayComesBackWhereNothingOrAPieceIsInItsPlace)
{
    for (const std::string &left : {std::string(), kNew.substr(0, 5), std::string("something el")}) {
        Put(kept_, "the old file");
        Put(path_, left);
        EXPECT_TRUE(UndoNew(Old::Aside));
        EXPECT_EQ(Text(path_), "the old file");
        EXPECT_FALSE(std::filesystem::exists(kept_));
    }
    std::filesystem::rename(path_, kept_);
    EXPECT_TRUE(UndoNew(Old::Aside));
    EXPECT_EQ(Text(path_), "the old file");
}

TEST_F(UndoTest, ANewFileThatIsCompleteStays)
{
    Put(kept_, "the old file");
    Put(path_, kNew);
    EXPECT_TRUE(UndoNew(Old::Aside));
    EXPECT_EQ(Text(path_), kNew);
    EXPECT_FALSE(std::filesystem::exists(kept_));
    EXPECT_TRUE(UndoNew(Old::None));
    EXPECT_TRUE(UndoNew(Old::Empty));
    EXPECT_EQ(Text(path_), kNew);
}

TEST_F(UndoTest, ASaveThatHadNotTakenAnythingAwayIsDone)
{
    Put(path_, "the old file");
    EXPECT_TRUE(UndoNew(Old::Aside));
    EXPECT_EQ(Text(path_), "the old file");
}

TEST_F(UndoTest, ADiskThatIsAwayIsWaitedFor)
{
    EXPECT_FALSE(UndoNew(Old::Aside)) << "neither is there: the folder may be where a disk is mounted";
    path_ = folder_.At("away/Stage.pcg");
    EXPECT_FALSE(UndoNew(Old::Aside));
    EXPECT_FALSE(UndoNew(Old::None));
}

TEST_F(UndoTest, WhatCannotBePutBackYetStaysKept)
{
    Put(kept_, "the old file");
    std::filesystem::create_directory(path_);
    EXPECT_FALSE(UndoNew(Old::Aside));
    EXPECT_EQ(Text(kept_), "the old file");
}

TEST_F(UndoTest, APieceOfAFileThatWasNotThereBeforeGoes)
{
    Put(path_, kNew.substr(0, 5));
    EXPECT_TRUE(UndoNew(Old::None));
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_TRUE(UndoNew(Old::None)) << "nor is it there now";
}

TEST_F(UndoTest, AFileThatWasEmptyIsEmptyAgain)
{
    Put(path_, kNew.substr(0, 5));
    EXPECT_TRUE(UndoNew(Old::Empty));
    EXPECT_EQ(std::filesystem::file_size(path_), 0U);
}

TEST_F(UndoTest, WhatSomebodyHasPutThereSinceStays)
{
    for (const std::string &other : {std::string("my own"), kNew + " and more"}) {
        Put(path_, other);
        EXPECT_TRUE(UndoNew(Old::None));
        EXPECT_TRUE(UndoNew(Old::Empty));
        EXPECT_EQ(Text(path_), other);
    }
}

TEST_F(UndoTest, AFileChangedInPlaceIsItsCopyAgainIfThatIsWhole)
{
    const UnfinishedSave save = [&] {
        UnfinishedSave changed = SaveOfNew(Old::Copied, path_, ".velluto-1");
        changed.beginning.reset();
        return changed;
    }();
    Put(path_, "half changed");
    Put(kept_, kNew);
    EXPECT_TRUE(Undo(save));
    EXPECT_EQ(Text(path_), kNew);
    EXPECT_FALSE(std::filesystem::exists(kept_));
    Put(kept_, kNew.substr(0, 5)); // made before anything is changed
    EXPECT_TRUE(Undo(save));
    EXPECT_EQ(Text(path_), kNew);
    EXPECT_FALSE(std::filesystem::exists(kept_));
}

TEST_F(UndoTest, ADamagedLastBlockIsNoCompleteFile)
{
    std::string zeros = kNew;
    zeros.back() = '\0';
    Put(kept_, "the old file");
    Put(path_, zeros);
    EXPECT_TRUE(UndoNew(Old::Aside));
    EXPECT_EQ(Text(path_), "the old file");
}

} // namespace
} // namespace velluto::test
