// What the files, folders and paths of Windows alone have.
#include "platform/windows/WinFiles.h"

#include "platform/FileStore.h"
#include "platform/windows/WinFolders.h"
#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

// A name that is half of a surrogate pair and no text of any language; Windows allows it.
constexpr std::string_view kHalf = "\xED\xA0\x80.mid";

class WinFilesTest : public testing::Test {
protected:
    int Open(const std::string &path) { return files_.Open(path, file_).number; }
    [[nodiscard]] std::wstring Wide(const std::string &name) const { return *WideOf(folder_.At(name)); }

    TempFolder folder_;
    WinFiles files_;
    std::unique_ptr<RandomAccessFile> file_;
};

TEST(WinPaths, TextsComeBackAsTheyWere)
{
    for (const std::string_view text : {std::string_view("plain"), std::string_view("Città 日本 \xF0\x9F\x8E\xB9"), kHalf}) {
        const auto wide = WideOf(text);
        ASSERT_TRUE(wide);
        EXPECT_EQ(Utf8Of(*wide), text);
    }
    EXPECT_EQ(*WideOf("\xF0\x9F\x8E\xB9"), L"\xD83C\xDFB9");
    EXPECT_EQ(*WideOf(kHalf), L"\xD800.mid");
}

TEST(WinPaths, WhatIsNoUtf8IsNoPath)
{
    for (const std::string_view text : {"\x80", "a\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xF4\x90\x80\x80", "\xFF", "\xC3\x28"}) {
        EXPECT_FALSE(WideOf(text)) << text;
    }
    EXPECT_FALSE(SystemPath(""));
    EXPECT_FALSE(SystemPath(std::string_view("C:\\a\0b", 6)));
}

TEST(WinPaths, ShortOnesStayAndLongOnesAreTakenLiterally)
{
    EXPECT_EQ(*SystemPath("C:\\a\\b.pcg"), L"C:\\a\\b.pcg");
    EXPECT_EQ(*SystemPath("C:/a/b.pcg"), L"C:\\a\\b.pcg");
    EXPECT_EQ(*SystemPath("C:"), L"C:\\");
    EXPECT_EQ(*SystemPath("\\\\server\\share\\a"), L"\\\\server\\share\\a");
    const std::string longName(150, 'x');
    const std::wstring wideName(150, L'x');
    EXPECT_EQ(*SystemPath("C:\\" + longName + "\\.\\none\\..\\" + longName), L"\\\\?\\C:\\" + wideName + L"\\" + wideName);
    EXPECT_EQ(*SystemPath("\\\\server\\share\\" + longName + "\\" + longName),
              L"\\\\?\\UNC\\server\\share\\" + wideName + L"\\" + wideName);
    EXPECT_EQ(*SystemPath("\\\\?\\C:\\" + longName + "\\" + longName), L"\\\\?\\C:\\" + wideName + L"\\" + wideName);
}

TEST_F(WinFilesTest, APathBeyond260CharactersIsOpenedListedAndTakenAway)
{
    std::string folder = folder_.Path();
    for (int i = 0; i < 4; ++i) {
        folder += "\\" + std::string(100, static_cast<char>('a' + i));
        ASSERT_NE(::CreateDirectoryW(SystemPath(folder)->c_str(), nullptr), 0);
    }
    const std::string path = folder + "\\far.mid";
    ASSERT_EQ(Open(path), 0);
    EXPECT_EQ(file_->Write(0, Bytes{1, 2, 3}).number, 0);
    file_.reset();
    WinFolders folders;
    std::vector<ListedFile> files;
    EXPECT_EQ(folders.Files(folder, "*.mid", files).number, 0);
    EXPECT_THAT(files, ElementsAre(ListedFile{"far.mid", 3}));
    std::uint64_t length = 0;
    EXPECT_EQ(folders.FileLength(path, length).number, 0);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(files_.Delete(path).number, 0);
    EXPECT_EQ(files_.Delete(path).number, 53);
}

TEST_F(WinFilesTest, NamesAreTheSameInAnyCase)
{
    WriteBytes(folder_.At("Song.PCG"), {1, 2});
    EXPECT_EQ(files_.OpenToRead(folder_.At("sONG.pcg"), file_).number, 0);
}

