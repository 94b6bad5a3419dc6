// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "core/widgets/Animation.h"
#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InputScreenCreate : public InputScreenSite {
  protected:
    void OpenWithFolder() {
        Open();
        Import(Survey);
        Picker.Calls.clear();
        Picked = Job;
    }

    void ExpectName(const std::optional<std::string>& name) {
        Desktop.ExpectText("Enter VARN input file name", name);
    }

    void ExpectCompleted() { Desktop.ExpectMessage("Input File Creation", "Input file completed"); }

    bool Waits() { return Screen->cursor().shape() == Qt::WaitCursor; }
};

TEST_F(InputScreenCreate, WritesTheFilesUnderTheNameAndFolderGiven) {
    OpenWithFolder();
    QTest::keyClicks(&Field("txtProject"), QStringLiteral("North dam"));
    QTest::keyClicks(&Field("txtTask"), QStringLiteral("Epoch 12"));
    ExpectName("net.x");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenTreeAndWait VARN input file location|" + Job));
    EXPECT_TRUE(HiddenMeanwhile);
    EXPECT_TRUE(Screen->isVisible());
    EXPECT_EQ(AllFiles(Job), (Texts{"NET.INP", "NET.ORG", "NET.SUM", "NET.VER"}));
    EXPECT_EQ(FileLines(Job + "NET.INP").at(2), "  PROJECT = North dam");
    EXPECT_EQ(FileLines(Job + "NET.INP").at(3), "     TASK = Epoch 12");
    EXPECT_EQ(TextOf(*Screen, "lblDirectory"), Job);
    EXPECT_EQ(TextOf(*Screen, "lblFileName"), "NET.INP");
    EXPECT_EQ(Status(), "Input file completed");
    EXPECT_TRUE(IsEnabled(*Screen, "cmdEdit"));
    EXPECT_TRUE(IsEnabled(*Screen, "cmdPrint"));
    EXPECT_FALSE(IsShown(*Screen, "aniInput"));
    EXPECT_FALSE(Waits());
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

TEST_F(InputScreenCreate, TellsWhatWasMadeAndWhere) {
    OpenWithFolder();
    EXPECT_FALSE(IsShown(*Screen, "lblContents"));
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_TRUE(IsShown(*Screen, "lblContents"));
    EXPECT_EQ(TextOf(*Screen, "lblContents"), "NET.INP, NET.ORG, NET.SUM and NET.VER in " + Job +
                                                  "\r\nObservations : 1 tracker\r\n"
                                                  "Points : 0 with coordinates, 1 without");
    EXPECT_EQ(Status(), "Input file completed");
}

TEST_F(InputScreenCreate, ALongFolderMakesTheScreenNoWider) {
    OpenWithFolder();
    const int former = Screen->minimumSizeHint().width();
    Picked = "D:\\" + std::string(200, 'W') + "\\";
    MakeFolders(Picked);
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(Screen->minimumSizeHint().width(), former);
    EXPECT_TRUE(Control<QWidget>(*Screen, "lblContents").toolTip().contains(QString(200, QLatin1Char('W'))));
}

TEST_F(InputScreenCreate, WaitsAndShowsItsGearsWhileItWrites) {
    OpenWithFolder();
    PutFile(Job + "NET.INP", "");
    Texts seen;
    Desktop.OnYield = [&] { seen.push_back(Status() + (Waits() ? " waiting" : "")); };
    Desktop.OnMessage = [&] {
        seen.push_back(Desktop.Shown.back().Title + (IsShown(*Screen, "aniInput") ? " moving" : " still"));
    };
    ExpectName("NET");
    Desktop.ExpectMessageTitled("File Exists", Answer::Yes);
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_THAT(seen, Contains("Importing Laser data from " + Survey + " waiting"));
    EXPECT_THAT(seen, Contains("Creating VARN input file waiting"));
    EXPECT_THAT(seen, Contains("File Exists moving"));
    EXPECT_EQ(seen.back(), "Input File Creation still");
}

TEST_F(InputScreenCreate, TheGearsMoveWheneverEventsAreHandled) {
    OpenWithFolder();
    auto& gears = Control<Animation>(*Screen, "aniInput");
    ExpectName("");
    Click(*Screen, "cmdCreate");
    ASSERT_TRUE(gears.isVisible());
    const QImage first = gears.grab().toImage();
    QImage later = first;
    for (int round = 0; round < 200 && later == first; ++round) {
        QTest::qWait(20);
        later = gears.grab().toImage();
    }
    EXPECT_NE(later, first);
}

TEST_F(InputScreenCreate, StartsNothingElseMeanwhile) {
    OpenWithFolder();
    Desktop.OnYield = [&] {
        for (const char* button : {"cmdHome", "cmdVarn", "cmdCreate", "cmdImport"})
            Control<QAbstractButton>(*Screen, button).click();
        Choose(*Screen, "mnuClearAllObs");
        Choose(*Screen, "mnuObservationWeights");
    };
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenTreeAndWait VARN input file location|" + Job));
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    EXPECT_TRUE(Screen->isVisible());
}

TEST_F(InputScreenCreate, KeepsWhatIsTypedMeanwhile) {
    OpenWithFolder();
    Desktop.OnYield = [&] { Field("txtTask").setText(QStringLiteral("typed")); };
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(TextOf(*Screen, "txtTask"), "typed");
}

TEST_F(InputScreenCreate, SaysThatThereIsNoData) {
    Open();
    Desktop.ExpectMessage("No Observation Data", "No observation data exists!  You must first import it!");
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
    EXPECT_EQ(Status(), "No data");
    EXPECT_FALSE(Waits());
    EXPECT_FALSE(IsShown(*Screen, "aniInput"));
    EXPECT_FALSE(IsEnabled(*Screen, "cmdEdit"));
    EXPECT_THAT(Picker.Calls, IsEmpty());
}

TEST_F(InputScreenCreate, ACancelledTreeEndsWithNoData) {
    OpenWithFolder();
    Picked = "";
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(Status(), "No data");
    EXPECT_EQ(TextOf(*Screen, "lblDirectory"), Survey);
    EXPECT_THAT(AllFiles(Job), IsEmpty());
    EXPECT_EQ(AllFiles(Survey), (Texts{"DAY1.GSI", "TOTAL.RES"}));
    EXPECT_TRUE(Screen->isVisible());
    EXPECT_FALSE(Waits());
}

TEST_F(InputScreenCreate, ACancelledDialogWritesNothingAndKeepsWhatIsShown) {
    Global().Path_type = 2;
    Open();
    Desktop.ExpectFile("Input Laser field data from", Survey + "RES");
    Click(*Screen, "cmdImport");
    Desktop.ExpectFile("VARN input file location", Job + "VarnInput");
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(Desktop.Dialogs.back().FileName, "VarnInput");
    const std::string former = FileContent(Job + "NET.INP");
    Desktop.ExpectFile("VARN input file location", std::nullopt);
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(Status(), "No data");
    EXPECT_EQ(TextOf(*Screen, "lblDirectory"), Job);
    EXPECT_EQ(TextOf(*Screen, "lblFileName"), "NET.INP");
    EXPECT_EQ(AllFiles(Job).size(), 4U);
    EXPECT_EQ(FileContent(Job + "NET.INP"), former);
}

TEST_F(InputScreenCreate, WithoutANameNothingIsWrittenAndTheGearsStayOn) {
    for (const std::optional<std::string>& name :
         {std::optional<std::string>(), std::optional<std::string>("   "),
          std::optional<std::string>(".x")}) {
        OpenWithFolder();
        ExpectName(name);
        Click(*Screen, "cmdCreate");
        EXPECT_THAT(AllFiles(Job), IsEmpty());
        EXPECT_TRUE(IsShown(*Screen, "aniInput"));
        EXPECT_FALSE(Waits());
        EXPECT_EQ(TextOf(*Screen, "lblFileName"), "");
        EXPECT_FALSE(IsEnabled(*Screen, "cmdEdit"));
        Screen->Unload();
        HandleEvents();
    }
}

TEST_F(InputScreenCreate, ASecondClickReadsTheFoldersAgain) {
    OpenWithFolder();
    for (const char* name : {"ONE", "TWO"}) {
        ExpectName(name);
        ExpectCompleted();
        Click(*Screen, "cmdCreate");
    }
    EXPECT_EQ(Desktop.Initials, (Texts{"", ""}));
    EXPECT_EQ(FileContent(Job + "ONE.INP"), FileContent(Job + "TWO.INP"));
    EXPECT_EQ(TextOf(*Screen, "lblFileName"), "TWO.INP");
}

TEST_F(InputScreenCreate, WithoutAPrinterNothingIsPrinted) {
    Global().PrinterPresent = false;
    OpenWithFolder();
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_TRUE(IsEnabled(*Screen, "cmdEdit"));
    EXPECT_FALSE(IsEnabled(*Screen, "cmdPrint"));
}

TEST_F(InputScreenCreate, TheFileInHandIsEditedPrintedAndTakenToTheAdjustment) {
    OpenWithFolder();
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    Click(*Screen, "cmdEdit");
    EXPECT_EQ(Desktop.Started, (Texts{"C:\\EDIT\\ED.EXE " + Job + "NET.INP"}));
    Click(*Screen, "cmdPrint");
    ASSERT_GE(Desktop.PrintedLines.size(), 2U);
    EXPECT_EQ(Desktop.PrintedLines[1], "     File Name : " + Job + "NET.INP");
    Picked = Survey + "OTHER\\";
    PutFile(Picked + "TOTAL.RES", "");
    PutFile(Picked + "A.GSI", "");
    SetTimeStamp(Picked + "A.GSI", {2020, 1, 1, 8, 0, 0});
    Click(*Screen, "cmdImport");
    EXPECT_EQ(TextOf(*Screen, "lblDirectory"), Picked);
    Picker.Calls.clear();
    Desktop.ExpectMessageTitled("Project Not Saved", Answer::No);
    Click(*Screen, "cmdVarn");
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenAdjustment " + Job + "NET.INP"));
    EXPECT_TRUE(Screen.isNull());
}

TEST_F(InputScreenCreate, TheFileInHandIsNotStartedItselfWithoutAnEditor) {
    OpenWithFolder();
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "");
    IniWriteString("dv_tarvex.ini", "General Editor", "Name", "");
    Desktop.ExpectMessage("Editor Not Found", "Editor not found in INI file.  Can not edit file.");
    Click(*Screen, "cmdEdit");
    EXPECT_THAT(Desktop.Started, IsEmpty());
}

