// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ProjectFile.h"

#include "core/ProfileStore.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Path = "D:\\MY.GPF";

class ProjectFile : public InputSite {
  protected:
    ProjectFile() {
        PutProfiles();
        Screen = OpenScreen({Located("NORTH"), Located("SOUTH")});
    }

    void Save(const std::optional<std::string>& path = Path) {
        Desktop.ExpectFile("", path);
        SaveProject(Screen, Services());
    }

    void Open(const std::optional<std::string>& path = Path) {
        Desktop.ExpectFile("", path);
        OpenProject(Screen, Services());
    }

    std::vector<std::string> Folders() const {
        List1<std::string> types;
        List1<std::string> folders;
        GetTreeFolders(Screen.trvInput, Screen.Model.Types, types, folders);
        std::vector<std::string> pairs;
        for (int i = 1; i <= folders.Count(); ++i)
            pairs.push_back(types[i] + ">" + folders[i]);
        return pairs;
    }

    static std::string Selected(const std::vector<ListEntry>& entries) {
        std::string digits;
        for (const ListEntry& entry : entries)
            digits += entry.Selected ? '1' : '0';
        return digits;
    }

    std::string Last() const { return IniReadString("dv_input.ini", "Project", "Last"); }

    InputScreen Screen;
};

TEST_F(ProjectFile, IsWrittenByteForByte) {
    Screen.txtProject = "North dam";
    Screen.txtTask = "Epoch 12";
    Screen.icmbDimension = 2;
    AddTreeFolder(Screen.trvInput, "Levelling", "D:\\B\\");
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    Screen.lstCoordDirectorys[0].Selected = true;
    Screen.lstCoordDirectorys[2].Selected = true;
    Screen.lstCoordTypes[0].Selected = true;
    Screen.lstCoordTypes[3].Selected = true;
    Save();
    EXPECT_EQ(FileContent(Path),
              "North dam\r\nEpoch 12\r\n2\r\nLaser>D:\\A\\\r\nLevelling>D:\\B\\\r\nEnd\r\nUser Defined\r\n"
              "DAM\\SOUTH\r\nEnd\r\n3 Dimensional\r\nIdeals\r\nEnd\r\n");
    EXPECT_EQ(Status, (std::vector<std::string>{"Project D:\\MY.GPF saved"}));
    EXPECT_EQ(Last(), Path);
    EXPECT_EQ(Desktop.Dialogs[0].Purpose, FileDialog::Kind::Save);
    EXPECT_EQ(Desktop.Dialogs[0].Filter, "All Files (*.*)|*.*|Project Files(*.gpf)|*.gpf|");
    EXPECT_EQ(Desktop.Dialogs[0].FilterIndex, 2);
    EXPECT_EQ(Desktop.Dialogs[0].Flags, 4);
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "");
}

TEST_F(ProjectFile, WithoutFoldersHasEndAsItsFourthLine) {
    Save();
    EXPECT_EQ(FileContent(Path), "\r\n\r\n3\r\nEnd\r\nEnd\r\nEnd\r\n");
}

TEST_F(ProjectFile, ComesBackAsItWasSaved) {
    Screen.txtProject = "North dam";
    Screen.txtTask = "";
    Screen.icmbDimension = 1;
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    Screen.lstCoordDirectorys[1].Selected = true;
    Screen.lstCoordTypes[2].Selected = true;
    Save();
    Screen = OpenScreen({Located("NORTH"), Located("SOUTH")});
    Screen.txtTask = "old";
    Screen.lstCoordTypes[0].Selected = true;
    Open();
    EXPECT_EQ(Screen.txtProject, "North dam");
    EXPECT_EQ(Screen.txtTask, "");
    EXPECT_EQ(Screen.icmbDimension, 1);
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A\\"}));
    EXPECT_EQ(Selected(Screen.lstCoordDirectorys), "010");
    EXPECT_EQ(Selected(Screen.lstCoordTypes), "0010");
    EXPECT_EQ(Status.back(), "Project D:\\MY.GPF opened");
    EXPECT_EQ(Screen.trvInput.Find("D:\\A\\")->Image, "sclsfolder");
    EXPECT_EQ(Desktop.Dialogs.back().FileName, Path);
}

TEST_F(ProjectFile, OpenedTwiceDoesNotDoubleItsFolders) {
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    Save();
    Open();
    Open();
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A\\"}));
}

