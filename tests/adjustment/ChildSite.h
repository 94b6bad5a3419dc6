// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <string>

#include "adjustment/ChildPackage.h"
#include "tests/adjustment/PackageSite.h"
#include "tests/support/ScriptedDesktop.h"

namespace Dorvane::Testing {

/// A site with the real KRENNRUN.EXE in its program folder, and a gate at which its packages wait and tell
/// their process. Whatever a test does, it must leave neither a process nor anything open.
class ChildSite : public testing::Test {
  protected:
    ChildSite() {
        std::filesystem::create_symlink(DORVANE_FOLDER "/Programs", Programs());
        EXPECT_EQ(mkfifo(Gate().c_str(), 0600), 0);
        Site.Set("PACKAGE_GATE", Gate());
        // A sanitizer in the child leaves the signals to the system, which tells of them, and starts no
        // process of its own.
        Site.Set("ASAN_OPTIONS", "handle_segv=0:handle_abort=0:detect_leaks=0");
        Site.Install(PLAIN_PACKAGE);
        OpenBefore = OpenFiles();
    }

    void TearDown() override {
        if (GateWatch >= 0)
            close(GateWatch);
        int status = 0;
        EXPECT_EQ(waitpid(-1, &status, WNOHANG), -1) << "a process was left behind";
        EXPECT_EQ(errno, ECHILD);
        EXPECT_EQ(OpenFiles(), OpenBefore);
    }

    std::string Programs() const { return Site.HostFolder() + "p:/DORVANE/Programs"; }
    std::string Gate() const { return Site.HostFolder() + "gate"; }

    static long OpenFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    }

    /// Lets a package go on that waits at the gate. False when none waits there yet.
    bool OpenTheGate() const {
        const int gate = open(Gate().c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (gate < 0)
            return false;
        close(gate);
        return true;
    }

    /// The process of a package that hangs; 0 while none does.
    pid_t HangingProcess() {
        if (GateWatch < 0)
            GateWatch = open(Gate().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        pid_t process = 0;
        return read(GateWatch, &process, sizeof process) == sizeof process ? process : 0;
    }

    /// Waits until a package hangs.
    pid_t AwaitHangingProcess() const {
        const int gate = open(Gate().c_str(), O_RDONLY | O_CLOEXEC);
        pid_t process = 0;
        EXPECT_EQ(read(gate, &process, sizeof process), static_cast<ssize_t>(sizeof process));
        close(gate);
        return process;
    }

    PackageSite Site;
    ScriptedDesktop Desktop;

  private:
    long OpenBefore = 0;
    int GateWatch = -1;
};

}  // namespace Dorvane::Testing
