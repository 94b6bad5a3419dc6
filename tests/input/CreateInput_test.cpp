// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CreateInput.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/ProfileStore.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Survey = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\";
const std::string Job = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV12\\";

const std::string Header =
    "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n"
    "\r\n"
    "  PROJECT = North dam\r\n"
    "     TASK = Epoch 12\r\n"
    "     DATE = 11/20/2026 9:05:07 AM\r\n"
    "\r\n"
    "LISTING = STATS\r\n"
    "\r\n";

class CreateInput : public InputSite {
  protected:
    CreateInput() {
        PutProfiles();
        PutProfile("dv_tarvex.ini", {"[Tarvex]", "Last Path=" + Survey, "[Manual]", "Last Path=D:\\LAST\\"});
        Screen = OpenScreen({Located("NORTH")});
        Screen.txtProject = "North dam";
        Screen.txtTask = "Epoch 12";
        PutLines(Survey + "TOTAL.RES",
                 {"st1 p7 123.4567 99.1234 25.12345", "ST1 P8 1 2 3", "ST1 P7 123.4569 99.1235 25.1"});
        MakeFolders(Job);
        Picked = Job;
    }

    void AddFolder() { AddTreeFolder(Screen.trvInput, "Laser", Survey); }

    void Create() { CreateInputFile(Screen, Services()); }

    void ExpectName(const std::optional<std::string>& answer) {
        Desktop.ExpectText("Enter VARN input file name", answer);
    }

    void ExpectCompleted() { Desktop.ExpectMessage("Input File Creation", "Input file completed"); }

    InputScreen Screen;
};

TEST_F(CreateInput, WritesTheFourFilesByteForByte) {
    AddFolder();
    PutLines("D:\\USER.TXT", {"P7 1000.5 -20.25 300"});
    Screen.lstUserDBFiles = {{"D:\\USER.TXT", true}};
    Screen.lstCoordDirectorys[0].Selected = true;
    ExpectName("net");
    ExpectCompleted();
    Create();
    EXPECT_EQ(FileContent(Job + "NET.INP"), Header +
                                                "Theodolite Stations\r\n"
                                                "ST1\r\n"
                                                "\r\n"
                                                "END\r\n"
                                                "Object Points\r\n"
                                                "P7           1000.50000      -20.25000      300.00000\r\n"
                                                "                1.00E+03       1.00E+03       1.00E+03\r\n"
                                                "P8\r\n"
                                                "\r\n"
                                                "END\r\n"
                                                "Distances \r\n"
                                                "ST1       P7             25.12345   0.00010   T\r\n"
                                                "ST1       P8              3.00000   0.00010   T\r\n"
                                                "ST1       P7             25.10000   0.00010   T\r\n"
                                                "END\r\n"
                                                "Height differences\r\n"
                                                "END\r\n"
                                                "Observations\r\n"
                                                "ST1       P7        123.45670   99.12340 0.00050 0.00060\r\n"
                                                "ST1       P8          1.00000    2.00000 0.00050 0.00060\r\n"
                                                "ST1       P7        123.45690   99.12350 0.00050 0.00060\r\n"
                                                "END\r\n"
                                                "Control Information\r\n"
                                                "Fixed Coordinates\r\n"
                                                "END\r\n"
                                                "Relative error point pairs\r\n"
                                                "END\r\n");
    EXPECT_EQ(FileContent(Job + "NET.ORG"),
              Header +
                  "STA ST1\r\n"
                  "PTS P7            1000.50000      -20.25000      300.00000\r\n"
                  "PTS P8\r\n"
                  "TRK ST1        P7        123.45670  0.00050  99.12340   0.00060     25.12345   0.00010\r\n"
                  "TRK ST1        P8          1.00000  0.00050   2.00000   0.00060      3.00000   0.00010\r\n"
                  "TRK ST1        P7        123.45690  0.00050  99.12350   0.00060     25.10000   0.00010\r\n"
                  "END\r\n");
    EXPECT_EQ(FileContent(Job + "NET.SUM"),
              "PROJECT = North dam\r\n"
              "TASK = Epoch 12\r\n"
              "DATE = 11/20/2026 9:05:07 AM\r\n"
              "\r\n"
              "Number of observations to each point in : " +
                  Job +
                  "NET.INP\r\n"
                  "Name           Hang  Zang  Sdst  Lhgt\r\n"
                  "\r\n"
                  "P7                2     2     2      \r\n"
                  "P8                1     1     1       *\r\n");
    EXPECT_EQ(
        FileContent(Job + "NET.VER"),
        "[Stations]\r\n[Points]\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n[Distance]\r\n[Height]\r\n[Gyro]\r\n");
    EXPECT_EQ(AllFiles(Job), (std::vector<std::string>{"NET.INP", "NET.ORG", "NET.SUM", "NET.VER"}));
}

