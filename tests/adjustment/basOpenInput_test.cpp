// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/basOpenInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Drives.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::PutFile;
using Testing::PutLines;

const std::vector<std::string> Skeleton = {"[Stations]", "[Points]",   "[Tracker]", "[Total]",
                                           "[Angle]",    "[Distance]", "[Height]",  "[Gyro]"};

class OpenInput : public testing::Test {
  protected:
    VersionNotes Read(const std::vector<std::string>& lines) {
        PutLines("D:\\ADJ\\NET.VER", lines);
        VersionNotes notes;
        notes.Gyro.Add("left over");
        ReadVersionFile("D:\\ADJ\\", "NET.VER", notes);
        return notes;
    }

    void ExpectNoNote() {
        Desktop.ExpectMessage("Version File Not Found",
                              "Version file does not exists.  Can not display version differences.");
    }

    const std::string Net = "D:\\ADJ\\NET.INP";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    OpenInputState State;
};

TEST_F(OpenInput, ReadsTheEightSectionsOfANote) {
    VersionNotes expected;
    expected.Stations = {"ST1", " ST2  with blanks "};
    expected.Points = {"P1"};
    expected.Tracker = {"ST1 P1", ""};
    expected.Total = {"ST1 P2"};
    expected.Angle = {"[angle]"};
    expected.Distance = {"D"};
    expected.Height = {"H"};
    expected.Gyro = {"G", "[Points]"};
    EXPECT_EQ(Read({"[Stations]", "ST1", " ST2  with blanks ", "[Points]", "P1", "[Tracker]", "ST1 P1", "",
                    "[Total]", "ST1 P2", "[Angle]", "[angle]", "[Distance]", "D", "[Height]", "H", "[Gyro]",
                    "G", "[Points]"}),
              expected);
}

TEST_F(OpenInput, ReadsTheEmptySkeletonAsEightEmptyLists) {
    EXPECT_EQ(Read(Skeleton), VersionNotes());
}

TEST_F(OpenInput, DoesNotTestTheFirstLine) {
    EXPECT_EQ(Read({"[Points]", "A", "[Points]", "B", "[Tracker]"}).Stations, (List1<std::string>{"A"}));
}

TEST_F(OpenInput, LeavesAllToTheSectionBeforeAMissingMarker) {
    VersionNotes expected;
    expected.Stations = {"A"};
    expected.Points = {"B", "[Total]", "C", "[Angle]", "[Gyro]", "D"};
    EXPECT_EQ(Read({"[Stations]", "A", "[Points]", "B", "[Total]", "C", "[Angle]", "[Gyro]", "D"}), expected);
}

TEST_F(OpenInput, ComparesMarkersExactly) {
    EXPECT_EQ(Read({"[Stations]", "[points]", " [Points]", "[Points] "}).Stations,
              (List1<std::string>{"[points]", " [Points]", "[Points] "}));
}

TEST_F(OpenInput, EndsACutNoteInTheListItWasReading) {
    for (std::size_t count = 0; count <= Skeleton.size(); ++count) {
        const std::vector<std::string> lines(Skeleton.begin(),
                                             Skeleton.begin() + static_cast<std::ptrdiff_t>(count));
        EXPECT_EQ(Read(lines), VersionNotes());
    }
    EXPECT_EQ(Read({"[Stations]", "A", "[Points]", "B"}).Points, (List1<std::string>{"B"}));
}

TEST_F(OpenInput, ReportsMoreEntriesThanAListHolds) {
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 6\r\n\r\nDescription : Overflow\r\n\r\nSource : Dorvane-basOpenInput-ReadVersionFile");
    EXPECT_EQ(Read(std::vector<std::string>(32769, "x")).Stations.Count(), 32767);
}

