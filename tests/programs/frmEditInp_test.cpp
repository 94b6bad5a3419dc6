// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditInp.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "adjustment/Versions.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/InputRowTree.h"
#include "tests/programs/InputSample.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
const std::string Folder = "D:\\TARVEX\\DAM\\";

struct frmEditInpTest : testing::Test {
    frmEditInpTest() {
        Site.LayOut();
        PutFile(Folder + "NET.INP", SampleInput);
        PutFile(Folder + "NET.ORG", SampleTaggedRows);
        PutFile(Folder + "NET.VER", EmptyNote);
    }
    ~frmEditInpTest() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void Open(const std::string& name) {
        Form = new frmEditInp(Folder + name);
        Form->show();
        HandleEvents();
    }
    InputRowTree& Tree(const char* name) { return Control<InputRowTree>(*Form, name); }

    static QTreeWidgetItem* Find(InputRowTree& tree, const std::string& name, const std::string& below) {
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = tree.topLevelItem(i);
            if (item->text(0) != ToScreen(name))
                continue;
            if (below.empty())
                return item;
            for (int child = 0; child < item->childCount(); ++child)
                if (item->child(child)->text(0) == ToScreen(below))
                    return item->child(child);
        }
        return nullptr;
    }
    /// Ticks a row by the keyboard, as an operator would.
    void Tick(const char* treeName, const std::string& name, const std::string& below = "") {
        InputRowTree& tree = Tree(treeName);
        Control<QTabWidget>(*Form, "sstabRows").setCurrentWidget(&tree);
        QTreeWidgetItem* item = Find(tree, name, below);
        ASSERT_NE(item, nullptr) << name;
        tree.setFocus();
        tree.setCurrentItem(item);
        QTest::keyClick(&tree, Qt::Key_Space);
        HandleEvents();
    }
    /// The rows of a tree, "+" what is ticked, "*" what is ticked in part, "!" what cannot be changed.
    std::vector<std::string> Rows(const char* name) {
        InputRowTree& tree = Tree(name);
        std::vector<std::string> rows;
        const auto add = [&](const QTreeWidgetItem* item, const std::string& before) {
            const Qt::CheckState state = item->checkState(0);
            const char* mark = state == Qt::Checked ? "+" : state == Qt::PartiallyChecked ? "*" : "";
            rows.push_back(before + FromScreen(item->text(0)) + mark + (item->isDisabled() ? "!" : ""));
        };
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = tree.topLevelItem(i);
            if (item->isHidden())
                continue;
            add(item, "");
            for (int child = 0; child < item->childCount(); ++child)
                if (!item->child(child)->isHidden())
                    add(item->child(child), "-");
        }
        return rows;
    }
    QString Tab(int index) { return Control<QTabWidget>(*Form, "sstabRows").tabText(index); }

    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<ScreenDialog> Form;
};

}  // namespace

TEST_F(frmEditInpTest, ShowsTheRowsOfAMasterByKindAndStation) {
    Open("NET.INP");
    EXPECT_EQ(TextOf(*Form), "Edit Input File");
    EXPECT_EQ(TextOf(*Form, "lblVersion"), "Master :");
    EXPECT_EQ(TextOf(*Form, "lblFile"), Folder + "NET.INP");
    EXPECT_EQ(Tab(0), "Stations (2)");
    EXPECT_EQ(Tab(3), "Total (2)");
    EXPECT_EQ(Tab(6), "Height (1)");
    EXPECT_THAT(Rows("trvStations"), ElementsAre("ST1", "ST2"));
    EXPECT_THAT(Rows("trvPoints"), ElementsAre("P7", "P8", "P9", "ST2"));
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1", "-P8", "-P8"));
    EXPECT_THAT(Rows("trvHeight"), ElementsAre("P7", "-P8"));
    const QTreeWidgetItem* tracker = Find(Tree("trvTracker"), "ST1", "P7");
    ASSERT_NE(tracker, nullptr);
    EXPECT_EQ(tracker->text(1), "25.12345");
    EXPECT_EQ(tracker->text(7), "26");
    const QTreeWidgetItem* station = Find(Tree("trvStations"), "ST1", "");
    EXPECT_EQ(station->text(4), "4");
    EXPECT_FALSE(IsEnabled(*Form, "cmdSave")) << "the master is never written";
    EXPECT_TRUE(IsEnabled(*Form, "cmdSaveNew"));
    EXPECT_FALSE(IsShown(*Form, "lblProblem"));
    EXPECT_EQ(TextOf(*Form, "lblSummary"), "Nothing is left out.");
    EXPECT_TRUE(Tree("trvStations").hasFocus());
}

