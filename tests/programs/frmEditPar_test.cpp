// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditPar.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "core/widgets/ScreenText.h"
#include "programs/editors/EntryTable.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string Path = "D:\\TARVEX\\DAM\\NET.PAR";
const std::string File = "; head\r\nITERATIONS = 10   ; at most\r\nodd line\r\nOTHER = x\r\n";

struct frmEditParTest : testing::Test {
    frmEditParTest() {
        Site.LayOut();
        PutFile(Path, File);
    }
    ~frmEditParTest() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void Open(const std::string& path) {
        Form = new frmEditPar(path);
        Form->show();
        HandleEvents();
    }
    QTableWidget& Grid() { return Control<EntryTable>(*Form, "tblParameters").Table(); }
    std::string Cell(int row, int column) { return FromScreen(Grid().item(row, column)->text()); }
    void TypeInto(int row, int column, const std::string& text) {
        Grid().setCurrentCell(row, column);
        if (Grid().findChild<QLineEdit*>() == nullptr)  // a new line is open for its key
            Grid().editItem(Grid().item(row, column));
        if (auto* list = Grid().findChild<QComboBox*>("cmbField")) {
            list->addItem(ToScreen(text));
            list->setCurrentIndex(list->count() - 1);
            emit list->activated(list->count() - 1);
            return HandleEvents();
        }
        auto* edit = Grid().findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        edit->insert(ToScreen(text));
        QTest::keyClick(edit, Qt::Key_Return);
        HandleEvents();
    }
    void Add() {
        Click(*Form, "cmdAdd");
        HandleEvents();
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<ScreenDialog> Form;
};

}  // namespace

TEST_F(frmEditParTest, ShowsKeysValuesAndComments) {
    Open(Path);
    EXPECT_EQ(TextOf(*Form), "Edit Parameter File");
    EXPECT_EQ(TextOf(*Form, "lblFile"), Path);
    ASSERT_EQ(Grid().rowCount(), 2);
    EXPECT_EQ(Cell(0, 0) + "|" + Cell(0, 1) + "|" + Cell(0, 2), "ITERATIONS|10|at most");
    EXPECT_EQ(Cell(1, 0) + "|" + Cell(1, 1), "OTHER|x");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path), File);
}

TEST_F(frmEditParTest, ChangesAddsAndRemovesEntries) {
    Open(Path);
    TypeInto(0, 1, "25");
    Grid().setCurrentCell(0, 1);
    Add();
    TypeInto(1, 0, "SCALE");
    TypeInto(1, 1, "ON");
    TypeInto(1, 2,
             "gr\xF6\xDF"
             "er");
    Grid().setCurrentCell(2, 0);
    Click(*Form, "cmdRemove");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path),
              "; head\r\nITERATIONS = 25   ; at most\r\nSCALE = ON   ; gr\xF6\xDF"
              "er\r\nodd line\r\n");
}

TEST_F(frmEditParTest, LeavesACommentBehindTheLastEntryWhereALineIsAdded) {
    PutFile(Path, "ITERATIONS = 10\r\n; end\r\n");
    Open(Path);
    Add();
    TypeInto(1, 0, "SCALE");
    TypeInto(1, 1, "ON");
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent(Path), "ITERATIONS = 10\r\nSCALE = ON\r\n; end\r\n");
}

TEST_F(frmEditParTest, OffersTheWordsOfAKeyAsAList) {
    PutFile(Path, "SETUPS = BLOCK\r\nITERATIONS = 10\r\n");
    Open(Path);
    Grid().setCurrentCell(0, 1);
    Grid().editItem(Grid().item(0, 1));
    auto* list = Grid().findChild<QComboBox*>("cmbField");
    ASSERT_NE(list, nullptr);
    std::string words;
    for (int i = 0; i < list->count(); ++i)
        words += FromScreen(list->itemText(i)) + " ";
    EXPECT_EQ(words, "STATION BLOCK SET ");
    EXPECT_EQ(list->currentText(), QStringLiteral("BLOCK"));
    list->setCurrentIndex(2);
    emit list->activated(2);
    HandleEvents();
    Grid().setCurrentCell(1, 1);
    Grid().editItem(Grid().item(1, 1));
    EXPECT_EQ(Grid().findChild<QComboBox*>("cmbField"), nullptr);
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent(Path), "SETUPS = SET\r\nITERATIONS = 10\r\n");
}

