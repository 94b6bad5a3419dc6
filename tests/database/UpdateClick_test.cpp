// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basGeneral.h"
#include "database/DatabaseFiles.h"
#include "database/Update3D.h"
#include "tests/database/UpdateSite.h"

namespace Dorvane::Testing {
namespace {

using Texts = std::vector<std::string>;

class UpdateClick : public UpdateSite {
  protected:
    /// The operator is asked, answers, and is told nothing else but what is expected besides.
    void ExpectOverview(Answer answer = Answer::Yes) { Desk.ExpectMessageTitled("Update Overview", answer); }

    void ClickWithOverview() {
        ExpectOverview();
        Desk.ExpectMessage("Update Complete", "Update complete");
        Click();
    }

    void Click() {
        UpdateView view;
        view.ShowStatus = [this](const std::string& text) { Status.push_back(text); };
        ClickUpdate(Form, view);
    }

    std::vector<std::string> Status;
};

TEST_F(UpdateClick, BacksUpThenUpdatesThenTellsIt) {
    Enter("P1", 1);
    const std::string former = FileContent(North + "3DIM.DAT");
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    ClickWithOverview();
    EXPECT_EQ(Desk.Shown[1].Picture, Icon::Information);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), former);
    EXPECT_EQ(XOf("P1"), 100);
    EXPECT_EQ(Status, (Texts{"", "Comparing with the database ...", "Updating the database ...",
                             "1 point stored in NORTH, backup kept"}));
}

TEST_F(UpdateClick, AsksFirstForADataType) {
    Form.opt3dim = false;
    Form.lblUpDateFile = "C:\\NONE.DBS";
    Desk.ExpectMessage(
        "Missing Date Type Data",
        "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or "
        "3-dimensional");
    Click();
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
}

TEST_F(UpdateClick, TellsAMissingFileBeforeABadLocation) {
    Form.lblDirectory = "DATABASE\\";
    Desk.ExpectMessage("File Name Invalid",
                       std::string("Update file name ") + UpdateFile + " does not exist.");
    Click();
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
}

TEST_F(UpdateClick, RefusesAPathThatIsNoLocation) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    Form.lblDirectory = "DATABASE\\DAM\\";
    Desk.ExpectMessage("Location Incomplete", "Selected location not valid.  Please complete.");
    Click();
    EXPECT_EQ(AllFiles(North).size(), 13u);
}

TEST_F(UpdateClick, SaysCompleteAndDoesNothingForTheOtherTypes) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    const auto before = Picture(North);
    for (bool UpdateForm::*const option :
         {&UpdateForm::optBenchmark, &UpdateForm::optMonument, &UpdateForm::optIdeals}) {
        UpdateForm form = Form;
        form.opt3dim = false;
        form.*option = true;
        Desk.ExpectMessage("Update Complete", "Update complete");
        Form = form;
        Click();
        EXPECT_EQ(Status.back(), "0 points stored");
        EXPECT_EQ(Picture(North), before);
    }
}

TEST_F(UpdateClick, MakesTheBackupAlsoForAFileWithoutPoints) {
    PutLines(UpdateFile, {UpdateHeader});
    const std::string former = FileContent(North + "3DIM.DAT");
    Desk.ExpectMessage("Update Complete", "Update complete");
    Click();
    EXPECT_EQ(FileContent(North + "3DIM.DAT"), former);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), former);
    EXPECT_EQ(Status.back(), "0 points stored in NORTH, backup kept");
}

TEST_F(UpdateClick, LeavesTheTellingOfABadFileToItsReaderBehindTheBackup) {
    PutLines(UpdateFile, {UpdateHeader, "P1 1 2 3"});
    Desk.ExpectMessage("Problem Reading File", "Problem reading from DAM.DBS!");
    Desk.ExpectMessage("Update Complete", "Update complete");
    Click();
    EXPECT_TRUE(FileExists(North + "Backup 3DIM.DAT"));
    EXPECT_EQ(Status.back(), "0 points stored in NORTH, backup kept");
}

TEST_F(UpdateClick, UpdatesNothingWithoutABackup) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    Drives::DeleteFile(North + "NORTH.REF");
    Desk.ExpectMessageTitled("Program Error");
    Click();
    EXPECT_EQ(LastReport(Desk), "53 Dorvane-basDatabase-MakeCoordBackups");
    EXPECT_TRUE(Named({"P1"}).empty());
}

