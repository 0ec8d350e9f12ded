// What Windows alone has: attributes, and files that others keep for themselves.
#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"

#include "unit/platform/HalfWritten.h"

namespace velluto::test {
namespace {

class WinKeptFilesTest : public KeptFilesTest {
protected:
    WinKeptFilesTest() { files_.KeepWhole(home_); }
    static DWORD Attributes(const std::string &path) { return ::GetFileAttributesW(SystemPath(path)->c_str()); }
    // Of the one file beside that is kept.
    [[nodiscard]] std::string Kept() const
    {
        for (const std::string &name : Names()) {
            if (name.find(".velluto-") != std::string::npos && name.starts_with("disk/")) {
                return folder_.At(name);
            }
        }
        return {};
    }

    MachineFiles files_;
};

TEST_F(WinKeptFilesTest, WhatIsKeptAndTheJournalAreHidden)
{
    const auto underWay = files_.BeginReplacing(path_, {kNew});
    SaveHalf(files_, path_);
    ASSERT_NE(Kept(), "");
    EXPECT_NE(Attributes(Kept()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_NE(Attributes(folder_.At("home/.velluto-saves")) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(WinKeptFilesTest, WhatComesBackIsNotHidden)
{
    const DWORD before = Attributes(path_);
    DieInASave(path_);
    StartAgain();
    EXPECT_EQ(Attributes(path_), before);
}

TEST_F(WinKeptFilesTest, AReadOnlyFileIsRefusedAsWithout)
{
    ::SetFileAttributesW(SystemPath(path_)->c_str(), FILE_ATTRIBUTE_READONLY);
    {
        const auto underWay = files_.BeginReplacing(path_, {kNew});
        EXPECT_EQ(files_.Delete(path_).number, 75);
    }
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_EQ(Names(), (std::vector<std::string>{"disk", "disk/Stage.pcg", "home"}));
    ::SetFileAttributesW(SystemPath(path_)->c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WinKeptFilesTest, AFileThatAnotherKeepsForItselfIsRefusedAsWithout)
{
    const HANDLE other =
        ::CreateFileW(SystemPath(path_)->c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    {
        const auto underWay = files_.BeginReplacing(path_, {kNew});
        EXPECT_EQ(files_.Delete(path_).number, 75);
    }
    ::CloseHandle(other);
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_EQ(Names(), (std::vector<std::string>{"disk", "disk/Stage.pcg", "home"}));
}

TEST_F(WinKeptFilesTest, APathInAnotherCaseIsTheSameFile)
{
    const auto underWay = files_.BeginReplacing(path_, {kNew});
    EXPECT_EQ(files_.Delete(OnDisk("STAGE.PCG")).number, 0);
    ASSERT_NE(Kept(), "");
    EXPECT_EQ(ReadBytes(Kept()), kOld);
}

TEST_F(WinKeptFilesTest, WhatIsNoFileIsNeverKept)
{
    for (const std::string &path : {disk_, disk_ + "\\", OnDisk("no/file"), OnDisk("NUL"), std::string("NUL"), std::string(),
                                    std::string("a\0b", 3), std::string("\xFF")}) {
        EXPECT_EQ(files_.BeginReplacing(path, {kNew}), nullptr) << path;
        EXPECT_EQ(files_.BeginChanging(path), nullptr) << path;
    }
}

TEST_F(WinKeptFilesTest, AFileBeyond260CharactersComesBackToo)
{
    std::string folder = disk_;
    for (int i = 0; i < 4; ++i) {
        folder += "\\" + std::string(100, static_cast<char>('a' + i));
        ASSERT_NE(::CreateDirectoryW(SystemPath(folder)->c_str(), nullptr), 0);
    }
    const std::string path = folder + "\\far.pcg";
    std::unique_ptr<RandomAccessFile> file;
    ASSERT_FALSE(files_.Open(path, file).Failed());
    ASSERT_FALSE(file->Write(0, kOld).Failed());
    file.reset();
    DieInASave(path);
    StartAgain();
    ASSERT_FALSE(files_.OpenToRead(path, file).Failed());
    Bytes bytes(9);
    std::size_t got = 0;
    ASSERT_FALSE(file->Read(0, bytes, got).Failed());
    EXPECT_EQ(got, kOld.size());
}

} // namespace
} // namespace velluto::test