TEST_F(InputScreenCreate, AnEditorThatIsNotThereIsReported) {
    OpenWithFolder();
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    Desktop.OnRun = [](const std::string&) { throw RunTimeError(FileNotFound); };
    Desktop.ExpectMessageTitled("Program Error");
    Click(*Screen, "cmdEdit");
    EXPECT_EQ(LastReport(Desktop), "53 Dorvane-frmInput-cmdEdit_Click");
    EXPECT_TRUE(Screen->isVisible());
}

TEST_F(InputScreenCreate, MissingGearsAreReportedAndTheFilesWrittenAllTheSame) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\gears.svg");
    OpenWithFolder();
    Desktop.ExpectMessageTitled("Program Error");
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Error : 53"), std::string::npos);
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Source : Dorvane-frmInput-cmdCreate_Click"), std::string::npos);
    EXPECT_EQ(AllFiles(Job).size(), 4U);
    EXPECT_FALSE(IsShown(*Screen, "aniInput"));
}

TEST_F(InputScreenCreate, MoreTypesThanLocationsAreASubscriptError) {
    OpenWithFolder();
    ClickItem(*Screen, "lstCoordDirectorys", "DAM\\NORTH");
    ClickItem(*Screen, "lstCoordTypes", "Monuments");
    ClickItem(*Screen, "lstCoordTypes", "Ideals");
    Desktop.ExpectMessageTitled("Program Error");
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Error : 9"), std::string::npos);
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Source : Dorvane-frmInput-GatherData"), std::string::npos);
    EXPECT_THAT(Database.Requests, IsEmpty());
}