TEST_F(frmEditInpTest, TakesAStationWithItsObservationsAndGivesThemBack) {
    Open("NET.INP");
    Tick("trvStations", "ST1");
    EXPECT_THAT(Rows("trvStations"), ElementsAre("ST1+", "ST2"));
    EXPECT_THAT(Rows("trvTracker"), ElementsAre("ST1+", "-P7+!", "-P7+!"));
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1+", "-P8+!", "-P8+!"));
    EXPECT_EQ(TextOf(*Form, "lblSummary"), "Left out: 1 station, 0 points, 4 rows of observations");
    Tick("trvTotal", "ST1");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1+", "-P8+!", "-P8+!")) << "they go with the station";
    Tick("trvStations", "ST1");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1", "-P8", "-P8"));
    EXPECT_EQ(TextOf(*Form, "lblSummary"), "Nothing is left out.");
}

TEST_F(frmEditInpTest, CountsTheOneRowThatGoesWithAPoint) {
    PutFile(Folder + "NET.INP",
            "Object Points\r\nP1        1.0 2.0 3.0\r\nP2\r\n\r\nEND\r\nDistances\r\n"
            "P2        P1           10.00000   0.00100\r\nEND\r\nFixed Coordinates\r\nP1\r\nEND\r\n");
    Open("NET.INP");
    Tick("trvPoints", "P1");
    EXPECT_EQ(
        TextOf(*Form, "lblSummary"),
        "Left out: 0 stations, 1 point, 1 row of observations and 1 row of fixed points or pairs that go "
        "with them");
}

TEST_F(frmEditInpTest, TakesAllRowsOfAStationByItsOwnTick) {
    Open("NET.INP");
    Tick("trvTotal", "ST1", "P8");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1*", "-P8+", "-P8"));
    Tick("trvTotal", "ST1");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1+", "-P8+", "-P8+"));
    Tick("trvTotal", "ST1");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1", "-P8", "-P8"));
}

TEST_F(frmEditInpTest, TakesByTheTickOfAStationNoRowThatGoesWithItsPoint) {
    std::string tagged = SampleTaggedRows;
    PutFile(Folder + "NET.ORG", tagged.replace(tagged.find("TRK"), 3, "TOT"));
    Open("NET.INP");
    Tick("trvPoints", "P8");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1*", "-P8+!", "-P8+!", "-P7"));
    Tick("trvTotal", "ST1");
    Tick("trvPoints", "P8");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1*", "-P8", "-P8", "-P7+"));
}

TEST_F(frmEditInpTest, SavesVersionAfterVersion) {
    Open("NET.INP");
    Tick("trvHeight", "P7", "P8");
    Control<QPlainTextEdit>(*Form, "txtComment").setPlainText(QString::fromUtf8("Höhe\nraus \n\n"));
    Desktop.ExpectMessage("Edit Input File", "Version 01 was saved.");
    Click(*Form, "cmdSaveNew");
    EXPECT_EQ(
        FileContent(Folder + "NET_v01.VER"),
        "[Stations]\r\n; H\xF6he\r\n; raus\r\n[Points]\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n[Distance]\r\n"
        "[Height]\r\nP7 P8 -1.25000 0.00050\r\n[Gyro]\r\n");
    Tick("trvHeight", "P7", "P8");
    Tick("trvAngle", "ST2", "P8");
    Desktop.ExpectMessage("Edit Input File", "Version 02 was saved.");
    Click(*Form, "cmdSaveNew");
    EXPECT_EQ(FileContent(Folder + "NET_v02.INP").size(),
              SampleInput.size() -
                  std::string("ST2       P8         12.00000   97.00000  0.00030 0.00040\r\n").size());
    EXPECT_EQ(FileContent(Folder + "NET.INP"), SampleInput);
    Click(*Form, "cmdClose");
    EXPECT_TRUE(Form.isNull()) << "all is saved";
}