TEST_F(frmEditParTest, MakesANewFileWithAllKeysAtTheirDefaults) {
    Open("D:\\TARVEX\\DAM\\NEW.PAR");
    EXPECT_EQ(TextOf(*Form, "lblNote"),
              "The file does not exist yet; OK makes it. The values are those that hold without it.");
    ASSERT_EQ(Grid().rowCount(), static_cast<int>(Krenn::ParameterKeys().size()));
    EXPECT_EQ(Cell(0, 0) + "|" + Cell(0, 1) + "|" + Cell(0, 2),
              "DIRECTIONS|ON|horizontal directions take part [OFF or ON, default ON]");
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent("D:\\TARVEX\\DAM\\NEW.PAR"), Krenn::DefaultParameterText());
}

TEST_F(frmEditParTest, MakesTheFileOfAVersionFromThatOfItsMaster) {
    PutFile(Path, "; ours\r\nITERATIONS = 10\r\n");
    Open("D:\\TARVEX\\DAM\\NET_v01.PAR");
    EXPECT_EQ(TextOf(*Form, "lblNote"),
              "This version is adjusted with NET.PAR so far; OK makes it a file of its own.");
    TypeInto(0, 1, "11");
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent("D:\\TARVEX\\DAM\\NET_v01.PAR"), "; ours\r\nITERATIONS = 11\r\n");
    EXPECT_EQ(FileContent(Path), "; ours\r\nITERATIONS = 10\r\n");
}

TEST_F(frmEditParTest, AsksBeforeChangesAreLost) {
    const std::string question = "The changes are not saved.  Leave all the same?";
    Open(Path);
    TypeInto(0, 1, "25");
    Desktop.ExpectMessage("Edit Parameter File", question, Answer::No);
    Click(*Form, "cmdCancel");
    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(Cell(0, 1), "25");
    Desktop.ExpectMessage("Edit Parameter File", question, Answer::Yes);
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path), File);
    Open(Path);
    Control<QComboBox>(*Form, "cmbKnown").setCurrentIndex(3);
    Click(*Form, "cmdAddKnown");
    Desktop.ExpectMessage("Edit Parameter File", question, Answer::Yes);
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(frmEditParTest, LeavesNoFileWhenCancelled) {
    Open("D:\\TARVEX\\DAM\\NEW.PAR");
    QTest::keyClick(Form.data(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(AllFiles("D:\\TARVEX\\DAM\\").size(), 1U);
}

TEST_F(frmEditParTest, OffersExplainsAndChecksTheKeysOfTheAdjustment) {
    Open(Path);
    auto& known = Control<QComboBox>(*Form, "cmbKnown");
    ASSERT_EQ(known.count(), static_cast<int>(Krenn::ParameterKeys().size()));
    for (int i = 0; i < known.count(); ++i)
        EXPECT_EQ(known.itemText(i), QString(Krenn::ParameterKeys()[static_cast<std::size_t>(i)].key));
    EXPECT_EQ(TextOf(*Form, "lblMeaning"), "ITERATIONS: iterations at most; takes 1 to 500, without it 50");
    Grid().setCurrentCell(1, 0);
    EXPECT_EQ(TextOf(*Form, "lblMeaning"), "The adjustment does not know the key OTHER.");
    known.setCurrentText("CURVATURE");
    Click(*Form, "cmdAddKnown");
    EXPECT_EQ(TextOf(*Form, "lblMeaning"),
              "CURVATURE: the earth is a sphere of radius 6372508.025 m; takes OFF or ON, without it OFF");
    EXPECT_EQ(Cell(2, 1), "OFF");
    TypeInto(0, 1, "501");
    Desktop.ExpectMessage("Edit Parameter File", "\"501\" is out of range; ITERATIONS takes 1 to 500.");
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    TypeInto(0, 1, "500");
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent(Path),
              "; head\r\nITERATIONS = 500   ; at most\r\nodd line\r\nOTHER = x\r\nCURVATURE = OFF\r\n");
}

TEST_F(frmEditParTest, ShowsAKeyThatIsThereInsteadOfAddingIt) {
    Open(Path);
    Grid().setCurrentCell(1, 0);
    Control<QComboBox>(*Form, "cmbKnown").setCurrentText("ITERATIONS");
    Click(*Form, "cmdAddKnown");
    EXPECT_EQ(Grid().rowCount(), 2);
    EXPECT_EQ(Grid().currentRow(), 0);
}

TEST_F(frmEditParTest, ReportsAFileThatMayNotBeWrittenAndStays) {
    InFreshProcess([&] {
        AsNobody([&] {
            Form = new frmEditPar(Path);
            Grid().item(0, 1)->setText("30");
            Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
            Control<QPushButton>(*Form, "cmdOK").click();
            EXPECT_EQ(FileContent(Path), File);
            delete Form;
        });
    });
}

}  // namespace Dorvane::Testing
