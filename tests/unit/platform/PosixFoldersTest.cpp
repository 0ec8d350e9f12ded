// What the folders of a POSIX system alone have: links, pipes and mounts.
#include "platform/posix/PosixFolders.h"

#include "platform/FileStore.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;

TEST(PosixFoldersTest, LinksAreWhatTheyLeadToAndAPipeIsNoFile)
{
    const TempFolder folder;
    PosixFolders folders;
    WriteBytes(folder.At("b.mid"), Bytes(5));
    std::filesystem::create_directory(folder.At("inside"));
    ::mkfifo(folder.At("pipe.mid").c_str(), 0600);
    std::filesystem::create_symlink(folder.At("b.mid"), folder.At("link.mid"));
    std::filesystem::create_symlink(folder.At("nowhere"), folder.At("broken.mid"));
    std::filesystem::create_directory_symlink(folder.At("inside"), folder.At("way"));
    std::vector<ListedFile> files;
    EXPECT_EQ(folders.Files(folder.Path(), "*.mid", files).number, 0);
    EXPECT_THAT(files, ElementsAre(ListedFile{"b.mid", 5}, ListedFile{"link.mid", 5}));
    std::vector<std::string> names;
    EXPECT_EQ(folders.Subfolders(folder.Path(), names).number, 0);
    EXPECT_THAT(names, ElementsAre("inside", "way"));
}

TEST(PosixFoldersTest, ANameTooLongIsPathNotFound)
{
    std::uint64_t length = 0;
    EXPECT_EQ(PosixFolders().FileLength("/" + std::string(5000, 'n'), length).number, FileError::kPathNotFound);
}

TEST(PosixFoldersTest, DrivesBeginWithTheRoot)
{
    EXPECT_EQ(PosixFolders().Drives().front(), "/");
}

TEST(UserMounts, AreThoseBelowTheirPlacesInOrder)
{
    EXPECT_THAT(UserMounts("proc /proc proc rw 0 0\n"
                           "/dev/sdb1 /media/ann/MY\\040STICK vfat rw 0 0\n"
                           "/dev/sda1 / ext4 rw 0 0\n"
                           "/dev/sdc1 /run/media/ann/disk ext4 rw 0 0\n"
                           "/dev/sdd1 /mnt ext4 rw 0 0\n"
                           "/dev/sdd1 /mnt ext4 rw 0 0\n"
                           "tmpfs /mntx tmpfs rw 0 0\n"
                           "broken"),
                ElementsAre("/media/ann/MY STICK", "/mnt", "/run/media/ann/disk"));
    EXPECT_TRUE(UserMounts("").empty());
    EXPECT_TRUE(UserMounts("\n\n \n").empty());
}

} // namespace
} // namespace velluto::test
