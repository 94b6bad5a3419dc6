// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

constexpr int Nobody = 65534;

// Runs a body in a child process; what fails there fails the test here.
void InChild(const std::function<bool()>& prepare, const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        int result = 2;
        if (prepare()) {
            try {
                body();
                result = testing::Test::HasFailure() ? 1 : 0;
            } catch (const RunTimeError& error) {
                std::fprintf(stderr, "error %d in the child: %s\n", error.Number, error.what());
                result = 1;
            } catch (const std::exception& error) {
                // What left the child by here would run the tests that follow a second time.
                std::fprintf(stderr, "failure in the child: %s\n", error.what());
                result = 1;
            }
        }
        std::fflush(nullptr);
        _exit(result);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "the child was ended by signal " << WTERMSIG(status);
    ASSERT_NE(WEXITSTATUS(status), 2) << "the child could not be prepared";
    ASSERT_EQ(WEXITSTATUS(status), 0) << "the body failed, see above";
}

bool Prepared(bool done, const char* what) {
    if (!done)
        std::fprintf(stderr, "%s: %s\n", what, std::strerror(errno));
    return done;
}

}  // namespace

void AsNobody(const std::function<void()>& body) {
    InChild(
        [] { return Prepared(setegid(Nobody) == 0 && seteuid(Nobody) == 0, "becoming nobody needs root"); },
        body);
}

void OnSmallDisk(const std::string& folder, int kilobytes, const std::function<void()>& body) {
    const std::string host = Drives::HostPath(folder);
    const auto prepare = [&] {
        if (!Prepared(unshare(CLONE_NEWNS) == 0, "mounts of its own need root"))
            return false;
        // Where the root is no mount point of its own, as in a change of root, this is refused, and the disk
        // is taken away again below.
        const bool isPrivate = mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        if (!Prepared(isPrivate || errno == EINVAL, "private mounts"))
            return false;
        const std::string size = "size=" + std::to_string(kilobytes) + "k,mode=0777";
        return Prepared(mount("none", host.c_str(), "tmpfs", 0, size.c_str()) == 0, "small disk");
    };
    InChild(prepare, [&] {
        body();
        EXPECT_EQ(umount2(host.c_str(), MNT_DETACH), 0);
    });
}

}  // namespace Dorvane::Testing
