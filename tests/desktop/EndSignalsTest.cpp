// The system's wish that the program end.
#ifndef _WIN32 // which sends no signals
#include "desktop/EndSignals.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace velluto::test {

namespace {

class EndSignalsTest : public testing::TestWithParam<int> {};

TEST_P(EndSignalsTest, EndsTheLoopAndIsRemembered)
{
    const EndSignals signals([] { return true; });
    EXPECT_FALSE(signals.Told());
    QTimer::singleShot(0, [] { std::raise(GetParam()); });
    QTimer limit;
    limit.callOnTimeout([] { QCoreApplication::exit(1); });
    limit.start(10000);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(signals.Told());
}

INSTANTIATE_TEST_SUITE_P(Each, EndSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

} // namespace

} // namespace velluto::test
#endif