TEST_F(WinFilesTest, TheReadOnlyAttributeIsPathFileAccess)
{
    WriteBytes(folder_.At("a.pcg"), {1});
    ASSERT_NE(::SetFileAttributesW(Wide("a.pcg").c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_EQ(Open(folder_.At("a.pcg")), 75);
    EXPECT_EQ(files_.Delete(folder_.At("a.pcg")).number, 75);
    EXPECT_EQ(files_.OpenToRead(folder_.At("a.pcg"), file_).number, 0);
    file_.reset();
    ::SetFileAttributesW(Wide("a.pcg").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WinFilesTest, AFileThatAnotherKeepsForItselfIsPathFileAccess)
{
    const HANDLE other = ::CreateFileW(Wide("a.pcg").c_str(), GENERIC_READ, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(folder_.At("a.pcg")), 75);
    EXPECT_EQ(files_.OpenToRead(folder_.At("a.pcg"), file_).number, 75);
    EXPECT_EQ(files_.Delete(folder_.At("a.pcg")).number, 75);
    ::CloseHandle(other);
}

TEST_F(WinFilesTest, ADeviceIsNoFile)
{
    EXPECT_EQ(Open("NUL"), 75);
    EXPECT_EQ(Open(folder_.At("NUL")), 75);
    EXPECT_EQ(file_, nullptr);
}

TEST_F(WinFilesTest, ADriveThatIsNotThereIsPathNotFound)
{
    const DWORD there = ::GetLogicalDrives();
    char letter = 'B';
    while ((there >> static_cast<unsigned>(letter - 'A') & 1U) != 0) {
        ++letter;
    }
    EXPECT_EQ(Open(std::string(1, letter) + ":\\a.pcg"), 76);
}

TEST(WinErrors, EachCodeOfTheSystemHasItsNumber)
{
    const std::vector<std::pair<unsigned long, int>> table = {{ERROR_PATH_NOT_FOUND, 76},
                                                              {ERROR_BAD_NETPATH, 76},
                                                              {ERROR_INVALID_NAME, 76},
                                                              {ERROR_FILENAME_EXCED_RANGE, 76},
                                                              {ERROR_DIRECTORY, 76},
                                                              {ERROR_ACCESS_DENIED, 75},
                                                              {ERROR_WRITE_PROTECT, 75},
                                                              {ERROR_SHARING_VIOLATION, 75},
                                                              {ERROR_LOCK_VIOLATION, 75},
                                                              {ERROR_DISK_FULL, 61},
                                                              {ERROR_HANDLE_DISK_FULL, 61},
                                                              {1295, 61},
                                                              {ERROR_NOT_READY, 71},
                                                              {ERROR_UNRECOGNIZED_VOLUME, 71},
                                                              {ERROR_NO_MEDIA_IN_DRIVE, 71},
                                                              {ERROR_DEVICE_NOT_CONNECTED, 71},
                                                              {ERROR_CRC, 57},
                                                              {ERROR_IO_DEVICE, 57},
                                                              {ERROR_GEN_FAILURE, 57},
                                                              {ERROR_NOT_ENOUGH_MEMORY, 51},
                                                              {ERROR_INVALID_PARAMETER, 51}};
    for (const auto &[code, number] : table) {
        EXPECT_EQ(FromSystem(code).number, number) << code;
    }
}

TEST_F(WinFilesTest, TheRootOfADriveKeepsItsSeparator)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path("C:\\");
    EXPECT_EQ(files_.CurrentFolder(), "C:\\");
    std::filesystem::current_path(folder_.Path());
    EXPECT_EQ(files_.CurrentFolder(), folder_.Path());
    std::filesystem::current_path(before);
}

TEST(WinFolders, DrivesAreLettersInOrderAndStandForTheirRoots)
{
    WinFolders folders;
    const std::vector<std::string> drives = folders.Drives();
    EXPECT_THAT(drives, Contains("C:"));
    EXPECT_TRUE(std::ranges::is_sorted(drives));
    std::vector<std::string> names;
    EXPECT_EQ(folders.Subfolders("C:", names).number, 0);
    EXPECT_THAT(names, Contains("windows"));
}

TEST(WinFolders, APatternMeansTheLongNameAlone)
{
    const TempFolder folder;
    WinFolders folders;
    for (const char *name : {"a.mid", "song.midi"}) { // whose short name ends in .MID
        WriteBytes(folder.At(name), {1});
    }
    std::vector<ListedFile> files;
    EXPECT_EQ(folders.Files(folder.Path(), "*.mid", files).number, 0);
    EXPECT_THAT(files, ElementsAre(ListedFile{"a.mid", 1}));
}

} // namespace
} // namespace velluto::test
