// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/OutsideProgram.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

namespace {

bool Comes(const std::string& path) {
    for (int look = 0; look < 6000; ++look, usleep(10000))
        if (FileExists(path))
            return true;
    return false;
}

}  // namespace

TEST(OutsidePrograms, AreAskedToTidyUpTogetherWithAllThatTheyHaveStarted) {
    const TestSite site;
    const std::string child = "(trap 'echo > TIDY; exit' TERM; echo > READY; while :; do sleep 0.01; done)";
    Host::OutsideProgram program("/bin/sh", {"-c", "trap 'wait; exit' TERM; " + child + " & wait"},
                                 Drives::HostPath("D:\\"));
    ASSERT_TRUE(Comes("D:\\READY"));
    EXPECT_FALSE(program.HasEnded());
    program.End();
    EXPECT_TRUE(program.HasEnded());
    EXPECT_TRUE(FileExists("D:\\TIDY"));
}

}  // namespace Dorvane
