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
const std::string File = "; head\r\nLIMIT = 1   ; in m\r\nodd line\r\nOTHER = x\r\n";
const std::vector<KnownParameter> Known{{"LIMIT", "least correction in m", "0.001", 0, 10},
                                        {"STEPS", "steps at most", "50", 1}};

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

    void Open(const std::string& path, const std::vector<KnownParameter>& known) {
        Form = new frmEditPar(path, known);
        Form->show();
        HandleEvents();
    }
    QTableWidget& Grid() { return Control<EntryTable>(*Form, "tblParameters").Table(); }
    std::string Cell(int row, int column) { return FromScreen(Grid().item(row, column)->text()); }
    void TypeInto(int row, int column, const std::string& text) {
        Grid().setCurrentCell(row, column);
        if (Grid().findChild<QLineEdit*>() == nullptr)  // a new line is open for its key
            Grid().editItem(Grid().item(row, column));
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
    Open(Path, {});
    EXPECT_EQ(TextOf(*Form), "Edit Parameter File");
    EXPECT_EQ(TextOf(*Form, "lblFile"), Path);
    ASSERT_EQ(Grid().rowCount(), 2);
    EXPECT_EQ(Cell(0, 0) + "|" + Cell(0, 1) + "|" + Cell(0, 2), "LIMIT|1|in m");
    EXPECT_EQ(Cell(1, 0) + "|" + Cell(1, 1), "OTHER|x");
    EXPECT_FALSE(IsShown(*Form, "cmdAddKnown"));
    EXPECT_FALSE(IsShown(*Form, "lblMeaning"));
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path), File);
}

TEST_F(frmEditParTest, ChangesAddsAndRemovesEntries) {
    Open(Path, {});
    TypeInto(0, 1, "2.5");
    Add();
    TypeInto(1, 0, "NEU");
    TypeInto(1, 1,
             "gr\xF6\xDF"
             "er");
    Grid().setCurrentCell(2, 0);
    Click(*Form, "cmdRemove");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path),
              "; head\r\nLIMIT = 2.5   ; in m\r\nNEU = gr\xF6\xDF"
              "er\r\nodd line\r\n");
}

TEST_F(frmEditParTest, MakesANewFileWithAHeading) {
    Open("D:\\TARVEX\\DAM\\NEW.PAR", {});
    EXPECT_EQ(TextOf(*Form, "lblNote"),
              "The file does not exist yet; OK makes it, with a heading of comments.");
    Add();
    TypeInto(0, 0, "KEY");
    TypeInto(0, 1, "1");
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent("D:\\TARVEX\\DAM\\NEW.PAR"),
              "; Parameters of the adjustment of NEW.INP\r\n; KEY = value   ; comment\r\nKEY = 1\r\n");
}

TEST_F(frmEditParTest, LeavesNoFileWhenCancelled) {
    Open("D:\\TARVEX\\DAM\\NEW.PAR", {});
    QTest::keyClick(Form.data(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(AllFiles("D:\\TARVEX\\DAM\\").size(), 1U);
}

TEST_F(frmEditParTest, OffersExplainsAndChecksKnownKeys) {
    Open(Path, Known);
    EXPECT_EQ(TextOf(*Form, "lblMeaning"), "LIMIT: least correction in m; without it 0.001; from 0; to 10");
    Grid().setCurrentCell(1, 0);
    EXPECT_EQ(TextOf(*Form, "lblMeaning"), "The adjustment does not know this key.");
    Control<QComboBox>(*Form, "cmbKnown").setCurrentText("STEPS");
    Click(*Form, "cmdAddKnown");
    EXPECT_EQ(TextOf(*Form, "lblMeaning"), "STEPS: steps at most; without it 50; from 1");
    EXPECT_EQ(Cell(2, 1), "50");
    TypeInto(0, 1, "11");
    Desktop.ExpectMessage("Edit Parameter File", "LIMIT has a value out of its range: 11.");
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    TypeInto(0, 1, "10");
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent(Path), "; head\r\nLIMIT = 10   ; in m\r\nodd line\r\nOTHER = x\r\nSTEPS = 50\r\n");
}

TEST_F(frmEditParTest, ReportsAFileThatMayNotBeWrittenAndStays) {
    InFreshProcess([&] {
        AsNobody([&] {
            Form = new frmEditPar(Path, {});
            Grid().item(0, 1)->setText("3");
            Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
            Control<QPushButton>(*Form, "cmdOK").click();
            EXPECT_EQ(FileContent(Path), File);
            delete Form;
        });
    });
}

}  // namespace Dorvane::Testing
