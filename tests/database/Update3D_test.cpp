// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Update3D.h"

#include <gtest/gtest.h>

#include "core/basGeneral.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

const char* const UpdateFile = "C:\\TARVEX\\TEMP\\DAM.DBS";
const char* const Header = "11-20-26  SRV12     NET1";

std::string PointLine(const std::string& name, const std::string& x = "100.00000") {
    return name + " 0.0 0.0 0.0 " + x + " 200.00000 50.00000 12.3 0.00123 0.00045 0.00067";
}

class Updating : public DatabaseSite {
  protected:
    Updating() {
        Form.lblDirectory = "DATABASE\\DAM\\NORTH\\";
        Form.lblUpDateFile = UpdateFile;
        Form.opt3dim = true;
    }

    void ExpectReport(int error, const std::string& procedure) const {
        EXPECT_NE(Desk.Shown.back().Text.find("Error : " + std::to_string(error) + "\r\n"), std::string::npos)
            << Desk.Shown.back().Text;
        EXPECT_NE(Desk.Shown.back().Text.find("-" + procedure), std::string::npos) << Desk.Shown.back().Text;
    }

    UpdateForm Form;
};

TEST_F(Updating, HandsOverPointsAndReferenceByteForByte) {
    PutLines(UpdateFile, {Header, PointLine("p1"), PointLine("P2", "-1.5"), PointLine("P1", "101.00000")});
    EXPECT_TRUE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(
        FileContent(North + "3DIM.DAT"),
        " 93      4                                                                                0\r\n"
        "P1       112026   100.00000   200.00000   50.00000  12.3 .00123 .00045 .00067 .00000 .00000\r\n"
        "P2       112026    -1.50000   200.00000   50.00000  12.3 .00123 .00045 .00067 .00000 .00000\r\n"
        "P1       112026   101.00000   200.00000   50.00000  12.3 .00123 .00045 .00067 .00000 .00000\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.IDX"), " 16      2   0\r\nP1           4\r\nP2           3\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\nP2\r\n");
    EXPECT_EQ(FileContent(North + "NORTH.REF"),
              " 32      2                    0\r\n"
              "11-20-26 SRV12      NET1      \r\n");
}

TEST_F(Updating, WithoutPointsDoesNothing) {
    PutLines(UpdateFile, {Header});
    const auto before = Picture(North);
    EXPECT_TRUE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, StopsAtARefusedPointAndKeepsThoseBeforeIt) {
    PutLines(UpdateFile, {Header, PointLine("P1"), PointLine("LONGNAME9"), PointLine("P3")});
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    ExpectReport(1103, "basDatabase-Update3DPoints");
    EXPECT_NE(Desk.Shown.back().Text.find("Source : CoordinateRetriever-"), std::string::npos);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\n");
    EXPECT_EQ(FileContent(North + "NORTH.REF").size(), 33u);
}

TEST_F(Updating, RefusesADateThatIsNone) {
    PutLines(UpdateFile, {"20-11-26 P T", PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    ExpectReport(1103, "basDatabase-Update3DPoints");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, TellsABadHeaderAndChangesNothing) {
    PutLines(UpdateFile, {"11-20-26 SRV12", PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Header Error");
    EXPECT_TRUE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, ReportsADamagedDatabaseOnce) {
    PutLines(UpdateFile, {Header, PointLine("P1"), PointLine("P2")});
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           9\r\n");
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    ExpectReport(1101, "basDatabase-Update3DPoints");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, KeepsThePointsWhenTheReferenceFileIsMissing) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    Drives::DeleteFile(North + "NORTH.REF");
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    ExpectReport(53, "basDatabase-Update3DPoints");
    EXPECT_EQ(XOf("P1"), 100);
}

TEST_F(Updating, LeavesAFullDiskAsItWasWhenTheOperatorGivesUp) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        const auto before = Picture(North);
        Desk.ExpectMessageTitled("Program Error", Answer::No);
        EXPECT_FALSE(Update3DPoints(North, UpdateFile));
        ExpectReport(61, "basDatabase-Update3DPoints");
        EXPECT_EQ(Picture(North), before);
    });
}

TEST_F(Updating, RetriesOnAFullDiskWhereTheOperatorMadeRoom) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        RoomMakingDesktop helpful(North);
        helpful.ExpectMessageTitled("Program Error", Answer::Yes);
        EXPECT_TRUE(Update3DPoints(North, UpdateFile));
        EXPECT_EQ(XOf("P1"), 100);
        EXPECT_EQ(FileContent(North + "NORTH.REF").size(), 33u + 32u);
    });
}

TEST_F(Updating, ReportsAFolderWithoutPermissionAndChangesNothing) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    const auto before = Picture(North);
    AsNobody([&] {
        Desk.ExpectMessageTitled("Program Error", Answer::Cancel);
        EXPECT_FALSE(Update3DPoints(North, UpdateFile));
        EXPECT_NE(Desk.Shown.back().Text.find("-basDatabase-Update3DPoints"), std::string::npos);
    });
    EXPECT_EQ(Picture(North), before);
}