TEST_F(UpdateClick, EndsWithARefusalAndChangesNothingNotEvenTheBackup) {
    Enter("P1", 1);
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("LONGNAME9"), PointLine("P2"),
                          PointLine("P3", "123456.0")});
    MakeCoordBackups(North, 3);
    Enter("P0", 1);
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    Click();
    EXPECT_EQ(LastReport(Desk), "1103 CoordinateRetriever-basDatabase-Update3DPoints");
    ExpectTold("Source : CoordinateRetriever-");
    ExpectTold(North +
               "3DIM.DAT does not take point LONGNAME9: the name has more than 8 characters.  Points of the "
               "file: 1 new, 1 changed, 0 unchanged, 2 refused (LONGNAME9, P3).  Nothing was changed.");
    EXPECT_EQ(Picture(North), before);
    EXPECT_EQ(Status.back(), "0 points stored");
}

TEST_F(UpdateClick, NamesTheFirstOfManyRefusedPoints) {
    std::vector<std::string> lines = {UpdateHeader};
    for (int i = 1; i <= 7; ++i)
        lines.push_back(PointLine("LONGNAME" + std::to_string(i)));
    PutLines(UpdateFile, lines);
    Desk.ExpectMessageTitled("Program Error");
    Click();
    ExpectTold("7 refused (LONGNAME1, LONGNAME2, LONGNAME3, LONGNAME4, LONGNAME5, ...)");
}

TEST_F(UpdateClick, RefusesATaskThatTheReferenceFileDoesNotTakeBeforeTheBackup) {
    PutLines(UpdateFile, {"11-20-26 SRV12 ELEVENCHARS", PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    Click();
    EXPECT_EQ(LastReport(Desk), "1103 CoordinateRetriever-basDatabase-Update3DPoints");
    ExpectTold("the task \"ELEVENCHARS\" has more than 10 characters.  Nothing was changed.");
    EXPECT_EQ(Picture(North), before);
}

// A database with room for one more value.
void LeaveRoomForOne(const std::string& folder) {
    constexpr long records = HighestRecordNumber - 2;
    const std::string record = FileContent(folder + "3DIM.DAT").substr(93);
    std::string data = RecordHeader(DatabaseTypeOf(ThreeDimensionalCode).DataShape(), records);
    data.reserve(data.size() + record.size() * static_cast<std::size_t>(records));
    for (long i = 0; i < records; ++i)
        data += record;
    PutFile(folder + "3DIM.DAT", data);
    PutFile(folder + "3DIM.IDX", " 16      1   0\r\nP1      " + std::to_string(records + 1) + "\r\n");
}

TEST_F(UpdateClick, RefusesMorePointsThanThereIsRoomForBeforeTheBackup) {
    Enter("P1", 1);
    LeaveRoomForOne(North);
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2")});
    Desk.ExpectMessageTitled("Program Error");
    Click();
    EXPECT_EQ(LastReport(Desk), "1102 CoordinateRetriever-basDatabase-Update3DPoints");
    ExpectTold("3DIM.DAT is full: its lines are numbered up to 999999.  Nothing was changed.");
    EXPECT_FALSE(FileExists(North + "Backup 3DIM.DAT"));

    PutLines(UpdateFile, {UpdateHeader, PointLine("P2")});
    ExpectOverview(Answer::No);
    Click();
}

TEST_F(UpdateClick, KeepsTheLastGoodBackupOfADamagedDatabase) {
    MakeCoordBackups(North, 3);
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           9\r\n");
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    Click();
    EXPECT_EQ(LastReport(Desk), "1101 CoordinateRetriever-basDatabase-Update3DPoints");
    ExpectTold("Nothing was changed.");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(UpdateClick, ShowsBeforeTheBackupWhatWouldChangeAndLeavesAllAtNo) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2"), PointLine("P3")});
    Update3DPoints(North, UpdateFile);
    PutLines(UpdateFile, {"11-21-26 SRV12 NET1", PointLine("P1", "100.25"), PointLine("P2", "99.5"),
                          PointLine("P3"), PointLine("P4"), PointLine("P5")});
    const auto before = Picture(North);
    Desk.ExpectMessage("Update Overview",
                       UpdateFile +
                           "\r\n11-21-26, SRV12, NET1\r\n\r\n"
                           "New points : 2\r\nChanged points : 2\r\nUnchanged points : 1\r\n"
                           "Refused points : 0\r\nLargest change : P2, -0.50000 meters in X\r\n\r\n"
                           "Do you wish to update NORTH?",
                       Answer::No);
    Click();
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Question);
    EXPECT_EQ(Desk.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(Desk.Shown[0].Default, Answer::Ok);
    EXPECT_EQ(Picture(North), before);
    EXPECT_EQ(Status.back(), "0 points stored");
}

TEST_F(UpdateClick, ComparesWithWhatWouldBeStored) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1", "100.000001")});
    Update3DPoints(North, UpdateFile);
    PutLines(UpdateFile, {"11-21-26 SRV12 NET1", PointLine("p1", "99.999996")});
    ExpectOverview(Answer::No);
    Click();
    ExpectTold("Unchanged points : 1\r\n");
    ExpectTold("Largest change : none\r\n");
}

TEST_F(UpdateClick, CountsAnotherDeviationAsAChangeWithoutAnAmount) {
    Enter("P1", 1);
    PutLines(UpdateFile, {UpdateHeader, "P1 0 0 0 1 2 3 0 0 0 0.00001"});
    ExpectOverview(Answer::No);
    Click();
    ExpectTold("New points : 0\r\nChanged points : 1\r\n");
    ExpectTold("Largest change : none\r\n");
}

TEST_F(UpdateClick, MeasuresTheLargestChangeInEachCoordinate) {
    Enter("P1", 1);
    for (const auto& [line, told] : {std::pair{"P1 0 0 0 1.1 2 3 0 0 0 0", "P1, 0.10000 meters in X"},
                                     std::pair{"P1 0 0 0 1.1 1.8 3 0 0 0 0", "P1, -0.20000 meters in Y"},
                                     std::pair{"P1 0 0 0 1.1 1.8 3.3 0 0 0 0", "P1, 0.30000 meters in Z"}}) {
        PutLines(UpdateFile, {UpdateHeader, line});
        ExpectOverview(Answer::No);
        Click();
        ExpectTold(told);
    }
}

TEST_F(UpdateClick, TellsPointsThatStandMoreThanOnceInTheFile) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2"), PointLine("P1", "101"),
                          PointLine("P1", "101")});
    ExpectOverview();
    Desk.ExpectMessageTitled("Update Complete");
    Click();
    EXPECT_NE(Desk.Shown[0].Text.find("New points : 2\r\nChanged points : 1\r\nUnchanged points : 1\r\n"),
              std::string::npos)
        << Desk.Shown[0].Text;
    EXPECT_NE(Desk.Shown[0].Text.find("More than once in the file : P1\r\n"), std::string::npos);
    EXPECT_EQ(Status.back(), "4 points stored in NORTH, backup kept");
}

