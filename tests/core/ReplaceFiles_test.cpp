// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReplaceFiles.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {
namespace {

constexpr uid_t Nobody = 65534;

// A folder in which a user without rights may replace his own files and make new ones, while a file of root's
// can be written but not replaced: what is written beside it fails at the last step.
class ReplacingFiles : public testing::Test {
  protected:
    ReplacingFiles() {
        PutFile("D:\\SHARED\\A.TXT", "old a");
        PutFile("D:\\SHARED\\ROOT.TXT", "old root");
        PutFile("D:\\SHARED\\B.TXT", "old b");
        for (const char* name : {"A.TXT", "ROOT.TXT", "B.TXT"})
            std::filesystem::permissions(Host(name), std::filesystem::perms(0666));
        for (const char* name : {"A.TXT", "B.TXT"})
            EXPECT_EQ(chown(Host(name).c_str(), Nobody, Nobody), 0) << "this test needs root";
        std::filesystem::permissions(Host(""), std::filesystem::perms(01777));
    }

    static std::string Host(const std::string& name) { return Drives::HostPath("D:\\SHARED\\" + name); }

    TestSite Site;
};

TEST_F(ReplacingFiles, GivesEachItsNewContent) {
    ReplaceInOrder({{"D:\\SHARED\\A.TXT", "new a"}, {"D:\\SHARED\\NEW.TXT", "new"}});
    EXPECT_EQ(FileContent("D:\\SHARED\\A.TXT"), "new a");
    EXPECT_EQ(FileContent("D:\\SHARED\\NEW.TXT"), "new");
}

TEST_F(ReplacingFiles, PutsAllBackWhenOneCannotTakeItsPlace) {
    AsNobody([] {
        try {
            ReplaceInOrder({{"D:\\SHARED\\A.TXT", "new a"},
                            {"D:\\SHARED\\NEW.TXT", "new"},
                            {"D:\\SHARED\\ROOT.TXT", "new root"},
                            {"D:\\SHARED\\B.TXT", "new b"}});
            ADD_FAILURE() << "nothing was raised";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, PathFileAccess);
            EXPECT_EQ(error.Description.find("put back"), std::string::npos) << error.Description;
        }
    });
    EXPECT_EQ(AllFiles("D:\\SHARED\\"), (std::vector<std::string>{"A.TXT", "B.TXT", "ROOT.TXT"}));
    EXPECT_EQ(FileContent("D:\\SHARED\\A.TXT"), "old a");
    EXPECT_EQ(FileContent("D:\\SHARED\\ROOT.TXT"), "old root");
    EXPECT_EQ(FileContent("D:\\SHARED\\B.TXT"), "old b");
}

TEST_F(ReplacingFiles, GivesTheTimeOfAnotherFileWhereThatIsAsked) {
    SetTimeStamp("D:\\SHARED\\B.TXT", DateTime{2020, 2, 3, 4, 5, 6});
    ReplaceInOrder({{"D:\\SHARED\\A.TXT", "new a", "D:\\SHARED\\B.TXT"}});
    Drives::Entry entry;
    ASSERT_TRUE(Drives::Find("D:\\SHARED\\A.TXT", entry));
    EXPECT_EQ(entry.Modified.Year, 2020);
    EXPECT_EQ(entry.Modified.Second, 6);
}

}  // namespace
}  // namespace Dorvane::Testing
