// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basHelp.h"

#include <string_view>

#include "core/Globals.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr int Contents = 1;
constexpr int Index = 2;

constexpr const char* FirstPage = "index.html";

struct ScreenPage {
    std::string_view Screen;
    const char* Page;
};

constexpr ScreenPage Pages[] = {
    {"frmInit", "firststart.html#init"},
    {"frmMain", "home.html"},
    {"frmAbout", "home.html#others"},
    {"frmSysOption", "home.html#buttons"},
    {"frmTree", "datatree.html"},
    {"frmAddSurvey", "addsurvey.html"},
    {"frmUploadMenu", "upload.html"},
    {"frmDownload", "download.html"},
    {"frmReduce", "reduction.html"},
    {"frmCalibTree", "calibration.html"},
    {"frmAddCalib", "calibration.html#add"},
    {"frmInput", "input.html"},
    {"frmObsWeights", "input.html#weights"},
    {"frmVarn", "adjustment.html"},
    {"frmOpenInput", "adjustment.html#versions"},
    {"frmDbOption", "database.html"},
    {"frmDbRetrieve", "database.html#retrieve"},
    {"frmDbUpdate", "database.html#update"},
    // The windows of the outside programs.
    {"frmEditTarvexINI", "editors.html#tarvex"},
    {"frmEditChoice", "editors.html#choice"},
    {"frmEditCalib", "editors.html#calib"},
    {"frmEditBias", "editors.html#bias"},
    {"frmEditDrives", "editors.html#drives"},
    {"frmEditInp", "editors.html#input"},
    {"frmEditPar", "editors.html#parameters"},
    {"frmEditText", "edittext.html"},
    {"frmUtilities", "editors.html#utilities"},
    {"frmCheckSite", "editors.html#check"},
};

}  // namespace

std::string HelpFile() {
    return AppPath() + "help\\DorvaneHelp.chm";
}

void ShowHelpContents(const std::string& window) {
    TheDesktop().ShowHelp(HelpFile(), window, Contents);
}

void ShowHelpIndex(const std::string& window) {
    TheDesktop().ShowHelp(HelpFile(), window, Index);
}

void SearchHelp() {
    TheDesktop().SearchHelp(HelpFile());
}

void ShowHelpOf(const std::string& screen) {
    TheDesktop().ShowHelpPage(HelpFile(), HelpPageOf(screen));
}

std::string HelpPageOf(const std::string& screen) {
    for (const ScreenPage& each : Pages)
        if (each.Screen == screen)
            return each.Page;
    return FirstPage;
}

}  // namespace Dorvane
