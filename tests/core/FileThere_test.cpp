// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileThere.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {
namespace {

struct FileThere : testing::Test {
    TestSite Site;
};

TEST_F(FileThere, KnowsFilesFromFoldersAndFromWhatIsNotThere) {
    PutFile("D:\\A\\B.TXT", "text");
    EXPECT_TRUE(Drives::IsFile("D:\\A\\b.txt"));
    EXPECT_FALSE(Drives::IsFile("D:\\A"));
    EXPECT_FALSE(Drives::IsFile("D:\\A\\C.TXT"));
    EXPECT_FALSE(Drives::IsFile("D:\\C\\B.TXT"));
    EXPECT_EQ(Drives::ReadFileIfThere("D:\\A\\B.TXT"), "text");
    EXPECT_EQ(Drives::ReadFileIfThere("D:\\A\\C.TXT"), "");
}

// Who takes it for absent would make a new file in its place.
TEST_F(FileThere, TakesNothingForAbsentThatCannotBeLookedAt) {
    PutFile("D:\\A\\B.TXT", "text");
    std::filesystem::permissions(Drives::HostPath("D:\\A"), std::filesystem::perms(0700));
    AsNobody([] {
        for (const auto& ask : {std::function<void()>([] { Drives::IsFile("D:\\A\\B.TXT"); }),
                                std::function<void()>([] { Drives::ReadFileIfThere("D:\\A\\B.TXT"); })}) {
            try {
                ask();
                ADD_FAILURE() << "nothing was raised";
            } catch (const RunTimeError& error) {
                EXPECT_EQ(error.Number, PermissionDenied);
            }
        }
    });
}

}  // namespace
}  // namespace Dorvane::Testing