TEST_F(frmEditInpTest, TellsWhatIsUsedNoMoreAndLeavesItOutIfAsked) {
    Open("NET.INP");
    Tick("trvDistance", "ST2", "P9");
    const std::string question = "No observation uses these any more:\r\n\r\nP9\r\n\r\nLeave them out too?";
    Desktop.ExpectMessage("Edit Input File", question, Answer::Cancel);
    Click(*Form, "cmdSaveNew");
    EXPECT_EQ(AllFiles(Folder).size(), 3U);
    Desktop.ExpectMessage("Edit Input File", question, Answer::No);
    Desktop.ExpectMessage("Edit Input File", "Version 01 was saved.");
    Click(*Form, "cmdSaveNew");
    EXPECT_NE(FileContent(Folder + "NET_v01.INP").find("P9\r\n"), std::string::npos);
    Desktop.ExpectMessage("Edit Input File", question, Answer::Yes);
    Desktop.ExpectMessage("Edit Input File", "Version 02 was saved.");
    Click(*Form, "cmdSaveNew");
    EXPECT_EQ(FileContent(Folder + "NET_v02.INP").find("P9\r\n"), std::string::npos);
    EXPECT_THAT(Rows("trvPoints"), ElementsAre("P7", "P8", "P9+", "ST2"));
}

TEST_F(frmEditInpTest, NamesTwentyOfTheUnusedAndCountsTheRest) {
    std::string points = "Object Points\r\n";
    std::string rows = "Distances\r\n";
    for (int i = 1; i <= 25; ++i) {
        points += fmt::format("P{}\r\n\r\n", i);
        rows += fmt::format("A         P{:<8}     10.00000   0.00100\r\n", i);
    }
    PutFile(Folder + "NET.INP", "Theodolite Stations\r\nA\r\n\r\nB\r\n\r\nEND\r\n" + points + "END\r\n" +
                                    rows + "B         P1           10.00000   0.00100\r\nEND\r\n");
    Open("NET.INP");
    Tick("trvDistance", "A");
    Desktop.ExpectMessageTitled("Edit Input File", Answer::Cancel);
    Click(*Form, "cmdSaveNew");
    const std::string& asked = Desktop.Shown.back().Text;
    EXPECT_NE(asked.find("\r\n\r\nA, P2, P3, "), std::string::npos) << asked;
    EXPECT_NE(asked.find(", P20 and 5 more\r\n\r\n"), std::string::npos) << asked;
}

TEST_F(frmEditInpTest, SavesNothingWithoutAnObservation) {
    Open("NET.INP");
    Tick("trvStations", "ST1");
    Tick("trvStations", "ST2");
    Tick("trvHeight", "P7", "P8");
    Desktop.ExpectMessage("Edit Input File", "No observation would be left.");
    Click(*Form, "cmdSaveNew");
    EXPECT_EQ(AllFiles(Folder).size(), 3U);
    Desktop.ExpectMessageTitled("Edit Input File", Answer::Yes);
    Click(*Form, "cmdClose");
}