TEST_F(ProjectFile, AsksBeforeItOverwritesAndKeepsTheFileOnNo) {
    PutFile(Path, "former");
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessage("Project Exists", "Project D:\\MY.GPF already exists!  Do you wish to overwrite?",
                          Answer::No);
    SaveProject(Screen, Services());
    EXPECT_EQ(FileContent(Path), "former");
    EXPECT_EQ(Status, (std::vector<std::string>{"Project D:\\MY.GPF NOT saved"}));
    EXPECT_EQ(Desktop.Shown.back().Choices, Buttons::YesNo);
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    EXPECT_EQ(Last(), "");
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Project Exists", Answer::Yes);
    SaveProject(Screen, Services());
    EXPECT_EQ(FileContent(Path), "\r\n\r\n3\r\nEnd\r\nEnd\r\nEnd\r\n");
}

TEST_F(ProjectFile, ACancelledDialogChangesNothing) {
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    Save(std::nullopt);
    Open(std::nullopt);
    EXPECT_EQ(Folders().size(), 1u);
    EXPECT_TRUE(Status.empty());
}

TEST_F(ProjectFile, AMissingFileIsToldAndClearsNothing) {
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    Desktop.ExpectFile("", "D:\\NONE.GPF");
    Desktop.ExpectMessage("Not Found", "File D:\\NONE.GPF does not exist.  Can not open project");
    OpenProject(Screen, Services());
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_EQ(Folders().size(), 1u);
    EXPECT_EQ(Last(), "");
}

TEST_F(ProjectFile, AFolderLineThatHoldsEndAnywhereEndsTheSection) {
    PutLines(Path,
             {"P", "T", "3", "Laser>D:\\A\\", "Laser>D:\\APPEND\\", "DAM\\NORTH", "End", "Ideals", "End"});
    Open();
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A\\"}));
    EXPECT_EQ(Selected(Screen.lstCoordDirectorys), "010");
    EXPECT_EQ(Selected(Screen.lstCoordTypes), "0001");
}

TEST_F(ProjectFile, TheLastLineIsNeverLookedAt) {
    PutLines(Path, {"P", "T", "3", "End", "End", "Ideals", "Monuments"});
    Open();
    EXPECT_EQ(Selected(Screen.lstCoordTypes), "0001");
}

TEST_F(ProjectFile, LinesBehindTheLastEndAreNotRead) {
    PutLines(Path, {"P", "T", "3", "End", "End", "End", "Monuments", "End"});
    Open();
    EXPECT_EQ(Selected(Screen.lstCoordTypes), "0000");
}

TEST_F(ProjectFile, AnUnknownEntrySelectsNothing) {
    PutLines(Path, {"P", "T", "3", "End", "DAM\\WEST", "dam\\north", "End", "ideals", "End"});
    Open();
    EXPECT_EQ(Selected(Screen.lstCoordDirectorys), "000");
    EXPECT_EQ(Selected(Screen.lstCoordTypes), "0000");
}

TEST_F(ProjectFile, AFolderOfATypeThatIsGoneIsReportedAndLeftOut) {
    PutLines(Path, {"P", "T", "3", "Laser>D:\\A\\", "Gone>D:\\B\\", "Levelling>D:\\C\\", "End", "DAM\\NORTH",
                    "End", "Ideals", "End"});
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Program Error");
    OpenProject(Screen, Services());
    EXPECT_EQ(LastReport(Desktop), "35601 Dorvane-frmInput-mnuOpenProject");
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A\\", "Levelling>D:\\C\\"}));
    EXPECT_EQ(Selected(Screen.lstCoordDirectorys), "010");
    EXPECT_EQ(Selected(Screen.lstCoordTypes), "0001");
}

TEST_F(ProjectFile, AFolderThatStandsThereTwiceIsReportedAndTakenOnce) {
    PutLines(Path,
             {"P", "T", "3", "Laser>D:\\A\\", "Levelling>D:\\A\\", "Laser>D:\\C\\", "End", "End", "End"});
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Program Error");
    OpenProject(Screen, Services());
    EXPECT_EQ(LastReport(Desktop), "35602 Dorvane-frmInput-mnuOpenProject");
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A\\", "Laser>D:\\C\\"}));
}

TEST_F(ProjectFile, AFolderUnderWhatIsNoTypeIsReportedAndLeftOut) {
    PutLines(Path,
             {"P", "T", "3", "Data Types>D:\\A\\", "Laser>D:\\B\\", "D:\\B\\>D:\\C\\", "End", "End", "End"});
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Program Error");
    Desktop.ExpectMessageTitled("Program Error");
    OpenProject(Screen, Services());
    EXPECT_EQ(LastReport(Desktop), "35601 Dorvane-frmInput-mnuOpenProject");
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\B\\"}));
    EXPECT_EQ(Screen.trvInput.Nodes().size(), 7u);
}