TEST_F(CreateInput, ShowsWhatItDoesInOrder) {
    AddFolder();
    Global().PrinterPresent = true;
    ExpectName("NET");
    ExpectCompleted();
    Create();
    EXPECT_EQ(Status, (std::vector<std::string>{"Importing Laser data from " + Survey,
                                                "Creating VARN input file", "Input file completed"}));
    EXPECT_EQ(Captions, (std::vector<std::string>{"VARN input file location"}));
    EXPECT_EQ(Paths, (std::vector<std::string>{Job}));
    EXPECT_EQ(Signs, (std::vector<std::string>{"hourglass", "animation", "still", "pointer", "pointer"}));
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Information);
    EXPECT_EQ(Screen.lblDirectory, Job);
    EXPECT_EQ(Screen.lblFileName, "NET.INP");
    EXPECT_EQ(FileInHand(Screen), Job + "NET.INP");
    EXPECT_TRUE(Screen.cmdEditEnabled);
    EXPECT_TRUE(Screen.cmdPrintEnabled);
}

TEST_F(CreateInput, WithoutAPrinterPrintingStaysOff) {
    AddFolder();
    ExpectName("NET");
    ExpectCompleted();
    Create();
    EXPECT_FALSE(Screen.cmdPrintEnabled);
}

TEST_F(CreateInput, LeavesAnEmptyModelAndASecondClickReadsAgain) {
    AddFolder();
    for (int i = 0; i < 2; ++i) {
        ExpectName("NET" + std::to_string(i));
        ExpectCompleted();
        Create();
        EXPECT_EQ(Screen.Model.Points.Count(), 0);
        EXPECT_EQ(Screen.Model.Stations.Count(), 0);
        ASSERT_EQ(Screen.Model.TrackerSets.Count(), 1);
        EXPECT_EQ(Screen.Model.TrackerSets[1].Count(), 0);
    }
    EXPECT_EQ(FileContent(Job + "NET0.INP"), FileContent(Job + "NET1.INP"));
}

TEST_F(CreateInput, SavesTheUserFilesFirst) {
    Screen.lstUserDBFiles = {{"D:\\USER.TXT", false}};
    Desktop.ExpectMessage("No Observation Data", "No observation data exists!  You must first import it!");
    Create();
    EXPECT_EQ(IniReadString("dv_input.ini", "User Database", "Names1"), "D:\\USER.TXT 0");
}

TEST_F(CreateInput, WithoutObservationsThereIsNoData) {
    Desktop.ExpectMessage("No Observation Data", "No observation data exists!  You must first import it!");
    Create();
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
    EXPECT_EQ(Status, (std::vector<std::string>{"No data"}));
    EXPECT_TRUE(Captions.empty());
    EXPECT_EQ(Signs, (std::vector<std::string>{"hourglass", "pointer"}));
}

TEST_F(CreateInput, ACancelledTreeEndsWithNoData) {
    AddFolder();
    Picked = "";
    Create();
    EXPECT_EQ(Status.back(), "No data");
    EXPECT_TRUE(AllFiles(Job).empty());
    EXPECT_EQ(Screen.Model.Points.Count(), 0);
}

