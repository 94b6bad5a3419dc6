// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/AllScreens.h"

#include <QTreeWidget>
#include <filesystem>

#include "adjustment/frmOpenInput.h"
#include "adjustment/frmVarn.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/frmAbout.h"
#include "core/frmConstruct.h"
#include "core/frmInit.h"
#include "core/frmMain.h"
#include "core/frmSplash.h"
#include "core/frmSysOption.h"
#include "core/widgets/ScreenText.h"
#include "database/CoordinateRetriever.h"
#include "database/frmDbOption.h"
#include "database/frmDbRetrieve.h"
#include "database/frmDbUpdate.h"
#include "datatree/frmAddSurvey.h"
#include "datatree/frmTree.h"
#include "input/frmInput.h"
#include "input/frmObsWeights.h"
#include "programs/editors/frmEditBias.h"
#include "programs/editors/frmEditCalib.h"
#include "programs/editors/frmEditChoice.h"
#include "programs/editors/frmEditDrives.h"
#include "programs/editors/frmEditInp.h"
#include "programs/editors/frmEditPar.h"
#include "programs/editors/frmEditTarvexINI.h"
#include "programs/editors/frmUtilities.h"
#include "programs/edittext/frmEditText.h"
#include "programs/sitecheck/frmCheckSite.h"
#include "reduction/frmAddCalib.h"
#include "reduction/frmCalibTree.h"
#include "reduction/frmReduce.h"
#include "tests/programs/InputSample.h"
#include "tests/support/ScreenTest.h"
#include "upload/frmCopyMeter.h"
#include "upload/frmDeleteMeter.h"
#include "upload/frmDownload.h"
#include "upload/frmMoveMeter.h"
#include "upload/frmSearch.h"
#include "upload/frmUploadMenu.h"

