// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "app/AppNavigator.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/basGeneral.h"
#include "datatree/DirectoryTree.h"
#include "programs/edittext/frmEditText.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"
#include "tests/tour/Tour.h"

namespace Dorvane::Tour {

using namespace Testing;

namespace {

constexpr const char* Survey = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\";
constexpr const char* Project = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\";

// Does `act` with the visible screen of a name as soon as it is there.
void WhenOpen(const char* name, const std::function<void(QWidget&)>& act) {
    auto* looker = new QTimer(qApp);
    QObject::connect(looker, &QTimer::timeout, looker, [looker, name, act] {
        if (!PictureBook::IsVisible(name))
            return;
        looker->stop();
        looker->deleteLater();
        act(PictureBook::Visible(name));
    });
    looker->start(10);
}

void ChooseNode(QWidget& screen, const std::string& key) {
    auto& tree = Control<DirectoryTree>(screen, "trvDirectory");
    tree.expandAll();
    for (QTreeWidgetItemIterator item(&tree); *item != nullptr; ++item) {
        tree.setCurrentItem(*item);
        if (tree.ChosenKey() == key)
            break;
    }
    HandleEvents();
}

void Check(QWidget& screen, const char* option) {
    Control<QRadioButton>(screen, option).click();
}

void Reduction(PictureBook& book, AppNavigator& navigator) {
    navigator.OpenReduction(Survey);
    QWidget& reduction = book.Shoot("frmReduce");
    PutFile(std::string(Survey) + "NEWER.GSI", "110001+0000000A 84..10+00000000 \r\n");
    Click(reduction, "cmdHome");
    navigator.OpenReduction(Survey);
    Click(book.Shoot("frmReduce", "stale"), "cmdHome");
    Drives::DeleteFile(std::string(Survey) + "NEWER.GSI");
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\");
    navigator.OpenReduction("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\");
    QWidget& level = book.Shoot("frmReduce", "nodata");
    Click(level, "cmdHome");
}

void Input(PictureBook& book, AppNavigator& navigator) {
    navigator.OpenInput();
    QWidget& input = book.Shoot("frmInput", "empty");
    WhenOpen("frmTree", [&](QWidget& tree) {
        ChooseNode(tree, Survey);
        book.Shoot("frmTree", "import");
        Click(tree, "cmdOK");
    });
    Click(input, "cmdImport");
    HandleEvents();
    Control<QLineEdit>(input, "txtProject").setText("Upper Dam, yearly control");
    Control<QLineEdit>(input, "txtTask").setText("Survey 1");
    ClickItem(input, "lstCoordDirectorys", "DAM\\NORTH");
    ClickItem(input, "lstCoordTypes", "3 Dimensional");
    book.Shoot("frmInput");
    ClickItem(input, "lstCoordDirectorys", "User Defined");
    book.Shoot("frmInput", "user");
    ClickItem(input, "lstCoordDirectorys", "User Defined");
    book.ShootMenu(input, "mnuEdit", "frmInput-edit");
    Choose(input, "mnuObservationWeights");
    QWidget& weights = book.Shoot("frmObsWeights");
    Control<QTabWidget>(weights, "sstabWeights").setCurrentIndex(1);
    book.Shoot("frmObsWeights", "second");
    Click(weights, "cmdCancel");
    WhenOpen("frmTree", [&](QWidget& tree) {
        ChooseNode(tree, Project);
        Click(tree, "cmdOK");
    });
    QTimer::singleShot(0, &input, [&] { Click(input, "cmdCreate"); });
    book.ShootBox("input-file-name", "Cancel", [] {});
    book.ShootBox("frmInput-leave", "No", [&] { Click(input, "cmdHome"); });
}

void Adjustment(PictureBook& book, AppNavigator& navigator) {
    navigator.OpenAdjustment("");
    Click(book.Shoot("frmVarn", "empty"), "cmdHome");
    navigator.OpenAdjustment(std::string(Project) + "FIRST.INP");
    QWidget& varn = book.Shoot("frmVarn");
    book.ShootMenu(varn, "mnuExport", "frmVarn-export");
    book.ShootMenu(varn, "mnuOptions", "frmVarn-options");
    book.ShootBox("frmVarn-done", "OK", [&] { Click(varn, "cmdVarn"); });
    book.Shoot("frmVarn", "after");
    book.ShootBox("frmVarn-save", "Cancel", [&] { Choose(varn, "mnuDbs"); });
    Click(varn, "cmdViewVersion");
    Click(book.Shoot("frmOpenInput"), "cmdOK");
    Click(PictureBook::Visible("frmVarn"), "cmdHome");
}

// The listing as the text editor shows it.
void Listing(PictureBook& book) {
    frmEditText editor(OpenTextFile(std::string(Project) + "FIRST.OUT", false));
    editor.show();
    auto& headings = Control<QListWidget>(editor, "lstSections");
    if (!QTest::qWaitFor([&] { return headings.count() > 0; }, 60000))
        throw std::runtime_error("the listing has no headings");
    ClickItem(editor, "lstSections", "Solution");
    book.Shoot(editor, "frmEditText");
    Choose(editor, "mnuReplace");
    book.Shoot(editor, "frmEditText-replace");
    book.ShootMenu(editor, "mnuSearch", "frmEditText-search");
}

void Database(PictureBook& book, AppNavigator& navigator) {
    navigator.OpenDatabase();
    Click(book.Shoot("frmDbOption"), "cmdRetrieve");
    QWidget& retrieve = book.Shoot("frmDbRetrieve", "empty");
    ChooseNode(retrieve, "DATABASE\\DAM\\NORTH\\");
    for (const char* option : {"opt3dim", "optCurrent", "optMeters"})
        Check(retrieve, option);
    Click(retrieve, "cmdRetrieve");
    book.Shoot("frmDbRetrieve");
    Click(retrieve, "cmdBack");
    Click(PictureBook::Visible("frmDbOption"), "cmdUpdate");
    QWidget& update = PictureBook::Visible("frmDbUpdate");
    ChooseNode(update, "DATABASE\\DAM\\NORTH\\");
    Check(update, "opt3dim");
    book.ShootBox("frmDbUpdate-browse", "Cancel", [&] { Click(update, "cmdBrowse"); });
    book.Shoot("frmDbUpdate");
    Click(update, "cmdGoHome");
}

}  // namespace

void WalkSecondHalf(PictureBook& book, AppNavigator& navigator) {
    Reduction(book, navigator);
    Input(book, navigator);
    Adjustment(book, navigator);
    Listing(book);
    Database(book, navigator);
}

}  // namespace Dorvane::Tour