// The folder shown may be one of reduced data, left there by an import.
TEST_F(CreateInput, ACancelledFolderChoiceWritesNothingAndKeepsWhatIsShown) {
    AddFolder();
    Screen.lblDirectory = Survey;
    Screen.lblFileName = "OLD.INP";
    for (const std::int16_t pathType : {1, 2}) {
        Global().Path_type = pathType;
        Picked = "";
        if (pathType == 2)
            Desktop.ExpectFile("VARN input file location", std::nullopt);
        Create();
        EXPECT_EQ(Status.back(), "No data");
        EXPECT_EQ(AllFiles(Survey), (std::vector<std::string>{"TOTAL.RES"}));
        EXPECT_EQ(Screen.lblDirectory, Survey);
        EXPECT_EQ(Screen.lblFileName, "OLD.INP");
        EXPECT_EQ(Signs.back(), "pointer");
    }
}

TEST_F(CreateInput, InManualModeTheFolderComesFromADialog) {
    AddFolder();
    Global().Path_type = 2;
    Desktop.ExpectFile("VARN input file location", "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV12\\VarnInput");
    ExpectName("NET");
    ExpectCompleted();
    Create();
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "D:\\LAST\\");
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "VarnInput");
    EXPECT_EQ(Screen.lblDirectory, Job);
    EXPECT_EQ(AllFiles(Job).size(), 4u);
}

TEST_F(CreateInput, ACancelledDialogLeavesTheFolderAsItWas) {
    Global().Path_type = 2;
    Desktop.ExpectFile("VARN input file location", std::nullopt);
    EXPECT_FALSE(SetupCreateInput(Screen, Services(), 1, 0));
    Screen.lblDirectory = Job;
    Desktop.ExpectFile("VARN input file location", std::nullopt);
    EXPECT_FALSE(SetupCreateInput(Screen, Services(), 0, 1));
    EXPECT_EQ(Screen.lblDirectory, Job);
}

TEST_F(CreateInput, ANameWithAPointGivesFourFilesOfItsFirstPart) {
    AddFolder();
    ExpectName("abc.def");
    ExpectCompleted();
    Create();
    EXPECT_EQ(AllFiles(Job), (std::vector<std::string>{"ABC.INP", "ABC.ORG", "ABC.SUM", "ABC.VER"}));
}

TEST_F(CreateInput, BlanksOrACancelLeaveNoFile) {
    AddFolder();
    for (const std::optional<std::string>& answer : {std::optional<std::string>("   "), {}, {".def"}}) {
        ExpectName(answer);
        Create();
    }
    EXPECT_TRUE(AllFiles(Job).empty());
    EXPECT_EQ(Screen.lblFileName, "");
    EXPECT_FALSE(Screen.cmdEditEnabled);
}

TEST_F(CreateInput, AnExistingNameIsAskedAgainWithItselfAsDefault) {
    PutFile(Job + "OLD.INP", "former");
    ExpectName(" old.x ");
    Desktop.ExpectMessage("File Exists",
                          "File OLD.INP already exists in the choosen path!  Do you wish to overwrite?",
                          Answer::No);
    ExpectName("new");
    EXPECT_EQ(GetInputFileName(Job), "NEW.INP");
    EXPECT_EQ(Desktop.Initials, (std::vector<std::string>{"", "OLD"}));
    EXPECT_EQ(Desktop.Shown.back().Choices, Buttons::YesNo);
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    ExpectName("OLD");
    Desktop.ExpectMessageTitled("File Exists", Answer::Yes);
    EXPECT_EQ(GetInputFileName(Job), "OLD.INP");
}

