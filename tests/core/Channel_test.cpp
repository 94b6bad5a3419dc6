// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>

#include "core/Companion.h"

namespace Dorvane {

namespace {

volatile std::sig_atomic_t Signals = 0;

struct Channels : testing::Test {
    Channels() { EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, Ends), 0); }
    ~Channels() override {
        close(Ends[0]);
        if (Ends[1] >= 0)
            close(Ends[1]);
    }
    void CloseTheOtherSide() {
        close(Ends[1]);
        Ends[1] = -1;
    }

    int Ends[2] = {-1, -1};
    std::string Text;
};

}  // namespace

TEST_F(Channels, TellThatNobodyIsLeftToReadWithoutASignal) {
    Signals = 0;
    auto* const former = std::signal(SIGPIPE, [](int) { Signals = Signals + 1; });
    EXPECT_TRUE(Host::Send(Ends[0], "read by somebody"));
    CloseTheOtherSide();
    EXPECT_FALSE(Host::Send(Ends[0], "read by nobody"));
    EXPECT_EQ(Signals, 0);
    std::signal(SIGPIPE, former);
}

TEST_F(Channels, TellTextFromNothingAndFromTheEnd) {
    EXPECT_EQ(Host::Receive(Ends[0], 0, Text), Host::Arrival::Nothing);
    EXPECT_TRUE(Host::Send(Ends[1], "one "));
    EXPECT_EQ(Host::Receive(Ends[0], 1000, Text), Host::Arrival::Text);
    EXPECT_TRUE(Host::Send(Ends[1], "two"));
    CloseTheOtherSide();
    EXPECT_EQ(Host::Receive(Ends[0], 1000, Text), Host::Arrival::Text);
    EXPECT_EQ(Text, "one two");
    EXPECT_EQ(Host::Receive(Ends[0], 1000, Text), Host::Arrival::End);
}

}  // namespace Dorvane
