// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Workstations.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <exception>
#include <vector>

namespace Dorvane::Testing {

namespace {

// The child's end: its failures are its exit code, and nothing of this process is cleared up there.
[[noreturn]] void RunChild(const std::function<void()>& body) {
    int result = 0;
    try {
        body();
        result = testing::Test::HasFailure() ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "failure in the child: %s\n", error.what());
        result = 1;
    }
    std::fflush(nullptr);
    _exit(result);
}

pid_t Begin(const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = fork();
    EXPECT_GE(child, 0);
    if (child == 0)
        RunChild(body);
    return child;
}

int StatusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
}

}  // namespace

void Together(int count, const std::function<void(int)>& body) {
    std::vector<pid_t> children;
    for (int number = 0; number < count; ++number)
        children.push_back(Begin([&] { body(number); }));
    for (const pid_t child : children)
        EXPECT_EQ(StatusOf(child), 0) << "a workstation failed, see above";
}

void CutOff(const std::function<void(const std::function<void()>& die)>& body) {
    const int status = StatusOf(Begin([&] { body([] { kill(getpid(), SIGKILL); }); }));
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the process came to its end";
}

OtherWorkstation::OtherWorkstation(const std::function<void(const std::function<void()>& wait)>& body) {
    std::array<int, 2> door{};
    std::array<int, 2> bell{};
    EXPECT_EQ(pipe(door.data()), 0);
    EXPECT_EQ(pipe(bell.data()), 0);
    Child = Begin([&] {
        close(door[1]);
        body([&] {
            char c = 0;
            EXPECT_EQ(write(bell[1], "!", 1), 1);
            EXPECT_GE(read(door[0], &c, 1), 0);
        });
    });
    close(door[0]);
    close(bell[1]);
    Door = door[1];
    char c = 0;
    EXPECT_EQ(read(bell[0], &c, 1), 1) << "the other workstation did not come to its wait";
    close(bell[0]);
}

OtherWorkstation::~OtherWorkstation() {
    LetGo();
}

void OtherWorkstation::LetGo() {
    if (Door < 0)
        return;
    close(Door);
    Door = -1;
    EXPECT_EQ(StatusOf(Child), 0) << "the other workstation failed, see above";
}

}  // namespace Dorvane::Testing