TEST_F(InputScreenCreate, TheSelectionsSayWhatTheDatabaseIsAsked) {
    OpenWithFolder();
    ClickItem(*Screen, "lstCoordDirectorys", "DAM\\SOUTH");
    ClickItem(*Screen, "lstCoordTypes", "Ideals");
    const std::string folder = Global().Coord_path + "SOUTH\\";
    Database.Answers[{folder, 4}] = {{"P7", 1, 2, 3, 0, 0}};
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    ASSERT_EQ(Database.Requests.size(), 1U);
    EXPECT_EQ(Database.Requests[0], (FakeDatabase::Request{folder, 4, {"1", "P7"}, 0}));
    EXPECT_NE(FileContent(Job + "NET.INP").find("P7              1.00000        2.00000"), std::string::npos);
}

TEST_F(InputScreenCreate, TheDimensionSaysWhichResultsAreRead) {
    const std::string folder = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\";
    PutLines(folder + "LEVEL1.RES", {"A B 1.5"});
    IniWriteString("dv_datatype.ini", "LEVEL", "Extension", "LEV");
    IniWriteString("dv_datatype.ini", "LEVEL", "LEV_Reduce", "LEVRED.EXE LEVEL1.RES");
    PutFile(folder + "A.LEV", "");
    SetTimeStamp(folder + "A.LEV", {2020, 1, 1, 8, 0, 0});
    Open();
    ClickNode("Levelling");
    Import(folder);
    Picked = Job;
    Combo("icmbDimension").setCurrentIndex(0);
    ExpectName("NET");
    ExpectCompleted();
    Click(*Screen, "cmdCreate");
    EXPECT_THAT(FileLines(Job + "NET.INP"), Contains("A         B              1.50000     0.00020"));
}

