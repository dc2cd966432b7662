#include "platform/desktop/EndingSignals.h"

#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

TEST(EndingSignals, EachIsHeardByTheEventLoopUnlessItWasIgnored)
{
    int asked = 0;
    const auto formerHandler = ::signal(SIGHUP, SIG_IGN);
    {
        const EndingSignals listening([&asked] { ++asked; });
        int expected = 0;
        for (const int number : {SIGTERM, SIGINT, SIGTERM}) {
            ::raise(number);
            EXPECT_EQ(asked, expected);
            ++expected;
            EXPECT_TRUE(QTest::qWaitFor([&] { return asked == expected; })) << number;
        }
        ::raise(SIGHUP);
        ::signal(SIGHUP, formerHandler);
    }
    EXPECT_EQ(::signal(SIGTERM, SIG_DFL), SIG_DFL);

    const EndingSignals listening([&asked] { ++asked; });
    ::raise(SIGHUP);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 4; }));
}
