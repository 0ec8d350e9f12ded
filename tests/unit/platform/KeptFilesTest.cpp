// What every system keeps of the files that are being written.
#include "unit/platform/HalfWritten.h"

#include "platform/kept/UnfinishedSave.h"

namespace velluto::test {
namespace {

TEST_F(KeptFilesTest, AfterASaveNoNameIsLeft)
{
    const std::vector<std::string> before = Names();
    MachineFiles files;
    files.KeepWhole(home_);
    {
        const auto underWay = files.BeginReplacing(path_, {kNew});
        SaveHalf(files, path_);
    }
    EXPECT_EQ(Names(), before);
    EXPECT_EQ(ReadBytes(path_).size(), kNew.size() / 2) << "a save that has failed and said so is not undone";
    StartAgain();
    EXPECT_EQ(ReadBytes(path_).size(), kNew.size() / 2);
}

TEST_F(KeptFilesTest, AFileInRunsIsKnownAsTheSameFileInOne)
{
    MachineFiles files;
    files.KeepWhole(home_);
    const std::span<const std::uint8_t> whole(kNew);
    const auto journal = [&](const ByteRuns &bytes) {
        const auto underWay = files.BeginReplacing(path_, bytes);
        UnfinishedSave told;
        for (const auto &entry : std::filesystem::directory_iterator(PathOfUtf8(home_ + "/.velluto-saves"))) {
            const Bytes text = ReadBytes(Utf8OfPath(entry.path()));
            told = ParseJournalText(std::string(text.begin(), text.end())).value_or(told);
        }
        return told;
    };
    UnfinishedSave one = journal({whole});
    const UnfinishedSave three = journal({whole.first(1), whole.subspan(1, 3), whole.subspan(4)});
    one.kept = three.kept; // a name of its own each time
    EXPECT_EQ(three, one);
    EXPECT_EQ(three.length, kNew.size());
    EXPECT_EQ(three.beginning, std::string(kNew.begin(), kNew.end()));
}

TEST_F(KeptFilesTest, WhileASaveIsUnderWayTheProgramsListsShowTheFileAlone)
{
    MachineFiles files;
    files.KeepWhole(home_);
    const auto underWay = files.BeginReplacing(path_, {kNew});
    SaveHalf(files, path_);
    std::vector<ListedFile> listed;
    MachineFolders folders;
    ASSERT_FALSE(folders.Files(disk_, "*", listed).Failed());
    EXPECT_EQ(listed, (std::vector<ListedFile>{{"Stage.pcg", kNew.size() / 2}}));
    std::vector<std::string> below;
    ASSERT_FALSE(folders.Subfolders(home_, below).Failed());
    EXPECT_EQ(below, std::vector<std::string>());
}

TEST_F(KeptFilesTest, AfterTheEndOfTheProcessAStartBringsTheOldFileBack)
{
    const std::vector<std::string> before = Names();
    DieInASave(path_);
    EXPECT_NE(Names(), before);
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
    EXPECT_EQ(Names(), before);
}

TEST_F(KeptFilesTest, NamesOfAnyLanguageComeBackToo)
{
    for (const std::string name : {"Citt\xC3\xA0 \xE6\x97\xA5\xE6\x9C\xAC.pcg", " .pcg", "a.b.c"}) {
        const std::string path = OnDisk(name);
        WriteBytes(path, kOld);
        DieInASave(path);
        EXPECT_NE(ReadBytes(path), kOld);
        StartAgain();
        EXPECT_EQ(ReadBytes(path), kOld) << name;
    }
}

TEST_F(KeptFilesTest, AnotherNameOfTheOldFileStaysTheSameFile)
{
    const std::string other = OnDisk("Other name.pcg");
    std::filesystem::create_hard_link(path_, other);
    DieInASave(path_);
    EXPECT_EQ(ReadBytes(other), kOld);
    StartAgain();
    EXPECT_TRUE(std::filesystem::equivalent(path_, other));
}

TEST_F(KeptFilesTest, ASaveThatAnotherCopyHasUnderWayIsLeftAlone)
{
    MachineFiles files;
    files.KeepWhole(home_);
    {
        const auto underWay = files.BeginReplacing(path_, {kNew});
        SaveHalf(files, path_);
        InAProcessThatDies(home_, {});
        EXPECT_EQ(ReadBytes(path_), Bytes(kNew.begin(), kNew.begin() + 3));
        std::unique_ptr<RandomAccessFile> file;
        ASSERT_FALSE(files.Open(path_, file).Failed());
        ASSERT_FALSE(file->Write(0, kNew).Failed());
    }
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kNew);
}

TEST_F(KeptFilesTest, TwoUnderWayAtOnceAreKeptBoth)
{
    const std::string second = OnDisk("Second.pcg");
    WriteBytes(second, kOld);
    InAProcessThatDies(home_, {{HalfWritten::How::Replaced, path_}, {HalfWritten::How::Replaced, second}});
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
    EXPECT_FALSE(std::filesystem::exists(folder_.At("home/.velluto-saves")));
}

TEST_F(KeptFilesTest, AFileThatChangesInPlaceIsTheOldOneAgain)
{
    InAProcessThatDies(home_, {{HalfWritten::How::Changed, path_}});
    EXPECT_NE(ReadBytes(path_), kOld);
    StartAgain();
    EXPECT_EQ(ReadBytes(path_), kOld);
}

TEST_F(KeptFilesTest, WhereNothingCanBeToldASaveIsAsBefore)
{
    WriteBytes(folder_.At("home/.velluto-saves"), kOld);
    MachineFiles files;
    files.KeepWhole(home_);
    EXPECT_EQ(files.BeginReplacing(path_, {kNew}), nullptr);
    EXPECT_EQ(files.BeginChanging(path_), nullptr);
    EXPECT_FALSE(files.Delete(path_).Failed());
    EXPECT_EQ(Names(), (std::vector<std::string>{"disk", "home", "home/.velluto-saves"}));
}

TEST_F(KeptFilesTest, WhatIsDeletedForGoodIsNotKept)
{
    MachineFiles files;
    files.KeepWhole(home_);
    const auto underWay = files.BeginReplacing(path_, {kNew});
    const std::string other = OnDisk("Other.pcg");
    WriteBytes(other, kOld);
    EXPECT_FALSE(files.Delete(other).Failed());
    EXPECT_EQ(files.Delete(other).number, FileError::kFileNotFound);
}

} // namespace
} // namespace velluto::test
