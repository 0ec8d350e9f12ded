#include "platform/HandOver.h"

#include "platform/windows/Windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class WinHandOverTest : public testing::Test {
protected:
    [[nodiscard]] static std::string Address() { return R"(\\.\pipe\velluto-test-)" + std::to_string(::GetCurrentProcessId()); }
    static bool IsAwaited(const HandOverInbox &inbox)
    {
        return ::WaitForSingleObject(reinterpret_cast<HANDLE>(inbox.Descriptor()), 10'000) == WAIT_OBJECT_0;
    }
    static HANDLE Connect()
    {
        return ::CreateFileA(Address().c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    }
};

TEST_F(WinHandOverTest, FilesReachTheOneThatRuns)
{
    HandOverInbox inbox(Address());
    ASSERT_NE(inbox.Descriptor(), -1);
    for (const std::string path : {R"(C:\Musica\è bella.pcg)", R"(\\server\share\c.sty)"}) {
        bool taken = false;
        std::thread second([&] { taken = HandOver(Address(), {"leave", {path, "D:\\"}}); });
        EXPECT_TRUE(IsAwaited(inbox));
        const std::optional<HandedFiles> files = inbox.Take();
        second.join();
        ASSERT_TRUE(files);
        EXPECT_EQ(files->activation, "leave");
        EXPECT_THAT(files->paths, ElementsAre(path, "D:\\"));
        EXPECT_TRUE(taken);
    }
}

// The Explorer starts the program once for each of the files that are opened together.
TEST_F(WinHandOverTest, WhoeverComesMeanwhileWaits)
{
    HandOverInbox inbox(Address());
    std::atomic<int> taken = 0;
    std::vector<std::thread> others;
    for (int i = 0; i < 5; ++i) {
        others.emplace_back([&] { taken += HandOver(Address(), {"", {"C:\\a.pcg"}}) ? 1 : 0; });
    }
    for (std::size_t i = 0; i < others.size(); ++i) {
        EXPECT_TRUE(IsAwaited(inbox));
        EXPECT_TRUE(inbox.Take());
    }
    for (std::thread &other : others) {
        other.join();
    }
    EXPECT_EQ(taken, 5);
}

TEST_F(WinHandOverTest, WhereNobodyRunsNobodyTakesThem)
{
    EXPECT_FALSE(HandOver(Address(), {"", {"C:\\a.pcg"}}));
    EXPECT_FALSE(HandOver("", {"", {"C:\\a.pcg"}}));
    EXPECT_FALSE(HandOver("no pipe", {"", {"C:\\a.pcg"}}));
}

TEST_F(WinHandOverTest, TheAddressIsOnesAloneAndFreeAfterTheEnd)
{
    {
        const HandOverInbox first(Address());
        EXPECT_NE(first.Descriptor(), -1);
        const HandOverInbox second(Address());
        EXPECT_EQ(second.Descriptor(), -1);
    }
    const HandOverInbox third(Address());
    EXPECT_NE(third.Descriptor(), -1);
}

TEST_F(WinHandOverTest, DamagedWordsAreNotTaken)
{
    for (const std::string &bytes : {std::string("\x06\0\0\0no end", 10), std::string("\xff\xff\xff\xff", 4), std::string("\x01", 1)}) {
        HandOverInbox inbox(Address());
        HANDLE const pipe = Connect();
        ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
        DWORD written = 0;
        ASSERT_NE(::WriteFile(pipe, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr), 0);
        EXPECT_FALSE(inbox.Take());
        ::CloseHandle(pipe);
    }
}

TEST_F(WinHandOverTest, WhoeverSaysNothingIsNotWaitedForLong)
{
    HandOverInbox inbox(Address());
    HANDLE const pipe = Connect();
    const ULONGLONG before = ::GetTickCount64();
    EXPECT_FALSE(inbox.Take());
    EXPECT_LT(::GetTickCount64() - before, 5000U);
    ::CloseHandle(pipe);
}

TEST_F(WinHandOverTest, TheAddressIsThisFoldersAndThisUsers)
{
    const std::string here = HandOverAddress();
    EXPECT_THAT(here, StartsWith(R"(\\.\pipe\velluto-S-1-)"));
    EXPECT_EQ(HandOverAddress(), here);
}

} // namespace
} // namespace velluto::test
