#include "platform/posix/PosixFiles.h"

#include "unit/platform/OrdinaryUser.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace velluto::test {
namespace {

class PosixFilesTest : public testing::Test {
protected:
    int Open(const std::string &path) { return files_.Open(path, file_).number; }
    int Write(std::uint64_t offset, const Bytes &bytes) { return file_->Write(offset, bytes).number; }

    // A file system of the test's own at the folder, gone with the process. False where the machine lets nobody mount.
    ~PosixFilesTest() override
    {
        if (!mounted_.empty()) {
            file_.reset();
            ::umount2(mounted_.c_str(), MNT_DETACH); // a folder that something is mounted on does not go
        }
    }
    bool MountTmpfs(const std::string &folder, unsigned long flags, const char *options)
    {
        mounted_ = folder;
        if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("tmpfs", folder.c_str(), "tmpfs", flags, options) == 0;
    }

    TempFolder folder_;
    std::string mounted_;
    PosixFiles files_;
    std::unique_ptr<RandomAccessFile> file_;
};

TEST_F(PosixFilesTest, ALoopOfLinksIsAnotherError)
{
    std::filesystem::create_symlink("b", folder_.At("a"));
    std::filesystem::create_symlink("a", folder_.At("b"));
    EXPECT_EQ(Open(folder_.At("a")), 51);
}

TEST_F(PosixFilesTest, APipeIsPathFileAccessAndNeverWaitsForItsOtherEnd)
{
    ASSERT_EQ(::mkfifo(folder_.At("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Open(folder_.At("pipe")), 75);
    EXPECT_EQ(file_, nullptr);
}

TEST_F(PosixFilesTest, ASocketIsPathFileAccess)
{
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder_.At("socket");
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    EXPECT_EQ(Open(path), 75);
    ::close(listener);
}

TEST_F(PosixFilesTest, ADeviceIsPathFileAccess)
{
    EXPECT_EQ(Open("/dev/null"), 75);
}

TEST_F(PosixFilesTest, AFolderWithoutWriteRightsIsPathFileAccess)
{
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0555));
    const AsOrdinaryUser user;
    if (!user.Done()) {
        GTEST_SKIP() << "rights cannot be laid down here";
    }
    EXPECT_EQ(Open(folder_.At("a.pcg")), 75);
}

TEST_F(PosixFilesTest, AFileWithoutWriteRightsIsPathFileAccess)
{
    WriteBytes(folder_.At("a.pcg"), {1});
    std::filesystem::permissions(folder_.At("a.pcg"), std::filesystem::perms(0444));
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms(0755));
    const AsOrdinaryUser user;
    if (!user.Done()) {
        GTEST_SKIP() << "rights cannot be laid down here";
    }
    EXPECT_EQ(Open(folder_.At("a.pcg")), 75);
}

TEST_F(PosixFilesTest, AReadOnlyFileSystemIsPathFileAccess)
{
    const std::string place = folder_.At("mounted");
    std::filesystem::create_directory(place);
    if (!MountTmpfs(place, MS_RDONLY, "size=64k")) {
        GTEST_SKIP() << "no file system can be mounted here";
    }
    EXPECT_EQ(Open(place + "/a.pcg"), 75);
}

TEST_F(PosixFilesTest, AFullDiskIsDiskFull)
{
    const std::string place = folder_.At("mounted");
    std::filesystem::create_directory(place);
    if (!MountTmpfs(place, 0, "size=64k")) {
        GTEST_SKIP() << "no file system can be mounted here";
    }
    ASSERT_EQ(Open(place + "/a.pcg"), 0);
    EXPECT_EQ(Write(0, Bytes(32 << 10)), 0);
    EXPECT_EQ(Write(32 << 10, Bytes(64 << 10)), 61);
}

TEST_F(PosixFilesTest, ASaveIntoTheLastFreeBytesHasThoseOfTheOldFileToo)
{
    constexpr std::size_t kDisk = 16 * 4096;
    if (!MountTmpfs(folder_.Path(), 0, "size=65536")) {
        GTEST_SKIP() << "this machine allows no mounts";
    }
    const std::string path = folder_.At("a.pcg");
    const Bytes bytes(kDisk, 0x55);
    WriteBytes(path, Bytes(10 * 4096, 0xAA));
    files_.KeepWhole(folder_.Path());
    {
        const auto underWay = files_.BeginReplacing(path, {bytes});
        ASSERT_NE(underWay, nullptr);
        ASSERT_FALSE(files_.Delete(path).Failed());
        ASSERT_EQ(Open(path), 0);
        EXPECT_EQ(Write(0, bytes), 0);
        EXPECT_EQ(Write(kDisk, {1}), FileError::kDiskFull);
    }
    EXPECT_EQ(ReadBytes(path), bytes);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(PosixFilesTest, TheFileSizeLimitIsDiskFull)
{
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit low{.rlim_cur = 1000, .rlim_max = before.rlim_max};
    ASSERT_EQ(Open(folder_.At("a.pcg")), 0);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &low), 0);
    const int number = Write(0, Bytes(2000));
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(number, 61);
}

TEST_F(PosixFilesTest, OpenedToReadAFolderAndAPipeArePathFileAccess)
{
    EXPECT_EQ(files_.OpenToRead(folder_.Path(), file_).number, FileError::kPathFileAccess);
    ASSERT_EQ(::mkfifo(folder_.At("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files_.OpenToRead(folder_.At("pipe"), file_).number, FileError::kPathFileAccess);
}

TEST_F(PosixFilesTest, DeleteFollowsALinkAsOpenDoes)
{
    WriteBytes(folder_.At("file"), {1});
    std::filesystem::create_symlink("file", folder_.At("link"));
    EXPECT_EQ(files_.Delete(folder_.At("link")).number, 0);
    EXPECT_FALSE(std::filesystem::exists(folder_.At("file")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.At("link")));
}

TEST_F(PosixFilesTest, TheCurrentFolderHasNoSeparatorAtItsEnd)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.Path());
    EXPECT_EQ(files_.CurrentFolder(), std::filesystem::canonical(folder_.Path()).string());
    std::filesystem::current_path("/");
    EXPECT_EQ(files_.CurrentFolder(), "/");
    std::filesystem::current_path(before);
}

} // namespace
} // namespace velluto::test
