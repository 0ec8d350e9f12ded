#include "platform/HandOver.h"

#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class HandOverTest : public testing::Test {
protected:
    [[nodiscard]] std::string Address() const { return folder.Path() + "/socket"; }
    static bool IsAwaited(const HandOverInbox &inbox)
    {
        pollfd waiting{static_cast<int>(inbox.Descriptor()), POLLIN, 0};
        return ::poll(&waiting, 1, 10'000) == 1;
    }
    // What a program that dies leaves behind: the file of a socket that nobody listens to.
    void LeaveDeadSocket() const
    {
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un name{AF_UNIX, {}};
        Address().copy(name.sun_path, sizeof(name.sun_path) - 1);
        ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr *>(&name), sizeof(name)), 0);
        ::close(socket);
    }

    TempFolder folder;
};

TEST_F(HandOverTest, FilesReachTheOneThatRuns)
{
    HandOverInbox inbox(Address());
    ASSERT_GE(inbox.Descriptor(), 0);
    bool taken = false;
    std::thread second([&] { taken = HandOver(Address(), {"leave", {"/a b.pcg", "/c.sty"}}); });
    ASSERT_TRUE(IsAwaited(inbox));
    const std::optional<HandedFiles> files = inbox.Take();
    second.join();
    ASSERT_TRUE(files);
    EXPECT_EQ(files->activation, "leave");
    EXPECT_THAT(files->paths, ElementsAre("/a b.pcg", "/c.sty"));
    EXPECT_TRUE(taken);
}

TEST_F(HandOverTest, WhereNobodyRunsNobodyTakesThem)
{
    EXPECT_FALSE(HandOver(Address(), {"", {"/a.pcg"}}));
    EXPECT_FALSE(HandOver("", {"", {"/a.pcg"}}));
    LeaveDeadSocket();
    EXPECT_FALSE(HandOver(Address(), {"", {"/a.pcg"}}));
}

TEST_F(HandOverTest, ADeadSocketIsTakenOverAndALivingOneIsNot)
{
    LeaveDeadSocket();
    const HandOverInbox first(Address());
    EXPECT_GE(first.Descriptor(), 0);
    const HandOverInbox second(Address());
    EXPECT_EQ(second.Descriptor(), -1);
}

TEST_F(HandOverTest, TheAddressIsFreeAfterTheEnd)
{
    {
        const HandOverInbox inbox(Address());
        EXPECT_EQ(::access(Address().c_str(), F_OK), 0);
    }
    EXPECT_NE(::access(Address().c_str(), F_OK), 0);
}

TEST_F(HandOverTest, WhatIsNoFileIsNeverTouched)
{
    WriteBytes(Address(), {1});
    const HandOverInbox inbox(Address());
    EXPECT_EQ(inbox.Descriptor(), -1);
    EXPECT_EQ(ReadBytes(Address()).size(), 1U);
}

TEST_F(HandOverTest, DamagedWordsAreNotTaken)
{
    HandOverInbox inbox(Address());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un name{AF_UNIX, {}};
    Address().copy(name.sun_path, sizeof(name.sun_path) - 1);
    ASSERT_EQ(::connect(socket, reinterpret_cast<const sockaddr *>(&name), sizeof(name)), 0);
    ASSERT_EQ(::send(socket, "no end", 6, 0), 6);
    ::shutdown(socket, SHUT_WR);
    EXPECT_FALSE(inbox.Take());
    ::close(socket);
}

TEST_F(HandOverTest, TheAddressIsInAFolderOfThisUsersAlone)
{
    const char *const before = std::getenv("XDG_RUNTIME_DIR");
    const std::string kept = before != nullptr ? before : "";
    ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
    ::chmod(folder.Path().c_str(), 0700);
    EXPECT_THAT(HandOverAddress(), HasSubstr(folder.Path() + "/velluto-"));
    ::chmod(folder.Path().c_str(), 0777);
    EXPECT_EQ(HandOverAddress(), "");
    ::chmod(folder.Path().c_str(), 0700);
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(HandOverAddress(), "");
    if (before != nullptr) {
        ::setenv("XDG_RUNTIME_DIR", kept.c_str(), 1);
    }
}

} // namespace
} // namespace velluto::test