TEST_F(OpenInput, ReportsANoteThatMayNotBeRead) {
    PutLines("D:\\ADJ\\NET.VER", Skeleton);
    std::filesystem::permissions(Drives::HostPath("D:\\ADJ\\NET.VER"), std::filesystem::perms::none);
    Testing::AsNobody([&] {
        Desktop.ExpectMessageTitled("Program Error");
        VersionNotes notes;
        ReadVersionFile("D:\\ADJ\\", "NET.VER", notes);
        EXPECT_EQ(notes, VersionNotes());
        EXPECT_EQ(Desktop.Shown.size(), 1U);
    });
}

TEST_F(OpenInput, NamesTheNoteOfTheMasterAndOfAVersion) {
    EXPECT_EQ(NoteName("NET.INP", "Master"), "NET.VER");
    EXPECT_EQ(NoteName("NET.A.INP", "Master"), "NET.VER");
    EXPECT_EQ(NoteName("NET.INP", "Version 12"), "NET_v12.VER");
    EXPECT_EQ(NoteName("NET.INP", "Version 7"), "NET_v07.VER");
    EXPECT_EQ(NoteName("NET.INP", "Version"), "");
    EXPECT_EQ(NoteName("NET.INP", "Version 07 old"), "");
    EXPECT_EQ(NoteName("NET.INP", ""), "");
}

TEST_F(OpenInput, OpensOnTheVersionOfTheCallingScreen) {
    PutFile(Net, "");
    PutFile("D:\\ADJ\\NET_v02.INP", "");
    PutLines("D:\\ADJ\\NET_v02.VER", {"[Stations]", "ST9"});
    OpenVersions(State, Net, "Version 02");
    EXPECT_EQ(State.lblPath, "D:\\ADJ\\");
    EXPECT_EQ(State.lblMaster, "NET.INP");
    EXPECT_THAT((std::vector<std::string>{State.cmbVersion.Entries.begin(), State.cmbVersion.Entries.end()}),
                ElementsAre("Master", "Version 02"));
    EXPECT_EQ(State.cmbVersion.Text(), "Version 02");
    EXPECT_EQ(State.Lists.Stations, (List1<std::string>{"ST9"}));
}

TEST_F(OpenInput, SelectsNothingWhereTheVersionIsNotListed) {
    PutFile(Net, "");
    PutLines("D:\\ADJ\\NET.VER", {"[Stations]", "ST9"});
    OpenVersions(State, Net, "Version 05");
    EXPECT_EQ(State.cmbVersion.Selected, 0);
    EXPECT_EQ(State.Lists, VersionNotes());
    ClickBrowsedVersion(State, 1);
    EXPECT_EQ(State.Lists.Stations, (List1<std::string>{"ST9"}));
}

TEST_F(OpenInput, TellsOfAMissingNoteAndShowsTheMastersAgain) {
    PutFile(Net, "");
    PutFile("D:\\ADJ\\NET_v02.INP", "");
    PutLines("D:\\ADJ\\NET.VER", {"[Stations]", "ST1"});
    OpenVersions(State, Net, "Master");
    EXPECT_EQ(State.Lists.Stations, (List1<std::string>{"ST1"}));
    ExpectNoNote();
    ClickBrowsedVersion(State, 2);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    EXPECT_EQ(State.Lists, VersionNotes());
    ClickBrowsedVersion(State, 1);
    EXPECT_EQ(State.Lists.Stations, (List1<std::string>{"ST1"}));
}

TEST_F(OpenInput, TellsThatATextWhichIsNoVersionHasNoNote) {
    PutFile(Net, "");
    OpenVersions(State, Net, "");
    State.cmbVersion.Entries.Add("Version 01 old");
    ExpectNoNote();
    ClickBrowsedVersion(State, 2);
}

TEST_F(OpenInput, ReportsAPathWithoutFolder) {
    Desktop.ExpectMessage("Program Error",
                          "Error : 5\r\n\r\nDescription : Invalid procedure call or argument\r\n\r\n"
                          "Source : Dorvane-frmOpenInput-lblDirectory");
    OpenVersions(State, "NET.INP", "Master");
}

}  // namespace
}  // namespace Dorvane