TEST_F(UpdateClick, AsksWhetherAnUpdateThatIsStoredIsToBeStoredAgain) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2")});
    ClickWithOverview();
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Update Stored Already", Answer::No);
    Click();
    ExpectTold(
        "This update is in the database of NORTH already: its date, project and task, and every value");
    ExpectTold("Unchanged points : 2\r\n");
    ExpectTold("Do you wish to store it again?");
    EXPECT_EQ(Desk.Shown.back().Default, Answer::No);
    EXPECT_EQ(Picture(North), before);

    const std::string afterFirst = FileContent(North + "3DIM.DAT");
    Desk.ExpectMessageTitled("Update Stored Already", Answer::Yes);
    Desk.ExpectMessageTitled("Update Complete");
    Click();
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), afterFirst);
    EXPECT_EQ(RetrievedLines({"P1"}, true).size(), 2u);
    EXPECT_EQ(FileContent(North + "NORTH.REF").size(), 33u + 2 * 32u);
}

TEST_F(UpdateClick, KnowsAStoredUpdateAlsoBehindAnother) {
    const std::vector<std::string> first = {UpdateHeader, PointLine("P1")};
    PutLines(UpdateFile, first);
    ClickWithOverview();
    PutLines(UpdateFile, {"11-21-26 SRV12 NET1", PointLine("P1", "101")});
    ClickWithOverview();
    PutLines(UpdateFile, first);
    Desk.ExpectMessageTitled("Update Stored Already", Answer::No);
    Click();
    ExpectTold("Changed points : 1\r\n");
}

TEST_F(UpdateClick, TakesAnotherDateTaskProjectOrValueForAnotherUpdate) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2")});
    ClickWithOverview();
    for (const char* header : {"11-21-26 SRV12 NET1", "11-20-26 SRV13 NET1", "11-20-26 SRV12 NET2"}) {
        PutLines(UpdateFile, {header, PointLine("P1"), PointLine("P2")});
        ExpectOverview(Answer::No);
        Click();
    }
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1", "100.00001"), PointLine("P2")});
    ExpectOverview(Answer::No);
    Click();
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2"), PointLine("P3")});
    ExpectOverview(Answer::No);
    Click();
}

TEST_F(UpdateClick, TellsNothingStoredWhenTheDiskIsFull) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        ExpectOverview();
        Desk.ExpectMessageTitled("Program Error", Answer::No);
        Click();
        EXPECT_EQ(Status.back(), "0 points stored");
    });
}

TEST_F(UpdateClick, KeepsOnlyTheStateBeforeTheLatestUpdate) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    ClickWithOverview();
    const std::string afterFirst = FileContent(North + "3DIM.DAT");
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1", "101")});
    ClickWithOverview();
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