TEST_F(CreateInput, AWeightThatIsNoNumberStopsNoJobThatDoesNotUseIt) {
    IniWriteString("dv_input.ini", "Distance", "SDist1", "0,005");
    Desktop.ExpectMessageTitled("Program Error");
    Screen = OpenScreen({Located("NORTH")});
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
    AddFolder();
    ExpectName("NET");
    ExpectCompleted();
    Create();
    const std::vector<std::string> lines = FileLines(Job + "NET.INP");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "ST1       P8              3.00000   0.00010   T"), 1);
}

TEST_F(CreateInput, AWeightThatIsNoNumberStopsTheJobThatUsesIt) {
    IniWriteString("dv_input.ini", "Tracker", "SDist1", "");
    Desktop.ExpectMessageTitled("Program Error");
    Screen = OpenScreen({Located("NORTH")});
    AddFolder();
    Desktop.ExpectMessageTitled("Program Error");
    Desktop.ExpectMessageTitled("No Observation Data");
    Create();
    EXPECT_NE(Desktop.Shown[1].Text.find("Error : 13"), std::string::npos) << Desktop.Shown[1].Text;
    EXPECT_NE(Desktop.Shown[1].Text.find("basInput-AppendTrackerObs"), std::string::npos);
    EXPECT_TRUE(AllFiles(Job).empty());
}

TEST_F(CreateInput, OnlyHeightsGiveNoStations) {
    PutLines(Survey + "LEVEL.RES", {"A B -0.5"});
    AddTreeFolder(Screen.trvInput, "Levelling", Survey);
    ExpectName("LEV");
    ExpectCompleted();
    Create();
    EXPECT_EQ(FileContent(Job + "LEV.INP"), Header +
                                                "Theodolite Stations\r\n"
                                                "END\r\n"
                                                "Object Points\r\n"
                                                "A\r\n"
                                                "\r\n"
                                                "B\r\n"
                                                "\r\n"
                                                "END\r\n"
                                                "Distances \r\n"
                                                "END\r\n"
                                                "Height differences\r\n"
                                                "A         B             -0.50000     0.00020\r\n"
                                                "END\r\n"
                                                "Observations\r\n"
                                                "END\r\n"
                                                "Control Information\r\n"
                                                "Fixed Coordinates\r\n"
                                                "END\r\n"
                                                "Relative error point pairs\r\n"
                                                "END\r\n");
}

TEST_F(CreateInput, AnUnwritableFolderIsReportedAndTold) {
    AddFolder();
    Picked = "D:\\NONE\\";
    ExpectName("NET");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Desktop.ExpectMessage("Error Writing Input File",
                          "Problem writing header to input file.  Can not continue.");
    Create();
    EXPECT_EQ(Status.back(), "Error writing header to input file");
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_EQ(Screen.Model.Points.Count(), 0);
    EXPECT_FALSE(Screen.cmdEditEnabled);
}

TEST_F(CreateInput, AFullDiskLeavesTheFormerFilesWholeAndTheModelEmpty) {
    std::string lines;
    for (int i = 0; i < 3000; ++i)
        lines += "ST1 P7 123.4567 99.1234 25.12345\r\n";
    PutFile(Survey + "TOTAL.RES", lines);
    AddFolder();
    OnSmallDisk(Job, 256, [this] {
        PutFile(Job + "NET.INP", "former input");
        PutFile(Job + "NET.ORG", "former master");
        ExpectName("NET");
        Desktop.ExpectMessageTitled("File Exists", Answer::Yes);
        Desktop.ExpectMessageTitled("Program Error", Answer::No);
        Create();
        EXPECT_EQ(LastReport(Desktop), "61 Dorvane-frmInput-cmdCreate_Click");
        EXPECT_TRUE(FileContent(Job + "NET.INP") == "former input");
        EXPECT_TRUE(FileContent(Job + "NET.ORG") == "former master");
        EXPECT_EQ(AllFiles(Job), (std::vector<std::string>{"NET.INP", "NET.ORG"}));
        EXPECT_EQ(Screen.Model.Points.Count(), 0);
        EXPECT_FALSE(Screen.cmdEditEnabled);
    });
}

}  // namespace
}  // namespace Dorvane::Testing
