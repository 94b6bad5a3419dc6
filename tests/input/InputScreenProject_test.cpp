// SPDX-License-Identifier: GPL-3.0-or-later
#include <QWindow>
#include <random>

#include "core/basGeneral.h"
#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using namespace std::string_literals;
using ::testing::IsEmpty;

const std::string Project = "D:\\MY.GPF";

class InputScreenProject : public InputScreenSite {
  protected:
    void Save(const std::optional<std::string>& path = Project) {
        Desktop.ExpectFile("", path);
        Choose(*Screen, "mnuSaveProject");
    }

    void Load(const std::optional<std::string>& path = Project) {
        Desktop.ExpectFile("", path);
        Choose(*Screen, "mnuOpenProject");
    }

    /// Opens or saves the project and meets a failure on the way.
    void Fail(const char* entry, const std::string& path = Project) {
        Desktop.ExpectFile("", path);
        Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
        Choose(*Screen, entry);
    }

    std::string Last() { return IniReadString("dv_input.ini", "Project", "Last"); }
};

TEST_F(InputScreenProject, KeepsEverythingThatWasSetUp) {
    Open();
    Field("txtProject")
        .setText(ToScreen("D\xE9"
                          "fense & <b>dam</b>"));
    Field("txtTask").setText(QStringLiteral("Epoch 12"));
    Combo("icmbDimension").setCurrentIndex(1);
    Import(Survey);
    ClickItem(*Screen, "lstCoordTypes", "Ideals");
    ClickItem(*Screen, "lstCoordDirectorys", "User Defined");
    ClickItem(*Screen, "lstCoordDirectorys", "DAM\\SOUTH");
    Save();
    EXPECT_EQ(Status(), "Project D:\\MY.GPF saved");
    EXPECT_EQ(FileContent(Project),
              "D\xE9"
              "fense & <b>dam</b>\r\nEpoch 12\r\n2\r\nLaser>" +
                  Survey + "\r\nEnd\r\nUser Defined\r\nDAM\\SOUTH\r\nEnd\r\nIdeals\r\nEnd\r\n");
    Screen->Unload();
    HandleEvents();
    Open();
    Load();
    EXPECT_EQ(Desktop.Dialogs.back().FileName, Project);
    EXPECT_EQ(Status(), "Project D:\\MY.GPF opened");
    EXPECT_EQ(TextOf(*Screen, "txtProject"),
              "D\xE9"
              "fense & <b>dam</b>");
    EXPECT_EQ(TextOf(*Screen, "txtTask"), "Epoch 12");
    EXPECT_EQ(Combo("icmbDimension").currentText(), QLatin1String("2 Dimension"));
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    EXPECT_TRUE(Node("Laser").isExpanded());
    EXPECT_EQ(Selected("lstCoordTypes"), (Texts{"Ideals"}));
    EXPECT_EQ(Selected("lstCoordDirectorys"), (Texts{"User Defined", "DAM\\SOUTH"}));
    EXPECT_TRUE(IsEnabled(*Screen, "cmdBrowse"));
}

TEST_F(InputScreenProject, TakesTheSelectionsOfTheFormerOneAway) {
    PutLines(Project, {"P", "", "3", "End", "End", "End"});
    Open();
    Import(Survey);
    ClickItem(*Screen, "lstCoordDirectorys", "User Defined");
    ClickItem(*Screen, "lstCoordTypes", "Ideals");
    Load();
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_THAT(Selected("lstCoordDirectorys"), IsEmpty());
    EXPECT_THAT(Selected("lstCoordTypes"), IsEmpty());
    EXPECT_FALSE(IsEnabled(*Screen, "cmdBrowse"));
    EXPECT_EQ(TextOf(*Screen, "txtProject"), "P");
    EXPECT_EQ(TextOf(*Screen, "txtTask"), "");
}

TEST_F(InputScreenProject, DoesNotDoubleItsFoldersWhenItIsOpenedTwice) {
    PutLines(Project, {"P", "T", "3", "Laser>D:\\A\\", "Distances>D:\\B\\", "End", "End", "End"});
    Open();
    Load();
    Load();
    EXPECT_EQ(Folders(), (Texts{"Laser>D:\\A\\", "Distances>D:\\B\\"}));
}

TEST_F(InputScreenProject, OpensTheTypesOfAllItsFolders) {
    PutLines(Project, {"P", "T", "3", "Laser>D:\\A\\", "Distances>D:\\B\\", "End", "End", "End"});
    Open();
    Load();
    EXPECT_TRUE(Node("Laser").isExpanded());
    EXPECT_TRUE(Node("Distances").isExpanded());
}

