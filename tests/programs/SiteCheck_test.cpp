// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <filesystem>

#include "core/Drives.h"
#include "database/CoordinateRetriever.h"
#include "tests/programs/CheckedSite.h"

// What is wrong in a site is named with file and line, and nothing else is.
namespace Dorvane::Testing {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(CheckedSite, WithNothingWrongHasNoFinding) {
    SiteReport report;
    CheckSite(report);
    EXPECT_THAT(report.Findings, IsEmpty());
    EXPECT_FALSE(report.Left);
    EXPECT_GT(report.Looked, 10);
}

TEST_F(CheckedSite, ChangesNothing) {
    const auto contents = [&] {
        std::vector<std::string> all;
        for (const std::string& file : AllFiles("D:\\TARVEX\\"))
            all.push_back(file + FileContent("D:\\TARVEX\\" + file));
        return all;
    };
    PutFile(Init + "DAM.HIS", "short");
    const std::vector<std::string> before = contents();
    CheckedSite::Found();
    EXPECT_EQ(contents(), before);
}

TEST_F(CheckedSite, NamesLinesOfARegistryThatSayNothing) {
    const std::vector<std::string> lines = FileLines(Init + "DAM.PTH");
    PutLines(Init + "DAM.PTH", {lines[0], "", lines[1], lines[0], " *       DAM       NORTH     LEVEL"});
    EXPECT_THAT(Found(),
                ElementsAre("D:\\TARVEX\\INIT\\DAM.PTH, line 2: is blank",
                            "D:\\TARVEX\\INIT\\DAM.PTH, line 4: stands there twice",
                            "D:\\TARVEX\\INIT\\DAM.PTH, line 5: does not name a folder of all levels"));
}

TEST_F(CheckedSite, NamesWhatNoStructureKnows) {
    UpdatePthFileAdd("DAM", "SOUTH", "LEVEL", "SRV01");
    UpdatePthFileAdd("DAM", "NORTH", "GRAVITY", "SRV01");
    UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV09");
    std::vector<std::string> unknown;
    for (const std::string& line : Found())
        if (line.find("does not know") != std::string::npos)
            unknown.push_back(line);
    const std::string tail = ", which D:\\TARVEX\\INIT\\DAM.STR does not know";
    EXPECT_THAT(unknown, ElementsAre("D:\\TARVEX\\INIT\\DAM.PTH, line 3: names the location SOUTH" + tail,
                                     "D:\\TARVEX\\INIT\\DAM.PTH, line 4: names the data type GRAVITY" + tail,
                                     "D:\\TARVEX\\INIT\\DAM.PTH, line 5: names the epoch SRV09" + tail));
}

TEST_F(CheckedSite, HoldsRegistryHistoryAndDiskAgainstEachOther) {
    std::filesystem::remove_all(Drives::HostPath("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV02\\"));
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\ANGLE\\SRV02\\");
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\NOTES\\");  // nobody's business
    std::vector<std::string> history = FileLines(Init + "DAM.HIS");
    history[4] = "DAM\\NORTH\\LEVEL\\SRV07";
    PutLines(Init + "DAM.HIS", history);
    EXPECT_THAT(
        Found(),
        ElementsAre("D:\\TARVEX\\INIT\\DAM.PTH, line 1: is not told of in D:\\TARVEX\\INIT\\DAM.HIS",
                    "D:\\TARVEX\\INIT\\DAM.PTH, line 2: has no folder D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV02\\",
                    "D:\\TARVEX\\DAM\\NORTH\\ANGLE\\SRV02\\: is not registered in D:\\TARVEX\\INIT\\DAM.PTH",
                    "D:\\TARVEX\\INIT\\DAM.HIS, line 5: tells of DAM\\NORTH\\LEVEL\\SRV07, which "
                    "D:\\TARVEX\\INIT\\DAM.PTH does not register"));
}

TEST_F(CheckedSite, TellsAHistoryThatCannotBeRead) {
    PutFile(Init + "DAM.HIS", "             DATA FILESYSTEM HISTORY\r\n");
    EXPECT_EQ(Found()[0], "D:\\TARVEX\\INIT\\DAM.HIS: has fewer than five lines, so that reading it fails");
}

TEST_F(CheckedSite, TellsStructuresThatCannotBeUsed) {
    PutLines(Init + "CHOICES.SYS", {"DAM      1 The dam", "WEIR     1 The weir"});
    PutLines(Init + "CALIB.STR", {"CALIB    Calibrations", "CODE     DESCRIPTION", "EDM      Meters"});
    PutLines(Init + "DAM.STR",
             {"DAM      The dam", "CODE     DESCRIPTION", "NORTH    Upper wall", "", "LEVEL    Levelling",
              "ANGLE    Angles", "LEVEL    Again", "", "SRV01    Spring", "SRV02    Autumn"});
    EXPECT_THAT(
        Found(),
        ElementsAre("D:\\TARVEX\\INIT\\DAM.STR: in its data types LEVEL stands there twice",
                    "D:\\TARVEX\\INIT\\DAM.STR: in its data types LEVEL stands there twice",
                    "D:\\TARVEX\\INIT\\WEIR.STR: is not there, so nothing can be added to the system WEIR",
                    "D:\\TARVEX\\INIT\\CALIB.STR: The file ends before its last group"));
}

TEST_F(CheckedSite, HoldsAnIndexAgainstTheBooks) {
    PutFile(Epoch + "LOST.LEV", "not listed");
    PutFile(Epoch + "BOOK.RES", "no book");
    UpdateSrvIdx(Epoch, "SRV01.IDX", "GONE", "LEV", "GONE", "11/20/2026");
    std::filesystem::remove(Drives::HostPath("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV02\\SRV02.IDX"));
    EXPECT_THAT(Found(), ElementsAre(Epoch + "SRV01.IDX, line 4: lists GONE.LEV, which is not in the folder",
                                     Epoch + "LOST.LEV: is not listed in " + Epoch + "SRV01.IDX",
                                     "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV02\\: has no index of its books"));
}

TEST_F(CheckedSite, ReadsEveryFileOfADatabase) {
    PutFile(Database + "3DIM.IDX", " 16      1   0\r\nP1           7\r\n");
    PutFile(Database + "NORTH.REF", "none");
    std::filesystem::remove(Drives::HostPath(Init + "BIAS.STR"));
    PutFile(Database + "MONUMENT.LST", "P7\r\n");
    EXPECT_THAT(Found(),
                ElementsAre("D:\\TARVEX\\INIT\\BIAS.STR: has no bias values for NORTH",
                            Database + "MONUMENT.LST, line 1: lists P7, of which the database holds no value",
                            Database + "3DIM.IDX: is damaged: point P1 lies past the end of the data file",
                            Database + "NORTH.REF: is damaged: its header line is not of 31 characters"));
    std::filesystem::remove(Drives::HostPath(Database + "IDEALS.DAT"));
    EXPECT_EQ(Found()[1], Database + ": lacks files of the coordinate database");
    EXPECT_EQ(Found().size(), 5U) << "the others are read all the same";
}

TEST_F(CheckedSite, GoesOnBehindWhatCannotBeRead) {
    std::filesystem::permissions(Drives::HostPath(Init + "DAM.PTH"), std::filesystem::perms::none);
    PutLines(Init + "CALIB.PTH", {""});
    AsNobody([&] {
        const std::vector<std::string> found = Found();
        ASSERT_EQ(found.size(), 3U);
        EXPECT_EQ(found[0].rfind(Init + "DAM.PTH: cannot be read: ", 0), 0U) << found[0];
        EXPECT_EQ(found[1], Init + "CALIB.PTH, line 1: is blank");
        EXPECT_EQ(found[2], "D:\\TARVEX\\CALIB\\EDM\\CAL01\\: is not registered in " + Init + "CALIB.PTH");
    });
}

TEST_F(CheckedSite, CanBeLeftOff) {
    SiteReport report;
    long told = 0;
    report.Looking = [&](const std::string&) { return ++told < 3; };
    CheckSite(report);
    EXPECT_TRUE(report.Left);
    EXPECT_EQ(told, 3);
}

}  // namespace Dorvane::Testing