TEST_F(ProjectFile, DescriptionsComeBackWithoutTheBlanksAroundThem) {
    PutLines(Path, {"  North  dam ", "  Epoch 12  ", "3", "End", "End", "End"});
    Open();
    EXPECT_EQ(Screen.txtProject, "North  dam");
    EXPECT_EQ(Screen.txtTask, "Epoch 12");
}

TEST_F(ProjectFile, AFolderLineIsCutAtItsFirstMark) {
    PutLines(Path, {"P", "T", "3", "Laser>D:\\A>B\\C>D\\", "End", "End", "End"});
    Open();
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A>B\\C>D\\"}));
}

TEST_F(ProjectFile, ANameThatEndsAListIsToldBeforeItIsSaved) {
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\Append\\");
    AddTreeFolder(Screen.trvInput, "Distances", "D:\\C\\");
    Screen.lstCoordDirectorys[1].Selected = true;
    Screen.lstCoordTypes[3].Selected = true;
    const std::string lost =
        "The letters \"End\" in Laser>D:\\Append\\ end a list of the project when it is opened.  These will "
        "be "
        "lost then:\r\n\r\nLaser>D:\\Append\\\r\nDistances>D:\\C\\\r\nDAM\\NORTH\r\nIdeals\r\n\r\nDo you "
        "wish "
        "to save the project all the same?";
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessage("Project Incomplete", lost, Answer::No);
    EXPECT_FALSE(SaveProject(Screen, Services()));
    EXPECT_EQ(Status.back(), "Project D:\\MY.GPF NOT saved");
    EXPECT_TRUE(AllFiles("D:\\TARVEX\\").empty());
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessage("Project Incomplete", lost, Answer::Yes);
    EXPECT_TRUE(SaveProject(Screen, Services()));
    EXPECT_EQ(FileContent(Path),
              "\r\n\r\n3\r\nLaser>D:\\A\\\r\nLaser>D:\\Append\\\r\nDistances>D:\\C\\\r\nEnd\r\nDAM\\NORTH\r\n"
              "End\r\nIdeals\r\nEnd\r\n");
    Screen = OpenScreen({Located("NORTH"), Located("SOUTH")});
    Open();
    EXPECT_EQ(Folders(), (std::vector<std::string>{"Laser>D:\\A\\"}));
    EXPECT_EQ(Selected(Screen.lstCoordDirectorys) + Selected(Screen.lstCoordTypes), "0000000");
}

TEST_F(ProjectFile, ALocationThatEndsAListIsToldToo) {
    Screen = OpenScreen({Located("NORTH"), Located("BEND")});
    Screen.lstCoordDirectorys[1].Selected = true;
    Screen.lstCoordDirectorys[2].Selected = true;
    Screen.lstCoordTypes[0].Selected = true;
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessage(
        "Project Incomplete",
        "The letters \"End\" in DAM\\BEND end a list of the project when it is opened.  These "
        "will be lost then:\r\n\r\nDAM\\BEND\r\n3 Dimensional\r\n\r\nDo you wish to save the "
        "project all the same?",
        Answer::No);
    SaveProject(Screen, Services());
}

TEST_F(ProjectFile, ManyLosesAreToldInPart) {
    for (int i = 0; i < 40; ++i)
        AddTreeFolder(Screen.trvInput, "Laser", "D:\\END" + std::to_string(i) + "\\");
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Project Incomplete", Answer::No);
    SaveProject(Screen, Services());
    EXPECT_NE(Desktop.Shown.back().Text.find("D:\\END11\\\r\nand 28 more\r\n"), std::string::npos)
        << Desktop.Shown.back().Text;
}

// What is asked when the screen is to be left.
class LeavingTheScreen : public ProjectFile {
  protected:
    bool Leave() { return MayLeave(Screen, Services()); }
    void ExpectQuestion(Answer answer) { Desktop.ExpectMessageTitled("Project Not Saved", answer); }
};

TEST_F(LeavingTheScreen, AsksNothingWhenNothingIsSetUp) {
    EXPECT_TRUE(Leave());
    Screen.icmbDimension = 1;
    EXPECT_TRUE(Leave());
}