using UpdateClick = Updating;

TEST_F(UpdateClick, BacksUpThenUpdatesThenTellsIt) {
    Enter("P1", 1);
    const std::string former = FileContent(North + "3DIM.DAT");
    PutLines(UpdateFile, {Header, PointLine("P1")});
    Desk.ExpectMessage("Update Complete", "Update complete");
    ClickUpdate(Form);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), former);
    EXPECT_EQ(XOf("P1"), 100);
}

TEST_F(UpdateClick, AsksFirstForADataType) {
    Form.opt3dim = false;
    Form.lblUpDateFile = "C:\\NONE.DBS";
    Desk.ExpectMessage(
        "Missing Date Type Data",
        "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or "
        "3-dimensional");
    ClickUpdate(Form);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
}

TEST_F(UpdateClick, TellsAMissingFileBeforeABadLocation) {
    Form.lblDirectory = "DATABASE\\";
    Desk.ExpectMessage("File Name Invalid",
                       std::string("Update file name ") + UpdateFile + " does not exist.");
    ClickUpdate(Form);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
}

TEST_F(UpdateClick, RefusesAPathThatIsNoLocation) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    Form.lblDirectory = "DATABASE\\DAM\\";
    Desk.ExpectMessage("Location Incomplete", "Selected location not valid.  Please complete.");
    ClickUpdate(Form);
    EXPECT_EQ(AllFiles(North).size(), 13u);
}

TEST_F(UpdateClick, SaysCompleteAndDoesNothingForTheOtherTypes) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    const auto before = Picture(North);
    for (bool UpdateForm::*const option :
         {&UpdateForm::optBenchmark, &UpdateForm::optMonument, &UpdateForm::optIdeals}) {
        UpdateForm form = Form;
        form.opt3dim = false;
        form.*option = true;
        Desk.ExpectMessage("Update Complete", "Update complete");
        ClickUpdate(form);
        EXPECT_EQ(Picture(North), before);
    }
}

TEST_F(UpdateClick, MakesTheBackupAlsoForAFileWithoutPoints) {
    PutLines(UpdateFile, {Header});
    const std::string former = FileContent(North + "3DIM.DAT");
    Desk.ExpectMessage("Update Complete", "Update complete");
    ClickUpdate(Form);
    EXPECT_EQ(FileContent(North + "3DIM.DAT"), former);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), former);
}

TEST_F(UpdateClick, UpdatesNothingWithoutABackup) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    Drives::DeleteFile(North + "NORTH.REF");
    Desk.ExpectMessageTitled("Program Error");
    ClickUpdate(Form);
    ExpectReport(53, "basDatabase-MakeCoordBackups");
    EXPECT_TRUE(Named({"P1"}).empty());
}

TEST_F(UpdateClick, DoesNotSayCompleteAfterAFailure) {
    PutLines(UpdateFile, {Header, PointLine("P1"), PointLine("LONGNAME9")});
    Desk.ExpectMessageTitled("Program Error");
    ClickUpdate(Form);
    EXPECT_EQ(XOf("P1"), 100);
}

TEST_F(UpdateClick, KeepsOnlyTheStateBeforeTheLatestUpdate) {
    PutLines(UpdateFile, {Header, PointLine("P1")});
    Desk.ExpectMessageTitled("Update Complete");
    ClickUpdate(Form);
    const std::string afterFirst = FileContent(North + "3DIM.DAT");
    Desk.ExpectMessageTitled("Update Complete");
    ClickUpdate(Form);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), afterFirst);
    EXPECT_EQ(RetrievedLines({"P1"}, true).size(), 2u);
}

TEST_F(UpdateClick, BrowsesForAFile) {
    Desk.ExpectFile("", "D:\\OTHER.DBS");
    ClickBrowseUpdate(Form);
    EXPECT_EQ(Form.lblUpDateFile, "D:\\OTHER.DBS");
    ASSERT_EQ(Desk.Dialogs.size(), 1u);
    EXPECT_EQ(Desk.Dialogs[0].Purpose, FileDialog::Kind::Open);
    EXPECT_EQ(Desk.Dialogs[0].Filter, "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs");
    EXPECT_EQ(Desk.Dialogs[0].FilterIndex, 2);
    EXPECT_EQ(Desk.Dialogs[0].Flags, 4);
    EXPECT_EQ(Desk.Dialogs[0].Folder, "C:\\TARVEX\\TEMP\\");
    Desk.ExpectFile("", std::nullopt);
    ClickBrowseUpdate(Form);
    EXPECT_EQ(Form.lblUpDateFile, "D:\\OTHER.DBS");
}

}  // namespace
}  // namespace Dorvane::Testing