TEST_F(frmEditInpTest, EditsAVersionOverItself) {
    PutFile(Folder + "NET_v01.INP", SampleInput);
    PutFile(Folder + "NET_v01.VER", "[Stations]\r\n; why\r\n[Points]\r\nOLD\r\n");
    Open("NET_v01.INP");
    EXPECT_EQ(TextOf(*Form, "lblVersion"), "Version 01 :");
    EXPECT_EQ(Control<QPlainTextEdit>(*Form, "txtComment").toPlainText(), "why");
    Tick("trvHeight", "P7");
    Control<QLineEdit>(*Form, "txtFind").setText("p8");
    Click(*Form, "cmdSave");
    EXPECT_THAT(Rows("trvPoints"), ElementsAre("P8")) << "what is looked for stays";
    EXPECT_EQ(TextOf(*Form, "lblSummary"), "Version 01 was saved.");
    EXPECT_EQ(Tab(6), "Height (0)");
    EXPECT_EQ(FileContent(Folder + "NET_v01.VER"),
              "[Stations]\r\n; why\r\n[Points]\r\nOLD\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n[Distance]\r\n"
              "[Height]\r\nP7 P8 -1.25000 0.00050\r\n[Gyro]\r\n");
    Click(*Form, "cmdClose");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(frmEditInpTest, AsksBeforeChangesAreLost) {
    Open("NET.INP");
    Tick("trvHeight", "P7");
    Desktop.ExpectMessage("Edit Input File", "The changes are not saved.  Leave all the same?", Answer::No);
    Form->close();
    HandleEvents();
    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    Desktop.ExpectMessage("Edit Input File", "The changes are not saved.  Leave all the same?", Answer::Yes);
    QTest::keyClick(Form.data(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Form.isNull());

    Open("NET.INP");
    Control<QPlainTextEdit>(*Form, "txtComment").setPlainText("why");
    Desktop.ExpectMessageTitled("Edit Input File", Answer::Yes);
    Click(*Form, "cmdClose");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(frmEditInpTest, ShowsOnlyTheNamesThatAreLookedFor) {
    Open("NET.INP");
    Control<QLineEdit>(*Form, "txtFind").setText("p8");
    EXPECT_THAT(Rows("trvPoints"), ElementsAre("P8"));
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1", "-P8", "-P8"));
    EXPECT_TRUE(Rows("trvTracker").empty());
    Control<QLineEdit>(*Form, "txtFind").setText("st1");
    EXPECT_THAT(Rows("trvTotal"), ElementsAre("ST1", "-P8", "-P8"));
    Control<QLineEdit>(*Form, "txtFind").clear();
    EXPECT_EQ(Rows("trvPoints").size(), 4U);
}

TEST_F(frmEditInpTest, MakesNoVersionOfAFileItCannotReadWholly) {
    PutFile(Folder + "NET.INP", "Distances\r\nA B 10.0 0.1\r\nA B ten 0.1\r\nEND\r\n");
    Open("NET.INP");
    EXPECT_TRUE(IsShown(*Form, "lblProblem"));
    EXPECT_EQ(TextOf(*Form, "lblProblem"),
              "The file cannot be read fully, so no version is made of it: Line 3 has not the fields of its "
              "section (station, target, distance, standard error): A B ten 0.1");
    EXPECT_FALSE(IsEnabled(*Form, "cmdSaveNew"));
    EXPECT_FALSE(IsEnabled(*Form, "cmdSave"));
    EXPECT_FALSE(Tree("trvDistance").isEnabled());
    Click(*Form, "cmdClose");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(frmEditInpTest, ReportsAFullDiskAndStaysWithItsTicks) {
    InFreshProcess([&] {
        MakeFolders("D:\\SMALL\\");
        OnSmallDisk("D:\\SMALL", 64, [&] {
            PutFile("D:\\SMALL\\NET.INP", SampleInput);
            PutFile("D:\\SMALL\\FILL.DAT", std::string(56 * 1024, 'x'));
            Form = new frmEditInp("D:\\SMALL\\NET.INP");
            Control<QPlainTextEdit>(*Form, "txtComment").setPlainText(QString(8 * 1024, 'y'));
            Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
            Control<QPushButton>(*Form, "cmdSaveNew").click();
            EXPECT_THAT(AllFiles("D:\\SMALL\\"), ElementsAre("FILL.DAT", "NET.INP"));
            delete Form;
        });
    });
}

TEST_F(frmEditInpTest, ReportsAFolderThatMayNotBeWritten) {
    InFreshProcess([&] {
        AsNobody([&] {
            Form = new frmEditInp(Folder + "NET.INP");
            Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
            Control<QPushButton>(*Form, "cmdSaveNew").click();
            EXPECT_EQ(AllFiles(Folder).size(), 3U);
            delete Form;
        });
    });
}

}  // namespace Dorvane::Testing