TEST_F(LeavingTheScreen, AsksAboutAFolderADescriptionAndASelection) {
    const std::vector<std::function<void()>> changes = {
        [&] { AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\"); }, [&] { Screen.txtProject = "P"; },
        [&] { Screen.txtTask = "T"; }, [&] { Screen.lstCoordDirectorys[2].Selected = true; },
        [&] { Screen.lstCoordTypes[1].Selected = true; }};
    for (const auto& change : changes) {
        Screen = OpenScreen({Located("NORTH"), Located("SOUTH")});
        change();
        ExpectQuestion(Answer::No);
        EXPECT_TRUE(Leave());
        ExpectQuestion(Answer::Cancel);
        EXPECT_FALSE(Leave());
    }
    EXPECT_EQ(Desktop.Shown.back().Choices, Buttons::YesNoCancel);
}

TEST_F(LeavingTheScreen, AsksNothingAfterSavingOrOpeningUntilSomethingIsChanged) {
    Screen.txtProject = "P";
    Save();
    EXPECT_TRUE(Leave());
    Screen.icmbDimension = 2;
    ExpectQuestion(Answer::No);
    EXPECT_TRUE(Leave());
    Open();
    EXPECT_TRUE(Leave());
    AddTreeFolder(Screen.trvInput, "Laser", "D:\\A\\");
    ExpectQuestion(Answer::Cancel);
    EXPECT_FALSE(Leave());
}

TEST_F(LeavingTheScreen, AsksNothingAboutAProjectThatWasOpened) {
    PutLines(Path, {"P", "T", "2", "Laser>D:\\A\\", "End", "DAM\\NORTH", "End", "Ideals", "End"});
    Open();
    EXPECT_TRUE(Leave());
    Screen.txtTask = "T2";
    ExpectQuestion(Answer::No);
    EXPECT_TRUE(Leave());
}

TEST_F(LeavingTheScreen, YesSavesAndStaysWhenThatComesToNothing) {
    Screen.txtProject = "P";
    ExpectQuestion(Answer::Yes);
    Desktop.ExpectFile("", std::nullopt);
    EXPECT_FALSE(Leave());
    ExpectQuestion(Answer::Yes);
    Desktop.ExpectFile("", "D:\\NONE\\A.GPF");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_FALSE(Leave());
    ExpectQuestion(Answer::Yes);
    Desktop.ExpectFile("", Path);
    EXPECT_TRUE(Leave());
    EXPECT_EQ(FileLines(Path).at(0), "P");
}

TEST_F(ProjectFile, ADimensionTheScreenDoesNotHaveIsReported) {
    PutLines(Path, {"P", "T", "4", "End", "End", "End"});
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Program Error");
    OpenProject(Screen, Services());
    EXPECT_EQ(LastReport(Desktop), "35600 Dorvane-frmInput-mnuOpenProject");
    EXPECT_EQ(Screen.icmbDimension, 3);
}

TEST_F(ProjectFile, AFolderLineWithoutItsMarkIsReported) {
    PutLines(Path, {"P", "T", "3", "D:\\A\\", "End", "End", "End"});
    Desktop.ExpectFile("", Path);
    Desktop.ExpectMessageTitled("Program Error");
    OpenProject(Screen, Services());
    EXPECT_EQ(LastReport(Desktop), "5 Dorvane-frmInput-mnuOpenProject");
}

TEST_F(ProjectFile, AnEmptyOrCutFileIsSilent) {
    for (const char* content : {"", "P\r\n", "P\r\nT\r\n3"}) {
        PutFile(Path, content);
        Open();
    }
    EXPECT_EQ(Screen.txtTask, "T");
}

TEST_F(ProjectFile, ASeventhSectionIsTold) {
    std::int16_t section = 7;
    Desktop.ExpectMessage("Error Reading", "Error in reading project file D:\\MY.GPF.  Can not continue.");
    EXPECT_FALSE(TakeProjectLine(Screen, section, "text", Path));
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
}

TEST_F(ProjectFile, AFolderThatDoesNotExistIsReportedAtSaving) {
    Desktop.ExpectFile("", "D:\\NONE\\A.GPF");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    SaveProject(Screen, Services());
    EXPECT_EQ(LastReport(Desktop), "76 Dorvane-frmInput-mnuSaveProject");
    EXPECT_TRUE(Status.empty());
    EXPECT_EQ(Last(), "");
}

TEST_F(ProjectFile, AFullDiskLeavesTheFormerProject) {
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [this] {
        PutFile("D:\\SMALL\\A.GPF", "former");
        PutFile("D:\\SMALL\\FILL", std::string(40000, 'x'));
        Screen.txtProject = std::string(40000, 'p');
        Desktop.ExpectFile("", "D:\\SMALL\\A.GPF");
        Desktop.ExpectMessageTitled("Project Exists", Answer::Yes);
        Desktop.ExpectMessageTitled("Program Error", Answer::No);
        SaveProject(Screen, Services());
        EXPECT_EQ(LastReport(Desktop), "61 Dorvane-frmInput-mnuSaveProject");
        EXPECT_EQ(FileContent("D:\\SMALL\\A.GPF"), "former");
        EXPECT_EQ(AllFiles("D:\\SMALL\\"), (std::vector<std::string>{"A.GPF", "FILL"}));
    });
}

}  // namespace
}  // namespace Dorvane::Testing