namespace Dorvane::Testing {

namespace {

namespace fs = std::filesystem;

const std::string Survey = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\";
const std::string Input = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\NET.INP";

void CopyFolder(const std::string& from, const std::string& to) {
    MakeFolders(to);
    fs::copy(DORVANE_FOLDER + from, Drives::HostPath(to), fs::copy_options::recursive);
}

template <class Meter>
QWidget* Opened(Meter* meter) {
    meter->Open(3);
    meter->ShowFile("D:\\FIELD\\DAM.GSI", Survey + "DAM.GSI");
    return meter;
}

QWidget* Tree(ScreenSite& site, const char* title) {
    auto* const tree = new frmTree(site.Nav, {});
    tree->setWindowTitle(ToScreen(title));
    tree->SetTempDirectory(Survey);
    return tree;
}

QWidget* Reduction(ScreenSite& site) {
    auto* const reduction = new frmReduce(site.Nav);
    reduction->SetSelectedDirectory(Survey);
    return reduction;
}

QWidget* Versions() {
    auto* const versions = new frmOpenInput;
    versions->SetVersion("Master");
    versions->SetDirectory(Input);
    return versions;
}

template <class Dialog>
QWidget* On(Dialog* dialog, const std::string& folder) {
    dialog->SetDirectory(folder);
    return dialog;
}

QWidget* Search() {
    auto* const search = new frmSearch;
    search->ShowText("Searching for existing Tarvex data folders.");
    return search;
}

}  // namespace

ScreenSite::ScreenSite() {
    Site.LayOut();
    UseShippedPictures();
    CopyFolder("/system", "C:\\WINDOWS\\");
    CopyFolder("/samples/site/INIT", Global().Init_path);
    for (const char* file : {"DAM.GSI", "TOTAL.RES", "TOTAL.PRO"})
        PutFile(Survey + file, "");
    PutFile(Input, SampleInput);
    PutFile(Input.substr(0, Input.size() - 3) + "ORG", SampleTaggedRows);
    PutFile(Input.substr(0, Input.size() - 3) + "VER", EmptyNote);
    PutFile(Input.substr(0, Input.size() - 3) + "PAR", "ITERATIONS = 10 ; at most\r\n");
    Global().PrinterPresent = true;
}

ScreenSite::~ScreenSite() {
    Drop();
}

void ScreenSite::Drop() {
    delete Open;
    HandleEvents();
}

QWidget& ScreenSite::Show(QWidget* screen) {
    Drop();
    Open = screen;
    screen->show();
    screen->activateWindow();
    HandleEvents();
    return *screen;
}

const std::vector<ScreenKind>& AllScreens() {
    static const std::vector<ScreenKind> screens = {
        {"frmSplash", "", [](ScreenSite&) { return new frmSplash; }},
        {"frmInit", "cmdCancel", [](ScreenSite&) { return new frmInit; }},
        {"frmMain", "", [](ScreenSite& site) { return new frmMain(site.Nav, [] {}); }},
        {"frmAbout", "cmdOK", [](ScreenSite&) { return new frmAbout; }},
        {"frmConstruct", "cmdHome",
         [](ScreenSite&) {
             return new frmConstruct("Remove Folder Button",
                                     "Option Under Construction: In the future this option will allow the "
                                     "deletion of the selected folder.");
         }},
        {"frmSysOption", "cmdHome", [](ScreenSite& site) { return new frmSysOption(site.Nav); }},
        {"frmTree Access Subdirectories ...", "cmdHome",
         [](ScreenSite& site) { return Tree(site, "Access Subdirectories ..."); }},
        {"frmTree System Configuration ...", "cmdHome",
         [](ScreenSite& site) { return Tree(site, "System Configuration ..."); }},
        {"frmTree Data Reduction Directory Selection", "cmdHome",
         [](ScreenSite& site) { return Tree(site, "Data Reduction Directory Selection"); }},
        {"frmTree VARN input file location", "cmdCancel",
         [](ScreenSite& site) { return Tree(site, "VARN input file location"); }},
        {"frmAddSurvey", "cmdCancel", [](ScreenSite&) { return On(new frmAddSurvey, Survey); }},
        {"frmUploadMenu", "cmdHome", [](ScreenSite& site) { return new frmUploadMenu(site.Nav); }},
        {"frmMoveMeter", "", [](ScreenSite&) { return Opened(new frmMoveMeter("")); }},
        {"frmCopyMeter", "", [](ScreenSite&) { return Opened(new frmCopyMeter("", "Copying File ...")); }},
        {"frmDeleteMeter", "", [](ScreenSite&) { return Opened(new frmDeleteMeter); }},
        {"frmSearch", "", [](ScreenSite&) { return Search(); }},
        {"frmDownload", "cmdHome", [](ScreenSite& site) { return new frmDownload(site.Nav); }},
        {"frmReduce", "cmdHome", Reduction},
        {"frmCalibTree", "cmdHome", [](ScreenSite& site) { return new frmCalibTree(site.Nav); }},
        {"frmAddCalib", "cmdCancel", [](ScreenSite&) { return On(new frmAddCalib, Global().Calib_path); }},
        {"frmInput", "cmdHome",
         [](ScreenSite& site) {
             return new frmInput(site.Nav, [] { return std::make_unique<CoordinateRetriever>(); });
         }},
        {"frmObsWeights", "cmdCancel", [](ScreenSite&) { return new frmObsWeights; }},
        {"frmVarn", "cmdHome",
         [](ScreenSite& site) {
             auto* const adjustment = new frmVarn(site.Nav);
             adjustment->SetInput(Input);
             return adjustment;
         }},
        {"frmOpenInput", "cmdOK", [](ScreenSite&) { return Versions(); }},
        {"frmDbOption", "cmdHome", [](ScreenSite& site) { return new frmDbOption(site.Nav); }},
        {"frmDbRetrieve", "cmdHome", [](ScreenSite& site) { return new frmDbRetrieve(site.Nav); }},
        {"frmDbUpdate", "cmdGoHome", [](ScreenSite& site) { return new frmDbUpdate(site.Nav); }},
        {"frmEditTarvexINI", "cmdCancel", [](ScreenSite&) { return new frmEditTarvexINI; }},
        {"frmEditChoice", "cmdCancel", [](ScreenSite&) { return new frmEditChoice(Global().Init_path); }},
        {"frmEditCalib", "cmdCancel",
         [](ScreenSite&) { return new frmEditCalib(Global().Init_path, Global().Calib_path); }},
        {"frmEditBias", "cmdCancel", [](ScreenSite&) { return new frmEditBias(Global().Init_path); }},
        {"frmEditInp", "cmdClose", [](ScreenSite&) { return new frmEditInp(Input); }},
        {"frmEditPar", "cmdCancel",
         [](ScreenSite&) { return new frmEditPar(Input.substr(0, Input.size() - 3) + "PAR"); }},
        {"frmEditDrives", "cmdCancel", [](ScreenSite&) { return new frmEditDrives; }},
        {"frmEditText", "", [](ScreenSite&) { return new frmEditText(OpenTextFile(Input, false)); }},
        {"frmUtilities", "cmdClose", [](ScreenSite&) { return new frmUtilities("dv_special.ini"); }},
        {"frmCheckSite", "cmdClose", [](ScreenSite&) { return new frmCheckSite; }},
    };
    return screens;
}

std::string ScreenKind::Form() const {
    const std::string name = Name;
    return name.substr(0, name.find(' '));
}

bool ScreenKind::TakesKeys() const {
    const std::string form = Form();
    return form != "frmSplash" && form != "frmSearch" && form.find("Meter") == std::string::npos;
}

void ForEachScreen(const std::function<void(ScreenSite&, QWidget&, const ScreenKind&)>& check) {
    for (const ScreenKind& kind : AllScreens()) {
        SCOPED_TRACE(kind.Name);
        ScreenSite site;
        check(site, site.Show(kind.Make(site)), kind);
    }
}

}  // namespace Dorvane::Testing
