#include "platform/posix/KeptFiles.h"

#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolders.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velluto::test {
namespace {

const Bytes kOld = {'o', 'l', 'd'};
const Bytes kNew = {'n', 'e', 'w', '!', '!', '!'};

class KeptFilesTest : public testing::Test {
protected:
    KeptFilesTest()
    {
        std::filesystem::create_directories(disk_);
        std::filesystem::create_directories(home_);
        WriteBytes(path_, kOld);
    }

    // What a save does, up to where half of it is written.
    static void SaveHalf(FileStore &files, const std::string &path)
    {
        std::unique_ptr<RandomAccessFile> file;
        (void)files.Delete(path);
        (void)files.Open(path, file);
        (void)file->Write(0, std::span(kNew).first(kNew.size() / 2));
    }
    // In a process that ends at the end of steps, without another word.
    void InAProcessThatDies(const std::function<void(PosixFiles &)> &steps) const
    {
        const pid_t child = ::fork();
        if (child == 0) {
            PosixFiles files;
            files.KeepWhole(home_);
            steps(files);
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }
    void DieInASave(const std::string &path) const
    {
        InAProcessThatDies([&path](PosixFiles &files) {
            const auto underWay = files.BeginReplacing(path, kNew);
            SaveHalf(files, path);
            ::_exit(0);
        });
    }
    void StartAgain() const
    {
        PosixFiles files;
        files.KeepWhole(home_);
    }
    // All names below the folder of the test.
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(folder_.Path())) {
            names.push_back(std::filesystem::relative(entry.path(), folder_.Path()).string());
        }
        std::ranges::sort(names);
        return names;
    }

    TempFolder folder_;
    std::string home_ = folder_.At("home");
    std::string disk_ = folder_.At("disk");
    std::string path_ = disk_ + "/Stage.pcg";
};

TEST_F(KeptFilesTest, AfterASaveNoNameIsLeft)
{
    const std::vector<std::string> before = Names();
    PosixFiles files;
    files.KeepWhole(home_);
    {
        const auto underWay = files.BeginReplacing(path_, kNew);
        SaveHalf(files, path_);
    }
    EXPECT_EQ(Names(), before);
    EXPECT_EQ(ReadBytes(path_).size(), kNew.size() / 2) << "a save that has failed and said so is not undone";
    StartAgain();
    EXPECT_EQ(ReadBytes(path_).size(), kNew.size() / 2);
}

TEST_F(KeptFilesTest, WhileASaveIsUnderWayTheProgramsListsShowTheFileAlone)
{
    PosixFiles files;
    files.KeepWhole(home_);
    const auto underWay = files.BeginReplacing(path_, kNew);
    SaveHalf(files, path_);
    std::vector<ListedFile> listed;
    PosixFolders folders;
    ASSERT_FALSE(folders.Files(disk_, "*", listed).Failed());
    EXPECT_EQ(listed, (std::vector<ListedFile>{{"Stage.pcg", kNew.size() / 2}}));
    std::vector<std::string> below;
    ASSERT_FALSE(folders.Subfolders(home_, below).Failed());
    EXPECT_EQ(below, std::vector<std::string>());
}

TEST_F(KeptFilesTest, AfterTheEndOfTheProcessAStartBringsTheOldFileBackWithItsRights)
{
    ::chmod(path_.c_str(), 0640);
    const std::vector<std::string> before = Names();
    DieInASave(path_);
    EXPECT_NE(Names(), before);
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_EQ(Names(), before);
    struct stat about {};
    ASSERT_EQ(::stat(path_.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777U, 0640U);
}

TEST_F(KeptFilesTest, NamesOfAnyBytesComeBackToo)
{
    for (const std::string name : {"two\nlines.pcg", "\xE0\xFF.pcg", " .pcg"}) {
        const std::string path = disk_ + "/" + name;
        WriteBytes(path, kOld);
        DieInASave(path);
        StartAgain();
        EXPECT_EQ(ReadBytes(path), kOld) << name;
    }
}

TEST_F(KeptFilesTest, ThroughALinkTheTargetComesBackAndTheLinkStays)
{
    const std::string link = folder_.At("Link.pcg");
    std::filesystem::create_symlink(path_, link);
    DieInASave(link);
    StartAgain();
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadBytes(path_), kOld);
}

TEST_F(KeptFilesTest, AnotherNameOfTheOldFileStaysTheSameFile)
{
    const std::string other = disk_ + "/Other name.pcg";
    std::filesystem::create_hard_link(path_, other);
    DieInASave(path_);
    EXPECT_EQ(ReadBytes(other), kOld);
    StartAgain();
    EXPECT_TRUE(std::filesystem::equivalent(path_, other));
}

