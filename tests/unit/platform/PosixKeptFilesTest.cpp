// What a POSIX system alone has: rights, names of any bytes, links, pipes and devices.
#include "platform/posix/PosixFiles.h"

#include "platform/kept/UnfinishedSave.h"
#include "unit/platform/HalfWritten.h"
#include "unit/platform/OrdinaryUser.h"

#include <sys/stat.h>

namespace velluto::test {
namespace {

using PosixKeptFilesTest = KeptFilesTest;

TEST_F(PosixKeptFilesTest, AfterTheEndOfTheProcessAStartBringsTheOldFileBackWithItsRights)
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

TEST_F(PosixKeptFilesTest, NamesOfAnyBytesComeBackToo)
{
    for (const std::string name : {"two\nlines.pcg", "\xE0\xFF.pcg", " .pcg"}) {
        const std::string path = OnDisk(name);
        WriteBytes(path, kOld);
        DieInASave(path);
        StartAgain();
        EXPECT_EQ(ReadBytes(path), kOld) << name;
    }
}

TEST_F(PosixKeptFilesTest, ThroughALinkTheTargetComesBackAndTheLinkStays)
{
    const std::string link = folder_.At("Link.pcg");
    std::filesystem::create_symlink(path_, link);
    DieInASave(link);
    StartAgain();
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadBytes(path_), kOld);
}

TEST_F(PosixKeptFilesTest, AFolderThatMayNotBeWrittenToIsWaitedForWithTheOldFileInIt)
{
    const std::string kept = OnDisk(".velluto-1");
    const UnfinishedSave save{UnfinishedSave::Old::Aside, path_, ".velluto-1", kNew.size(), 0, std::nullopt};
    WriteBytes(kept, kOld);
    WriteBytes(path_, {'n', 'e', 'w'});
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(disk_, std::filesystem::perms(0555));
    bool isOrdinary = false;
    bool isUndone = false;
    {
        const AsOrdinaryUser user;
        isOrdinary = user.Done();
        isUndone = isOrdinary && Undo(save);
    }
    std::filesystem::permissions(disk_, std::filesystem::perms(0755));
    if (!isOrdinary) {
        GTEST_SKIP() << "rights cannot be laid down here";
    }
    EXPECT_FALSE(isUndone);
    EXPECT_EQ(ReadBytes(kept), kOld);
    EXPECT_TRUE(Undo(save));
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_FALSE(std::filesystem::exists(kept));
}

TEST_F(PosixKeptFilesTest, WhatTheJournalsFolderHoldsThatIsNoneOfItsFilesStays)
{
    const std::string journal = folder_.At("home/.velluto-saves");
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

TEST_F(PosixKeptFilesTest, WhatIsNoFileIsNeverKept)
{
    MachineFiles files;
    files.KeepWhole(home_);
    const std::string pipe = OnDisk("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", OnDisk("dangling"));
    std::filesystem::create_symlink("loop", OnDisk("loop"));
    for (const std::string &path : {pipe, disk_, disk_ + "/", OnDisk("dangling"), OnDisk("loop"), OnDisk("no/file"),
                                    std::string("/dev/null"), std::string(), std::string("a\0b", 3)}) {
        EXPECT_EQ(files.BeginReplacing(path, {kNew}), nullptr) << path;
        EXPECT_EQ(files.BeginChanging(path), nullptr) << path;
    }
}

TEST_F(PosixKeptFilesTest, AFileThatChangesInPlaceIsTheOldOneAgainWithItsRights)
{
    ::chmod(path_.c_str(), 0600);
    InAProcessThatDies(home_, {{HalfWritten::How::Changed, path_}});
    EXPECT_NE(ReadBytes(path_), kOld);
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
    struct stat about {};
    ASSERT_EQ(::stat(path_.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777U, 0600U);
}

} // namespace
} // namespace velluto::test
