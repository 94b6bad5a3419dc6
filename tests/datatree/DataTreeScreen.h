// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <array>
#include <string>
#include <vector>

#include "core/widgets/ScreenText.h"
#include "datatree/DirectoryTree.h"
#include "datatree/frmTree.h"
#include "tests/datatree/DataSite.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

using Names = std::vector<std::string>;

inline constexpr const char* Browse = "Access Subdirectories ...";
inline constexpr const char* Configure = "System Configuration ...";
inline constexpr const char* Reduction = "Data Reduction Directory Selection";
inline constexpr const char* Upload = "Upload Data To";
inline constexpr const char* Input = "Input Levelling field data from";
inline constexpr const char* InputFile = "VARN input file location";

inline constexpr std::array<const char*, 10> AllButtons{"cmdOK",     "cmdCancel", "cmdHome", "cmdCopy",
                                                        "cmdDelete", "cmdPrint",  "cmdEdit", "cmdAdd",
                                                        "cmdRemove", "cmdArchive"};

// A system DAM with two locations, and the screen over it.
class DataTreeScreen : public DataSite {
  protected:
    DataTreeScreen() {
        UseShippedPictures();
        Global().PrinterPresent = true;
        Register("NORTH", "DIST", "SRV1");
        Register("NORTH", "LEVEL", "SRV1");
        Register("NORTH", "LEVEL", "SRV2");
        Register("SOUTH", "LEVEL", "SRV1");
        File("DAM\\NORTH\\LEVEL\\SRV1\\LINE.LVL");
        File("DAM\\NORTH\\LEVEL\\SRV1\\DATA.001");
        File("DAM\\NORTH\\DIST\\SRV1\\DATA.001");
    }
    ~DataTreeScreen() override { delete Screen.data(); }

    static void Register(const std::string& location, const std::string& type, const std::string& epoch,
                         const std::string& survey = "") {
        Global().PathRecords.Add({"DAM", "Main dam", location, "At " + location, type, "Of " + type, epoch,
                                  type + " " + epoch, survey, "11-20-26", "Use of " + type + " " + epoch});
        MakeFolders(Data("DAM\\" + location + "\\" + type + "\\" + epoch + "\\"));
    }
    static void File(const std::string& path, const std::string& content = "data\r\n") {
        PutFile(Data(path), content);
        SetTimeStamp(Data(path), {2026, 11, 20, 15, 4, 5});
    }

    frmTree& Open(const char* title, const std::string& folder = "") {
        delete Screen.data();
        Screen = new frmTree(Navigate, Services);
        Screen->setWindowTitle(QLatin1String(title));
        Screen->SetTempDirectory(folder);
        Screen->show();
        HandleEvents();
        return *Screen;
    }
    bool IsUnloaded() const { return Screen.isNull(); }

    DirectoryTree& TheTree() { return Control<DirectoryTree>(*Screen, "trvDirectory"); }
    QTreeWidgetItem* NodeNamed(const std::string& caption, int which = 0) {
        return TheTree().findItems(ToScreen(caption), Qt::MatchExactly | Qt::MatchRecursive).value(which);
    }
    // A click with the mouse on a node that is in sight.
    void ClickNodeNamed(const std::string& caption, int which = 0) {
        QTreeWidgetItem* item = NodeNamed(caption, which);
        ASSERT_NE(item, nullptr) << caption;
        TheTree().scrollToItem(item);
        QTest::mouseClick(TheTree().viewport(), Qt::LeftButton, {}, TheTree().visualItemRect(item).center());
        HandleEvents();
    }
    void Press(QWidget& control, Qt::Key key) {
        QTest::keyClick(&control, key);
        HandleEvents();
    }
    std::string Chosen() { return TheTree().ChosenKey(); }
    Names ShownButtons() {
        Names shown;
        for (const char* button : AllButtons)
            if (IsShown(*Screen, button))
                shown.emplace_back(button);
        return shown;
    }
    QImage IconOf(const std::string& file) {
        auto& list = Control<QListWidget>(*Screen, "lsvFiles");
        return list.findItems(ToScreen(file), Qt::MatchExactly).at(0)->icon().pixmap(16, 16).toImage();
    }

    RecordingNavigator Navigate;
    SurveyServices Services;
    QPointer<frmTree> Screen;
};

}  // namespace Dorvane::Testing
