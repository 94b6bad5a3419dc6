// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QTreeWidget>
#include <string>
#include <vector>

#include "core/ProfileStore.h"
#include "core/widgets/ScreenText.h"
#include "input/frmInput.h"
#include "tests/input/InputSite.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

using Texts = std::vector<std::string>;

/// The input screen on a site with survey folders of the input types "Laser" (data type TPS), "Totalstation"
/// (TPS, ANGLES or DIST), "Levelling", "Directions" and "Distances".
class InputScreenSite : public InputSite {
  protected:
    InputScreenSite() {
        UseShippedPictures();
        PutProfiles();
        IniWriteString("dv_input.ini", "Tracker", "Icon1", "tracker.svg");
        PutProfile("dv_tarvex.ini", {"[Tarvex]", "Last Path=" + Survey, "[Manual]", "Last Path=C:\\TEMP\\",
                                     "[General Editor]", "Path=C:\\EDIT\\", "Name=ED.EXE"});
        PutLines(Survey + "TOTAL.RES", {"ST1 P7 123.4567 99.1234 25.12345"});
        PutFile(Survey + "DAY1.GSI", "x");
        SetTimeStamp(Survey + "DAY1.GSI", {2026, 11, 1, 8, 0, 0});
        SetTimeStamp(Survey + "TOTAL.RES", {2026, 11, 2, 8, 0, 0});
        MakeFolders(Job);
        Global().PrinterPresent = true;
        Global().PathRecords = {Located("NORTH"), Located("SOUTH")};
        Picker.OnTreeWaited = [this] {
            HiddenMeanwhile = !Screen->isVisible();
            Screen->SetDirectory(Picked);
            Screen->ShowModal();
        };
    }

    ~InputScreenSite() override {
        if (!Screen.isNull())
            Screen->Unload();
        HandleEvents();
    }

    frmInput& Open() {
        Screen = new frmInput(Picker, Database.Maker());
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }

    /// For a child process, which has none of the toolkit's threads for painting.
    void StopPainting() { Screen->setUpdatesEnabled(false); }

    QTreeWidget& Tree() { return Control<QTreeWidget>(*Screen, "trvInput"); }
    QComboBox& Combo(const char* name) { return Control<QComboBox>(*Screen, name); }
    QListWidget& List(const char* name) { return Control<QListWidget>(*Screen, name); }
    QLineEdit& Field(const char* name) { return Control<QLineEdit>(*Screen, name); }

    /// The nodes below the input types, as "type>folder", in the tree's order.
    Texts Folders() {
        Texts folders;
        for (QTreeWidgetItemIterator it(&Tree()); *it != nullptr; ++it)
            if ((*it)->parent() != nullptr && (*it)->parent()->parent() != nullptr)
                folders.push_back(FromScreen((*it)->parent()->text(0) + ">" + (*it)->text(0)));
        return folders;
    }

    QTreeWidgetItem& Node(const std::string& caption) {
        const auto found = Tree().findItems(ToScreen(caption), Qt::MatchExactly | Qt::MatchRecursive);
        if (found.isEmpty())
            throw std::runtime_error("no node " + caption);
        return *found.first();
    }

    void ClickNode(const std::string& caption) {
        QTreeWidgetItem& item = Node(caption);
        Tree().scrollToItem(&item);
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Tree().visualItemRect(&item).center());
        HandleEvents();
    }

    Texts Selected(const char* list) {
        Texts texts;
        for (int row = 0; row < List(list).count(); ++row)
            if (List(list).item(row)->isSelected())
                texts.push_back(FromScreen(List(list).item(row)->text()));
        return texts;
    }

    std::string Status() { return TextOf(*Screen, "sbrInputPanel1"); }

    /// Puts a folder under the input type that is selected.
    void Import(const std::string& folder) {
        Picked = folder;
        Click(*Screen, "cmdImport");
    }

    const std::string Survey = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\";
    const std::string Job = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV12\\";
    RecordingNavigator Picker;
    QPointer<frmInput> Screen;
    bool HiddenMeanwhile = false;  // while the folder picker stood
};

}  // namespace Dorvane::Testing
