// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

#include "app/AppNavigator.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "core/frmInit.h"
#include "core/frmSplash.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"
#include "tests/tour/Tour.h"

namespace Dorvane::Tour {

using namespace Testing;

namespace {

constexpr const char* Survey = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\";
constexpr const char* Project = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\";

void StartUpDialogs(PictureBook& book) {
    frmSplash splash;
    splash.show();
    book.Shoot("frmSplash");
    splash.hide();
    frmInit init;
    init.show();
    book.Shoot("frmInit");
    init.hide();
}

void FailedStart(PictureBook& book) {
    Global().InitFailed = true;
    AppNavigator navigator;
    navigator.ShowMain();
    book.Shoot("frmMain", "failed");
    Global().InitFailed = false;
}

void HomeMenu(PictureBook& book) {
    QWidget& home = book.Shoot("frmMain");
    book.ShootMenu(home, "mnuFile", "frmMain-file");
    book.ShootMenu(home, "mnuEdit", "frmMain-edit");
    book.ShootMenu(home, "mnuOptions", "frmMain-options");
    book.ShootMenu(home, "mnuHelp", "frmMain-help");
    Choose(home, "mnuAbout");
    Click(book.Shoot("frmAbout"), "cmdOK");
    Choose(home, "mnuManual");
    book.Shoot("frmMain", "manual");
    Choose(home, "mnuTarvex");
    book.ShootBox("message-no-error-log", "OK", [&] { Choose(home, "mnuErrorLog"); });
}

// The tree on a folder in one of its modes.
QWidget& Tree(PictureBook& book, AppNavigator& navigator, const char* title, const std::string& folder,
              const char* state) {
    navigator.OpenTree(title, folder, {});
    HandleEvents();
    return book.Shoot("frmTree", QString::fromLatin1(state));
}

void AddASurvey(PictureBook& book) {
    Click(book.Visible("frmMain"), "cmdMain0");
    Click(book.Shoot("frmSysOption"), "cmdData");
    QWidget& tree = book.Shoot("frmTree", "configuration");
    Click(tree, "cmdAdd");
    QWidget& dialog = book.Shoot("frmAddSurvey", "empty");
    book.ShootBox("frmAddSurvey-missing", "OK", [&] { Click(dialog, "cmdOK"); });
    ClickItem(dialog, "lstRoot", "DAM");
    ClickItem(dialog, "lstLocation", "NORTH");
    ClickItem(dialog, "lstTypeMulti", "TOTAL");
    ClickItem(dialog, "lstEpoch", Items(dialog, "lstEpoch").at(0));
    book.Shoot("frmAddSurvey");
    book.ShootBox("frmAddSurvey-history", "Yes", [&] { Click(dialog, "cmdOK"); });
    Click(dialog, "cmdCancel");
    Click(book.Visible("frmTree"), "cmdHome");
}

void BrowseTheTree(PictureBook& book, AppNavigator& navigator) {
    QWidget& browse = Tree(book, navigator, "Access Subdirectories ...", Survey, "browse");
    ClickItem(browse, "lsvFiles", Items(browse, "lsvFiles").at(0));
    book.Shoot("frmTree", "file");
    Click(browse, "cmdArchive");
    Click(book.Shoot("frmConstruct"), "cmdHome");
    book.ShootBox("dialog-save", "Cancel", [&] { Click(browse, "cmdCopy"); });
    Click(browse, "cmdHome");
    QWidget& reduction =
        Tree(book, navigator, "Data Reduction Directory Selection", "D:\\TARVEX\\DAM\\NORTH\\", "reduction");
    book.ShootBox("frmTree-incomplete", "OK", [&] { Click(reduction, "cmdOK"); });
    Click(reduction, "cmdHome");
    Click(Tree(book, navigator, "VARN input file location", Project, "input"), "cmdCancel");
    Click(book.Visible("frmInput"), "cmdHome");
}

void UploadAFile(PictureBook& book) {
    for (const char* name : {"NORTH1.GSI", "NORTH2.GSI",
                             "S\xfc"
                             "dwand.GSI",
                             "OLD.999", "NOTES.TXT"})
        PutFile(std::string("D:\\FIELD\\") + name, "110001+0000000A 84..10+00000000 \r\n");
    Click(book.Visible("frmMain"), "cmdMain2");
    book.Shoot("frmUploadMenu");
    Click(book.Visible("frmUploadMenu"), "cmdToBrowse");
    QWidget& tree = book.Shoot("frmTree", "upload");
    Click(tree, "cmdOK");
    QWidget& upload = book.Shoot("frmUploadMenu", "target");
    book.ShootBox("dialog-folder", "Cancel", [&] { Click(upload, "cmdFromBrowse"); });
    ClickItem(upload, "lstFileNames", "NOTES.TXT");
    book.Shoot("frmUploadMenu", "file");
    book.ShootBox("frmUploadMenu-delete", "No", [&] { Click(upload, "cmdDelete999"); });
    Click(upload, "cmdComPort");
    Click(book.Shoot("frmConstruct", "comport"), "cmdHome");
    Click(upload, "cmdHome");
}

void Meters(PictureBook& book, AppNavigator& navigator) {
    const std::string from = "D:\\FIELD\\NORTH1.GSI";
    struct {
        const char* Name;
        std::unique_ptr<FileMeter> Meter;
    } meters[] = {{"frmMoveMeter", navigator.MoveMeter()},
                  {"frmCopyMeter", navigator.CopyMeter("Copying File ...")},
                  {"frmDeleteMeter", navigator.DeleteMeter()}};
    for (auto& [name, meter] : meters) {
        meter->Open(3);
        meter->ShowFile(from, std::string(Survey) + "NORTH1.GSI");
        meter->Advance(1);
        QTest::qWait(400);
        book.Shoot(name);
        meter->Close();
    }
    navigator.ShowSearch("Searching for existing Tarvex data folders.");
    QTest::qWait(600);
    book.Shoot("frmSearch");
    navigator.CloseSearch();
}

void DownloadAndCalibration(PictureBook& book, AppNavigator& navigator) {
    PutFile(Global().Download_path + "POINTS.TXT", "");
    PutFile(Global().Download_path + "CODES.LST", "");
    Click(book.Visible("frmMain"), "cmdMain1");
    Click(book.Shoot("frmDownload"), "cmdHome");
    navigator.OpenCalibration();
    QWidget& calibration = book.Shoot("frmCalibTree");
    Click(calibration, "cmdAdd");
    QWidget& dialog = book.Shoot("frmAddCalib", "empty");
    ClickItem(dialog, "lstType", Items(dialog, "lstType").at(0));
    ClickItem(dialog, "lstEpoch", Items(dialog, "lstEpoch").at(0));
    Click(book.Shoot("frmAddCalib"), "cmdOK");
    book.Shoot("frmCalibTree", "added");
    Click(book.Visible("frmCalibTree"), "cmdHome");
}

// The failures shown here are none, and leave no log behind.
void ErrorReports(PictureBook& book) {
    const std::string log = AppPath() + "ERROR.LOG";
    const bool kept = FileExists(log);
    book.ShootBox("program-error", "Cancel", [] {
        ReportError(RunTimeError(PathNotFound, "D:\\TARVEX\\GONE\\"), "frmTree-cmdCopy_Click");
    });
    book.ShootBox("program-error-disk", "No",
                  [] { ReportError(RunTimeError(DiskFull), "basUpload-UploadFile"); });
    if (!kept)
        Drives::DeleteFile(log);
}

void DesktopServices(PictureBook& book) {
    book.ShootBox("input-box", "Cancel", [] {
        TheDesktop().AskText("Enter Survey Index Name (without extension)", "Survey Index", "SRV01");
    });
    ErrorReports(book);
    Choose(book.Visible("frmMain"), "mnuHelpContents");
    QTest::qWait(500);
    book.Shoot("HelpViewer");
    Choose(book.Visible("frmMain"), "mnuHelpIndex");
    QTest::qWait(200);
    book.Shoot("HelpViewer", "index").close();
}

}  // namespace

void WalkStartUp(PictureBook& book) {
    StartUpDialogs(book);
    FailedStart(book);
}

void WalkFirstHalf(PictureBook& book, AppNavigator& navigator) {
    HomeMenu(book);
    AddASurvey(book);
    BrowseTheTree(book, navigator);
    UploadAFile(book);
    Meters(book, navigator);
    DownloadAndCalibration(book, navigator);
    DesktopServices(book);
}

}  // namespace Dorvane::Tour