TEST_F(InputScreenCreate, AReadOnlyFolderIsToldAndLeavesTheScreenUsable) {
    OpenWithFolder();
    AsNobody([&] {
        StopPainting();
        ExpectName("NET");
        Desktop.ExpectMessageTitled("Program Error");
        Desktop.ExpectMessage("Error Writing Input File",
                              "Problem writing header to input file.  Can not continue.");
        Click(*Screen, "cmdCreate");
        const std::string& report = Desktop.Shown.at(0).Text;
        EXPECT_NE(report.find("Source : Dorvane-basWrite-WriteInputHeader"), std::string::npos) << report;
        EXPECT_EQ(Status(), "Error writing header to input file");
        EXPECT_FALSE(IsShown(*Screen, "aniInput"));
        EXPECT_FALSE(IsEnabled(*Screen, "cmdEdit"));
        EXPECT_FALSE(Waits());
        EXPECT_THAT(AllFiles(Job), IsEmpty());
        EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
        Desktop.ExpectMessageTitled("Project Not Saved", Answer::No);
        Click(*Screen, "cmdHome");
    });
}

TEST_F(InputScreenCreate, AFullDiskIsReportedAndLeavesTheFormerFile) {
    OpenWithFolder();
    OnSmallDisk(Job, 64, [&] {
        StopPainting();
        PutFile(Job + "NET.INP", "former");
        try {
            for (;;)
                Drives::AppendFile(Job + "FILLER.BIN", std::string(4096, 'x'));
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
        }
        ExpectName("NET");
        Desktop.ExpectMessageTitled("File Exists", Answer::Yes);
        Desktop.ExpectMessageTitled("Program Error", Answer::No);
        Click(*Screen, "cmdCreate");
        EXPECT_EQ(LastReport(Desktop), "61 Dorvane-frmInput-cmdCreate_Click");
        EXPECT_EQ(FileContent(Job + "NET.INP"), "former");
        EXPECT_FALSE(Waits());
        EXPECT_FALSE(IsEnabled(*Screen, "cmdEdit"));
        EXPECT_EQ(Status(), "Input file NOT written");
        EXPECT_FALSE(IsShown(*Screen, "aniInput"));
        EXPECT_EQ(TextOf(*Screen, "lblFileName"), "");
        EXPECT_EQ(AllFiles(Job), (Texts{"FILLER.BIN", "NET.INP"}));
    });
}

}  // namespace
}  // namespace Dorvane::Testing
