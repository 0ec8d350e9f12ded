// What every system's files answer alike.
#include "platform/machine/MachineFiles.h"

#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace velluto::test {
namespace {

class MachineFilesTest : public testing::Test {
protected:
    int Open(const std::string &path) { return files_.Open(path, file_).number; }
    int Write(std::uint64_t offset, const Bytes &bytes) { return file_->Write(offset, bytes).number; }

    TempFolder folder_;
    MachineFiles files_;
    std::unique_ptr<RandomAccessFile> file_;
};

TEST_F(MachineFilesTest, AMissingFileIsCreatedEmpty)
{
    EXPECT_EQ(Open(folder_.At("new.pcg")), 0);
    std::uint64_t length = 1;
    EXPECT_EQ(file_->Length(length).number, 0);
    EXPECT_EQ(length, 0U);
    EXPECT_TRUE(std::filesystem::exists(folder_.At("new.pcg")));
}

TEST_F(MachineFilesTest, WhatIsWrittenAtAnOffsetIsReadThere)
{
    ASSERT_EQ(Open(folder_.At("a.ini")), 0);
    EXPECT_EQ(Write(500, {1, 2, 3}), 0);
    std::uint64_t length = 0;
    file_->Length(length);
    EXPECT_EQ(length, 503U);
    Bytes buffer(3);
    std::size_t got = 0;
    EXPECT_EQ(file_->Read(500, buffer, got).number, 0);
    EXPECT_EQ(got, 3U);
    EXPECT_EQ(buffer, (Bytes{1, 2, 3}));
    EXPECT_EQ(file_->Read(498, buffer, got).number, 0);
    EXPECT_EQ(buffer, (Bytes{0, 0, 1}));
}

TEST_F(MachineFilesTest, AReadAcrossTheEndGivesWhatThereIs)
{
    WriteBytes(folder_.At("a"), {1, 2, 3});
    ASSERT_EQ(Open(folder_.At("a")), 0);
    Bytes buffer(8, 9);
    std::size_t got = 7;
    EXPECT_EQ(file_->Read(1, buffer, got).number, 0);
    EXPECT_EQ(got, 2U);
    EXPECT_EQ(file_->Read(10, buffer, got).number, 0);
    EXPECT_EQ(got, 0U);
}

// Large reads go into memory piece by piece, wherever it begins, and whether it is new or not.
TEST_F(MachineFilesTest, ALargeFileIsReadWholeIntoAnyMemory)
{
    Bytes bytes(5'000'003);
    std::uint32_t random = 1;
    for (std::uint8_t &byte : bytes) {
        random = random * 1664525 + 1013904223;
        byte = static_cast<std::uint8_t>(random >> 24U);
    }
    WriteBytes(folder_.At("a"), bytes);
    ASSERT_EQ(Open(folder_.At("a")), 0);
    Bytes used(bytes.size() + 100);
    std::vector<std::unique_ptr<std::uint8_t[]>> kept; // what is given back may be given again, and is not new then
    for (const std::size_t room : {bytes.size() + 100, bytes.size(), std::size_t{3'000'001}, std::size_t{300'000}, std::size_t{262'143}}) {
        for (const std::size_t offset : {std::size_t{0}, std::size_t{4'000'001}}) {
            for (const std::size_t begin : {std::size_t{0}, std::size_t{1}, std::size_t{4095}}) {
                kept.push_back(std::make_unique_for_overwrite<std::uint8_t[]>(begin + room));
                for (const std::span<std::uint8_t> buffer : {std::span(kept.back().get() + begin, room), std::span(used).first(room)}) {
                    std::size_t got = 0;
                    ASSERT_EQ(file_->Read(offset, buffer, got).number, 0);
                    ASSERT_EQ(got, std::min(room, bytes.size() - offset));
                    ASSERT_TRUE(std::ranges::equal(buffer.first(got), std::span(bytes).subspan(offset, got)))
                        << room << ' ' << offset << ' ' << begin;
                }
            }
        }
    }
}

TEST_F(MachineFilesTest, OpeningKeepsTheBytesOfAFile)
{
    WriteBytes(folder_.At("a"), {1, 2, 3});
    ASSERT_EQ(Open(folder_.At("a")), 0);
    file_.reset();
    EXPECT_EQ(ReadBytes(folder_.At("a")), (Bytes{1, 2, 3}));
}

TEST_F(MachineFilesTest, APathIsUtf8)
{
    EXPECT_EQ(Open(folder_.At("Città 日本.pcg")), 0);
    EXPECT_TRUE(std::filesystem::exists(PathOfUtf8(folder_.At("Città 日本.pcg"))));
}

TEST_F(MachineFilesTest, AMissingFolderIsPathNotFound)
{
    EXPECT_EQ(Open(folder_.At("none/a.pcg")), 76);
    EXPECT_EQ(file_, nullptr);
}

TEST_F(MachineFilesTest, AFileInPlaceOfAFolderIsPathNotFound)
{
    WriteBytes(folder_.At("a"), {1});
    EXPECT_EQ(Open(folder_.At("a/b.pcg")), 76);
}

TEST_F(MachineFilesTest, ANameTooLongIsPathNotFound)
{
    EXPECT_EQ(Open(folder_.At(std::string(300, 'x'))), 76);
}

TEST_F(MachineFilesTest, AnEmptyPathAndAZeroByteArePathNotFound)
{
    EXPECT_EQ(Open(""), 76);
    WriteBytes(folder_.At("a"), {1});
    EXPECT_EQ(Open(folder_.At("a") + '\0' + "b"), 76);
    EXPECT_EQ(files_.Delete(folder_.At("a") + '\0' + "b").number, 76);
    EXPECT_TRUE(std::filesystem::exists(folder_.At("a")));
}

TEST_F(MachineFilesTest, AFolderIsPathFileAccess)
{
    EXPECT_EQ(Open(folder_.Path()), 75);
}

TEST_F(MachineFilesTest, OpenedToReadAFileNeedsNoRightToWriteAndTakesNoByte)
{
    WriteBytes(folder_.At("a"), {1, 2, 3});
    std::filesystem::permissions(folder_.At("a"), std::filesystem::perms(0444));
    ASSERT_EQ(files_.OpenToRead(folder_.At("a"), file_).number, 0);
    Bytes read(3);
    std::size_t got = 0;
    EXPECT_FALSE(file_->Read(0, read, got).Failed());
    EXPECT_EQ(read, (Bytes{1, 2, 3}));
    EXPECT_TRUE(file_->Write(0, Bytes{9}).Failed());
    EXPECT_EQ(ReadBytes(folder_.At("a")), (Bytes{1, 2, 3}));
    file_.reset();
    std::filesystem::permissions(folder_.At("a"), std::filesystem::perms(0644)); // else it stays where Windows keeps what is read-only
}

TEST_F(MachineFilesTest, OpenedToReadAMissingFileIsFileNotFoundAndStaysMissing)
{
    EXPECT_EQ(files_.OpenToRead(folder_.At("a"), file_).number, FileError::kFileNotFound);
    EXPECT_FALSE(std::filesystem::exists(folder_.At("a")));
    EXPECT_EQ(files_.OpenToRead("", file_).number, FileError::kPathNotFound);
}

TEST_F(MachineFilesTest, DeleteTakesAFileAwayAndTellsAMissingOne)
{
    WriteBytes(folder_.At("a"), {1});
    EXPECT_EQ(files_.Delete(folder_.At("a")).number, 0);
    EXPECT_FALSE(std::filesystem::exists(folder_.At("a")));
    EXPECT_EQ(files_.Delete(folder_.At("a")).number, 53);
}

TEST_F(MachineFilesTest, DeleteLeavesAFolderAlone)
{
    std::filesystem::create_directory(folder_.At("a"));
    EXPECT_EQ(files_.Delete(folder_.At("a")).number, 75);
    EXPECT_TRUE(std::filesystem::exists(folder_.At("a")));
}

TEST_F(MachineFilesTest, WhatIsOpenMayBeOpenedAgainAndTakenAway)
{
    ASSERT_EQ(Open(folder_.At("a")), 0);
    EXPECT_EQ(Write(0, {1, 2, 3}), 0);
    std::unique_ptr<RandomAccessFile> again;
    EXPECT_EQ(files_.Open(folder_.At("a"), again).number, 0);
    again.reset();
    EXPECT_EQ(files_.Delete(folder_.At("a")).number, 0);
    file_.reset();
    EXPECT_FALSE(std::filesystem::exists(folder_.At("a")));
}

} // namespace
} // namespace velluto::test