TEST_F(KeptFilesTest, ASaveThatAnotherCopyHasUnderWayIsLeftAlone)
{
    PosixFiles files;
    files.KeepWhole(home_);
    {
        const auto underWay = files.BeginReplacing(path_, kNew);
        SaveHalf(files, path_);
        InAProcessThatDies([](PosixFiles &) {});
        EXPECT_EQ(ReadBytes(path_).size(), kNew.size() / 2);
        std::unique_ptr<RandomAccessFile> file;
        ASSERT_FALSE(files.Open(path_, file).Failed());
        ASSERT_FALSE(file->Write(0, kNew).Failed());
    }
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kNew);
}

TEST_F(KeptFilesTest, TwoUnderWayAtOnceAreKeptBoth)
{
    const std::string second = disk_ + "/Second.pcg";
    WriteBytes(second, kOld);
    InAProcessThatDies([&](PosixFiles &files) {
        const auto one = files.BeginReplacing(path_, kNew);
        const auto two = files.BeginReplacing(second, kNew);
        SaveHalf(files, path_);
        SaveHalf(files, second);
        ::_exit(0);
    });
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_EQ(ReadBytes(second), kOld);
}

TEST_F(KeptFilesTest, AFolderThatIsAwayIsWaitedForThroughAnyNumberOfStarts)
{
    DieInASave(path_);
    const std::string away = folder_.At("away");
    std::filesystem::rename(disk_, away);
    StartAgain();
    std::filesystem::create_directory(disk_); // where a disk is to be mounted
    StartAgain();
    std::filesystem::remove(disk_);
    std::filesystem::rename(away, disk_);
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_FALSE(std::filesystem::exists(home_ + "/.velluto-saves"));
}

TEST_F(KeptFilesTest, AFileThatChangesInPlaceIsTheOldOneAgain)
{
    ::chmod(path_.c_str(), 0600);
    InAProcessThatDies([&](PosixFiles &files) {
        const auto underWay = files.BeginChanging(path_);
        std::unique_ptr<RandomAccessFile> file;
        (void)files.Open(path_, file);
        (void)file->Write(1, kNew);
        ::_exit(0);
    });
    EXPECT_NE(ReadBytes(path_), kOld);
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
    struct stat about {};
    ASSERT_EQ(::stat(path_.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777U, 0600U);
}

TEST_F(KeptFilesTest, WhatTheJournalsFolderHoldsThatIsNoneOfItsFilesStays)
{
    const std::string journal = home_ + "/.velluto-saves";
    std::filesystem::create_directories(journal + "/save-folder");
    std::filesystem::create_symlink("/dev/zero", journal + "/save-device");
    ASSERT_EQ(::mkfifo((journal + "/save-pipe").c_str(), 0600), 0);
    WriteBytes(journal + "/save-damaged", {0xFF, 0x00, ':', '9'});
    WriteBytes(journal + "/notes", kOld);
    StartAgain();
    EXPECT_FALSE(std::filesystem::exists(journal + "/save-damaged"));
    EXPECT_TRUE(std::filesystem::exists(journal + "/save-folder"));
    EXPECT_TRUE(std::filesystem::is_symlink(journal + "/save-device"));
    EXPECT_TRUE(std::filesystem::exists(journal + "/save-pipe"));
    EXPECT_EQ(ReadBytes(journal + "/notes"), kOld);
}

TEST_F(KeptFilesTest, WhereNothingCanBeToldASaveIsAsBefore)
{
    WriteBytes(home_ + "/.velluto-saves", kOld);
    PosixFiles files;
    files.KeepWhole(home_);
    EXPECT_EQ(files.BeginReplacing(path_, kNew), nullptr);
    EXPECT_EQ(files.BeginChanging(path_), nullptr);
    EXPECT_FALSE(files.Delete(path_).Failed());
    EXPECT_EQ(Names(), (std::vector<std::string>{"disk", "home", "home/.velluto-saves"}));
}

TEST_F(KeptFilesTest, WhatIsNoFileIsNeverKept)
{
    PosixFiles files;
    files.KeepWhole(home_);
    const std::string pipe = disk_ + "/pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", disk_ + "/dangling");
    std::filesystem::create_symlink("loop", disk_ + "/loop");
    for (const std::string &path : {pipe, disk_, disk_ + "/", disk_ + "/dangling", disk_ + "/loop", disk_ + "/no/file",
                                    std::string("/dev/null"), std::string(), std::string("a\0b", 3)}) {
        EXPECT_EQ(files.BeginReplacing(path, kNew), nullptr) << path;
        EXPECT_EQ(files.BeginChanging(path), nullptr) << path;
    }
}

TEST_F(KeptFilesTest, WhatIsDeletedForGoodIsNotKept)
{
    PosixFiles files;
    files.KeepWhole(home_);
    const auto underWay = files.BeginReplacing(path_, kNew);
    const std::string other = disk_ + "/Other.pcg";
    WriteBytes(other, kOld);
    EXPECT_FALSE(files.Delete(other).Failed());
    EXPECT_EQ(files.Delete(other).number, FileError::kFileNotFound);
}

} // namespace
} // namespace velluto::test
