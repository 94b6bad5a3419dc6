// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <fstream>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

// Names that somebody else made on a shared drive lead nowhere but where they stand, and hang nothing.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;

struct HostileNames : testing::Test {
    HostileNames() { MakeFolders(Folder); }

    static int ErrorOf(const std::function<void()>& statement) {
        try {
            statement();
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }
    void PutOnHost(const std::string& name) const {
        std::ofstream(Drives::HostPath(Folder) + name) << "planted";
    }

    TestSite Site;
    static constexpr const char* Folder = "D:\\BOOKS\\";
};

}  // namespace

TEST_F(HostileNames, NeverLeaveTheDriveByTheFolderAbove) {
    PutFile("D:\\A.TXT", "a");
    EXPECT_EQ(Drives::HostPath("D:\\..\\..\\A.TXT"), Drives::HostPath("D:\\A.TXT"));
    EXPECT_EQ(Drives::HostPath("D:\\BOOKS\\..\\A.TXT"), Drives::HostPath("D:\\A.TXT"));
    EXPECT_EQ(Drives::HostPath("D:\\BOOKS\\.\\..\\..\\..\\GONE\\..\\A.TXT"), Drives::HostPath("D:\\A.TXT"));
    EXPECT_EQ(Drives::HostPath("D:\\BOOKS\\..\\"), Drives::HostPath("D:\\"));
}

TEST_F(HostileNames, WithABackslashOrALineEndAreListedAndLeadNowhere) {
    PutFile("D:\\SECRET.GSI", "secret");
    PutOnHost("..\\SECRET.GSI");
    PutOnHost("A\nB.GSI");
    std::vector<std::string> names;
    for (const Drives::Entry& entry : Drives::List(Folder))
        names.push_back(entry.Name);
    EXPECT_THAT(names, ElementsAre("..?SECRET.GSI", "A?B.GSI"));
    for (const std::string& name : names) {
        EXPECT_EQ(ErrorOf([&] { Drives::ReadFile(Folder + name); }), BadFileName);
        EXPECT_EQ(ErrorOf([&] { Drives::RenameFile(Folder + name, "D:\\BOOKS\\X"); }), BadFileName);
    }
    EXPECT_EQ(ErrorOf([] { Drives::WriteFile("D:\\BOOKS\\A\nB", ""); }), BadFileName);
    EXPECT_EQ(FileContent("D:\\SECRET.GSI"), "secret");
}

TEST_F(HostileNames, OfDevicesAreRefused) {
    for (const char* name : {"NUL", "con", "COM1.GSI", "lpt9.x.y", "AUX .TXT", "PRN"})
        EXPECT_EQ(ErrorOf([&] { Drives::WriteFile(std::string(Folder) + name, ""); }), BadFileName) << name;
    for (const char* name : {"NULL", "COM", "COM10", "LPT0", "CONE.GSI", "XNUL"})
        EXPECT_EQ(ErrorOf([&] { Drives::WriteFile(std::string(Folder) + name, ""); }), 0) << name;
}

TEST_F(HostileNames, OfPipesHangNobody) {
    ASSERT_EQ(mkfifo((Drives::HostPath(Folder) + "PIPE.GSI").c_str(), 0666), 0);
    EXPECT_EQ(ErrorOf([] { Drives::ReadFile("D:\\BOOKS\\PIPE.GSI"); }), PathFileAccess);
    EXPECT_EQ(ErrorOf([] { Drives::AppendFile("D:\\BOOKS\\PIPE.GSI", "x"); }), PathFileAccess);
    EXPECT_EQ(ErrorOf([] { Drives::WriteFile("D:\\BOOKS\\PIPE.GSI", "x"); }), PathFileAccess);
    EXPECT_EQ(ErrorOf([] { Drives::CopyFile("D:\\BOOKS\\PIPE.GSI", "D:\\BOOKS\\COPY.GSI"); }),
              PathFileAccess);
}

TEST_F(HostileNames, AreHeldAgainstPatternsOfManyStarsAtOnce) {
    const std::string name(200, 'A');
    EXPECT_FALSE(Drives::Matches(name, "*A*A*A*A*A*A*A*A*A*A*A*A*B"));
    EXPECT_TRUE(Drives::Matches(name + "B", "*A*A*A*A*A*A*A*A*A*A*A*A*B"));
    EXPECT_TRUE(Drives::Matches("A.B.C", "*.C"));
    EXPECT_TRUE(Drives::Matches("AB", "*?B"));
    EXPECT_TRUE(Drives::Matches("NET_V01.INP", "NET_V??.INP"));
    EXPECT_TRUE(Drives::Matches("NET_V1.INP", "NET_V??.INP"));
    EXPECT_FALSE(Drives::Matches("NET_V012.INP", "NET_V??.INP"));
    EXPECT_TRUE(Drives::Matches("", "*"));
    EXPECT_FALSE(Drives::Matches("", "A"));
}

}  // namespace Dorvane::Testing
