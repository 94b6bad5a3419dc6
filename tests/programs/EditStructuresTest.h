// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <string>
#include <vector>

#include "core/widgets/ScreenText.h"
#include "programs/editors/EntryTable.h"
#include "programs/editors/frmEditCalib.h"
#include "programs/editors/frmEditChoice.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

using Texts = std::vector<std::string>;
inline const std::string Init = "D:\\TARVEX\\INIT\\";
inline const std::string Dam =
    "DAM      Upper Dam\r\nCODE     DESCRIPTION\r\nNORTH    North\r\nSOUTH    South\r\n\r\nLEVEL    "
    "Levelling\r\n"
    "\r\nSRV01    Survey 1\r\n";

/// The editors of the structure files on a site of one data system and the calibrations.
struct EditStructures : testing::Test {
    EditStructures() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_datatype.ini",
                 {"[Data Types]", "Epochs=TOTAL LEVEL", "[LEVEL]", "Extension=LEV", "LEV_Calib=STAFF"});
        PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\nCALIB    2 Calibrations\r\n");
        PutFile(Init + "DAM.STR", Dam);
        PutFile(Init + "CALIB.STR",
                "CALIB    Calibrations\r\nCODE\r\nSTAFF    Staffs\r\n\r\nC2601    January\r\n");
    }
    ~EditStructures() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void OpenChoice() { Show(new frmEditChoice(Init)); }
    void OpenCalib() { Show(new frmEditCalib(Init, "D:\\TARVEX\\CALIB\\")); }
    void Show(ScreenDialog* form) {
        Form = form;
        Form->show();
        HandleEvents();
    }
    EntryTable& Table(const char* name) { return Control<EntryTable>(*Form, name); }

    /// The lines of a table, the fields with "|" between them.
    Texts Lines(const char* name) {
        Texts lines;
        for (const EntryTable::Line& line : Table(name).Lines()) {
            std::string text;
            for (const std::string& field : line.Texts)
                text += (&field == line.Texts.data() ? "" : "|") + field;
            lines.push_back(text);
        }
        return lines;
    }
    void ChooseCell(const char* name, int row, int column = 0) {
        QTableWidget& grid = Table(name).Table();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                          grid.visualItemRect(grid.item(row, column)).center());
        HandleEvents();
    }
    /// Types into a cell, as an operator would, and leaves it by Enter.
    void TypeInto(const char* name, int row, int column, const std::string& text) {
        ChooseCell(name, row, column);
        QTableWidget& grid = Table(name).Table();
        grid.editItem(grid.item(row, column));
        Finish(name, text);
    }
    void Finish(const char* name, const std::string& text) {
        auto* edit = Table(name).Table().findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        edit->insert(ToScreen(text));
        QTest::keyClick(edit, Qt::Key_Return);
        HandleEvents();
    }
    /// Opens a cell and reads the list that it offers.
    Texts ListOf(const char* name, int row, int column) {
        QTableWidget& grid = Table(name).Table();
        grid.setCurrentCell(row, column);
        auto* list = grid.findChild<QComboBox*>("cmbField");
        if (list == nullptr) {
            grid.editItem(grid.item(row, column));
            list = grid.findChild<QComboBox*>("cmbField");
        }
        Texts texts;
        for (int i = 0; list != nullptr && i < list->count(); ++i)
            texts.push_back(FromScreen(list->itemText(i)));
        return texts;
    }
    void Press(const char* name, const char* button) {
        auto& control = Control<QPushButton>(Table(name), button);
        ASSERT_TRUE(control.isEnabled()) << button;
        QTest::mouseClick(&control, Qt::LeftButton);
        HandleEvents();
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<ScreenDialog> Form;
};

}  // namespace Dorvane::Testing