TEST_F(InputScreenProject, IsNotOverwrittenUnasked) {
    PutFile(Project, "former");
    Open();
    Desktop.ExpectFile("", Project);
    Desktop.ExpectMessage("Project Exists", "Project D:\\MY.GPF already exists!  Do you wish to overwrite?",
                          Answer::No);
    Choose(*Screen, "mnuSaveProject");
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    EXPECT_EQ(Status(), "Project D:\\MY.GPF NOT saved");
    EXPECT_EQ(FileContent(Project), "former");
}

TEST_F(InputScreenProject, SaysThatItIsNotThere) {
    Open();
    Desktop.ExpectFile("", "D:\\GONE.GPF");
    Desktop.ExpectMessage("Not Found", "File D:\\GONE.GPF does not exist.  Can not open project");
    Choose(*Screen, "mnuOpenProject");
    EXPECT_EQ(Status(), "Choose data type to import");
}

TEST_F(InputScreenProject, StaysUntouchedByACancelledDialog) {
    Open();
    Import(Survey);
    Load(std::nullopt);
    Save(std::nullopt);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    EXPECT_EQ(Status(), "Choose data type to import");
    EXPECT_EQ(Last(), "");
}

TEST_F(InputScreenProject, AFolderOfATypeThatIsGoneIsReportedAndLeftOut) {
    PutLines(Project, {"P", "T", "1", "Laser>D:\\A\\", "Sextant>D:\\B\\", "Laser>D:\\C\\", "End",
                       "DAM\\NORTH", "End", "Ideals", "End"});
    Open();
    Fail("mnuOpenProject");
    EXPECT_EQ(LastReport(Desktop), "35601 Dorvane-frmInput-mnuOpenProject");
    EXPECT_EQ(Folders(), (Texts{"Laser>D:\\A\\", "Laser>D:\\C\\"}));
    EXPECT_EQ(TextOf(*Screen, "txtProject"), "P");
    EXPECT_EQ(Combo("icmbDimension").currentText(), QLatin1String("1 Dimension"));
    EXPECT_EQ(Selected("lstCoordDirectorys"), (Texts{"DAM\\NORTH"}));
    EXPECT_EQ(Selected("lstCoordTypes"), (Texts{"Ideals"}));
}

TEST_F(InputScreenProject, AFolderNamedAppendEndsTheFoldersEarly) {
    PutLines(Project, {"P", "T", "3", "Laser>D:\\A\\", "Laser>D:\\APPEND\\", "Laser>D:\\C\\", "End", "End"});
    Open();
    Load();
    EXPECT_EQ(Folders(), (Texts{"Laser>D:\\A\\"}));
}

