// What other threads hand to the program's.
#include "desktop/PostedCalls.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace velluto::test {
namespace {

TEST(PostedCalls, CallsOfManyThreadsRunHereEachThreadsInItsOrder)
{
    constexpr int kThreads = 4;
    constexpr int kCalls = 250;
    EventGate gate;
    PostedCalls posted(gate);
    std::vector<std::vector<int>> heard(kThreads);
    const auto here = std::this_thread::get_id();
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < kCalls; ++i) {
                posted.Post([&, thread, i] {
                    EXPECT_EQ(std::this_thread::get_id(), here);
                    EXPECT_TRUE(gate.Busy());
                    heard[static_cast<std::size_t>(thread)].push_back(i);
                });
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    for (const std::vector<int> &calls : heard) {
        EXPECT_TRUE(calls.empty()) << "none before the event loop";
    }
    QCoreApplication::processEvents();
    for (const std::vector<int> &calls : heard) {
        ASSERT_EQ(calls.size(), static_cast<std::size_t>(kCalls));
        EXPECT_TRUE(std::ranges::is_sorted(calls));
    }
}

TEST(PostedCalls, ACallMayPostAnotherAndWaitForIt)
{
    EventGate gate;
    PostedCalls posted(gate);
    std::vector<int> heard;
    posted.Post([&] {
        heard.push_back(1);
        posted.Post([&] { heard.push_back(3); });
        QCoreApplication::processEvents(); // as a message box does
        heard.push_back(4);
    });
    posted.Post([&] { heard.push_back(2); });
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, (std::vector<int>{1, 2, 3, 4}));
}

TEST(PostedCalls, WhatIsStillWaitingAtTheEndIsDropped)
{
    EventGate gate;
    bool heard = false;
    {
        PostedCalls posted(gate);
        posted.Post([&] { heard = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(heard);
}

} // namespace
} // namespace velluto::test
