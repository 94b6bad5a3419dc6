// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "core/Drives.h"
#include "tests/programs/InputSample.h"
#include "tests/support/TestSite.h"

// The finished tools as processes of their own.
namespace Dorvane::Testing {

namespace {

struct EditorPrograms : testing::TestWithParam<const char*> {
    EditorPrograms() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", "Init_path=D:\\TARVEX\\INIT\\"});
        PutFile("D:\\TARVEX\\NET.INP", SampleInput);
    }

    /// Starts the tool on the site's drives; its standard output goes to `output`.
    pid_t Start(const char* argument, int output) const {
        const std::string path = std::string(DORVANE_FOLDER "/Programs/") + GetParam() + ".exe";
        const pid_t child = fork();
        if (child == 0) {
            setenv("DORVANE_DRIVES", Site.HostFolder().c_str(), 1);
            setenv("XDG_CONFIG_HOME", Site.HostFolder().c_str(), 1);
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
            if (output >= 0)
                dup2(output, STDOUT_FILENO);
            execl(path.c_str(), path.c_str(), argument, static_cast<char*>(nullptr));
            _exit(127);
        }
        return child;
    }

    /// What the tool is to be started with: the file that the editors of files work on.
    static std::string Argument() {
        const std::string tool = GetParam();
        if (tool == "editinp")
            return Drives::HostPath("D:\\TARVEX\\NET.INP");
        if (tool == "edittext")
            return Drives::HostPath("C:\\WINDOWS\\dv_tarvex.ini");
        return tool == "editpar" ? Drives::HostPath("D:\\TARVEX\\NET.PAR") : "";
    }

    /// True when the process has loaded a library whose name holds `part`.
    static bool HasLoaded(pid_t process, const std::string& part) {
        std::ifstream maps("/proc/" + std::to_string(process) + "/maps");
        for (std::string line; std::getline(maps, line);)
            if (line.find(part) != std::string::npos)
                return true;
        return false;
    }

    TestSite Site;
};

}  // namespace

TEST_P(EditorPrograms, TellsItsVersion) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = Start("--version", ends[1]);
    close(ends[1]);
    std::string text;
    char buffer[256];
    for (ssize_t count = read(ends[0], buffer, sizeof buffer); count > 0;
         count = read(ends[0], buffer, sizeof buffer))
        text.append(buffer, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    EXPECT_EQ(text.find(std::string(GetParam()) + " 1."), 0U) << text;
}

TEST_P(EditorPrograms, ComesUpAndRunsUntilItIsEnded) {
    const std::string argument = Argument();
    const pid_t child = Start(argument.empty() ? nullptr : argument.c_str(), -1);
    int status = 0;
    // The platform's own library is there once the windows can come.
    while (!HasLoaded(child, "libqoffscreen") && waitpid(child, &status, WNOHANG) == 0)
        sched_yield();
    ASSERT_EQ(waitpid(child, &status, WNOHANG), 0) << "ended by itself: " << status;
    kill(child, SIGTERM);
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
}

INSTANTIATE_TEST_SUITE_P(Tools, EditorPrograms,
                         testing::Values("EditTarvexINI", "EditDrives", "EditChoice", "EditCalib", "EditBias",
                                         "utilities", "editinp", "editpar", "edittext"));

}  // namespace Dorvane::Testing