TEST_F(InputScreenProject, AForeignDimensionIsReportedAndTheFormerStays) {
    PutLines(Project, {"P", "T", "7", "Laser>D:\\A\\", "End", "End", "End"});
    Open();
    Fail("mnuOpenProject");
    EXPECT_EQ(LastReport(Desktop), "35600 Dorvane-frmInput-mnuOpenProject");
    EXPECT_EQ(Combo("icmbDimension").currentText(), QLatin1String("3 Dimension"));
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(InputScreenProject, KeepsFoldersThatAreGoneAndTellsEachWhenAnInputFileIsCreated) {
    PutLines(Project, {"P", "T", "3", "Laser>D:\\GONE\\", "Laser>" + Survey, "Laser>Q:\\NOWHERE\\", "End",
                       "End", "End"});
    Open();
    Load();
    EXPECT_EQ(Folders(), (Texts{"Laser>D:\\GONE\\", "Laser>" + Survey, "Laser>Q:\\NOWHERE\\"}));
    for (const char* gone : {"D:\\GONE\\", "Q:\\NOWHERE\\"})
        Desktop.ExpectMessage("No Reduction File(s)", "No *.RES file(s) exist in the choosen directory " +
                                                          std::string(gone) + ".  Can not import any data.");
    Desktop.ExpectText("Enter VARN input file name", "NET");
    Desktop.ExpectMessageTitled("Input File Creation");
    Picked = Job;
    Click(*Screen, "cmdCreate");
    EXPECT_EQ(AllFiles(Job).size(), 4U);
}

TEST_F(InputScreenProject, IsAskedAboutOnEveryWayOutOfTheScreen) {
    const std::vector<std::function<void()>> ways = {
        [&] { Click(*Screen, "cmdHome"); }, [&] { Choose(*Screen, "mnuGoHome"); },
        [&] { Screen->windowHandle()->close(); }, [&] { Click(*Screen, "cmdVarn"); }};
    for (const auto& leave : ways) {
        Open();
        QTest::keyClicks(&Field("txtProject"), QStringLiteral("dam"));
        Picker.Calls.clear();
        Desktop.ExpectMessageTitled("Project Not Saved", Answer::Cancel);
        leave();
        HandleEvents();
        ASSERT_FALSE(Screen.isNull());
        EXPECT_TRUE(Screen->isVisible());
        EXPECT_EQ(TextOf(*Screen, "txtProject"), "dam");
        EXPECT_THAT(Picker.Calls, IsEmpty());
        Desktop.ExpectMessageTitled("Project Not Saved", Answer::No);
        leave();
        HandleEvents();
        EXPECT_TRUE(Screen.isNull());
        EXPECT_EQ(Picker.Calls.size(), 1U);
    }
}

TEST_F(InputScreenProject, IsSavedOnTheWayOutWhenAskedFor) {
    Open();
    QTest::keyClicks(&Field("txtProject"), QStringLiteral("dam"));
    Desktop.ExpectMessageTitled("Project Not Saved", Answer::Yes);
    Desktop.ExpectFile("", Project);
    Click(*Screen, "cmdHome");
    EXPECT_TRUE(Screen.isNull());
    EXPECT_EQ(FileLines(Project).at(0), "dam");
}

TEST_F(InputScreenProject, OfFortyFoldersIsShownWhole) {
    Texts lines = {"P", "T", "3"};
    Texts folders;
    for (int i = 1; i <= 40; ++i) {
        folders.push_back("Laser>D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV" + std::to_string(i) + "\\");
        lines.push_back(folders.back());
    }
    lines.insert(lines.end(), {"End", "End", "End"});
    PutLines(Project, lines);
    Open();
    Load();
    EXPECT_EQ(Folders(), folders);
    Save("D:\\OTHER.GPF");
    EXPECT_EQ(FileContent("D:\\OTHER.GPF"), FileContent(Project));
}

TEST_F(InputScreenProject, AReadOnlyFolderIsReported) {
    Open();
    AsNobody([&] {
        StopPainting();
        Fail("mnuSaveProject", "D:\\NEW.GPF");
        EXPECT_NE(LastReport(Desktop).find("Dorvane-frmInput-mnuSaveProject"), std::string::npos)
            << LastReport(Desktop);
        EXPECT_EQ(Status(), "Choose data type to import");
        EXPECT_FALSE(FileExists("D:\\NEW.GPF"));
    });
}

// Gives up on whatever it is asked, and has one file for every file dialog.
struct IndifferentDesktop : ScriptedDesktop {
    Answer ShowMessage(const Message&) override { return Answer::Cancel; }
    std::optional<std::string> AskFile(const FileDialog&) override { return Project; }
};

TEST_F(InputScreenProject, DamagedFilesLeaveTheScreenUsable) {
    Texts contents = {"",
                      "\r\n",
                      "\x1A",
                      std::string(3, '\0'),
                      std::string(1000000, 'A'),
                      "P\r\nT\r\n3\r\nLaser>" + std::string(1000000, 'A') + "\r\nEnd\r\n",
                      "P\r\nT\r\n99999999\r\n\r\n",
                      "P\r\nT\r\n-1\r\nEnd\r\nEnd\r\nEnd\r\n",
                      "P\r\nT\r\n2\r\n>\r\nEnd\r\n",
                      "P\r\nT\r\n2\r\nLaser>\r\nEnd\r\n",
                      "P\r\nT\r\n2\r\nData Types>D:\\X\\\r\nEnd\r\n",
                      "P\r\nT\r\n2\r\nLaser>Laser\r\nEnd\r\n",
                      "P\r\nT\r\n2\r\nLaser>D:\\X\\\r\nD:\\X\\>D:\\Y\\\r\nEnd\r\n",
                      "P\r\nT\r\n2\r\nLaser>D:\\X\\\r\nLaser>D:\\X\\\r\nEnd\r\n",
                      FileContent("P:\\DORVANE\\graphics\\gears.svg")};
    std::mt19937 random(20261121);
    for (int i = 0; i < 60; ++i) {
        std::string content = "P\r\nT\r\n3\r\nLaser>D:\\A\\\r\nEnd\r\nDAM\\NORTH\r\nEnd\r\nIdeals\r\nEnd\r\n";
        for (int hits = 0; hits < 4; ++hits)
            content[random() % content.size()] = static_cast<char>(random() % 256);
        contents.push_back(content.substr(0, random() % content.size()));
    }
    Open();
    for (const std::string& content : contents) {
        PutFile(Project, content);
        {
            IndifferentDesktop desktop;
            Choose(*Screen, "mnuOpenProject");
            EXPECT_EQ(Status(), "Project D:\\MY.GPF opened");
        }
        EXPECT_GE(Combo("icmbDimension").currentIndex(), 0);
        Choose(*Screen, "mnuClearAllObs");
        EXPECT_EQ(Tree().topLevelItemCount(), 1);
    }
    Import(Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

}  // namespace
}  // namespace Dorvane::Testing
