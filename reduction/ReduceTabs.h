// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"
#include "reduction/basReduce.h"

namespace Dorvane {

/// How far the last run of a tab came since the screen was set up: it stopped before the program was looked
/// for, the program is not there, or it was run to its end.
enum class LastRun { None, Stopped, NoProgram, Ended };

/// One tab of the reduction screen: a file extension of the folder's data type that has a name.
struct ReduceTab {
    std::string Extension;
    std::string Name;             // caption
    std::string CalibrationType;  // empty: no calibration choice is shown
    std::string ReduceList;       // program, then its result files, as the profile has them
    std::string RunPicture;       // picture of cmdReduce: a file name in the program's graphics folder
    std::string RunTip;
    std::string ErrorFile;      // where the program tells its errors, of `<ext>_RedError`; empty: nowhere
    List1<std::string> Epochs;  // cmbCalibEpoch: "none", then the epochs of the calibration type
    int Epoch = 0;              // the chosen one, from 1
    StatePicture Data;          // imgData
    ReductionState Reduction;
    LastRun Run = LastRun::None;
    bool TellsErrors = false;  // the error file is there and not empty
};

/// The reduction screen.
struct ReduceState {
    std::string Folder;          // lblSelectedDirectory, with its backslash
    std::string DataTypeName;    // the section of dv_datatype.ini in force
    std::string ExtraExtension;  // the extension without a tab; see SetupReduceTabs
    List1<ReduceTab> Tabs;
    int TabsPerRow = 0;  // 2 to 5 as the tabs demand; 0: as designed
    int CopiedTabs = 0;  // tabs whose controls are copies of the first tab's; they last as long as the screen
};

/// The change of lblSelectedDirectory: builds the tabs of a survey folder from the first data type whose name
/// occurs in its path, with the calibration epochs of CALIB.PTH (the last one chosen) and the state of the
/// folder's files. An extension without a name has no tab and becomes the extra extension; of several only
/// the last remains, behind a blank. False when there is no tab, which a message says, or after a failure,
/// reported as "frmReduce-lblSelectedDirectory_Change". On a screen that has copied tabs already, copies
/// asked for a second time are such a failure (error 360).
bool SetupReduceTabs(const std::string& folder, ReduceState& state);

/// The tab that was used last for the data type, as section "Reduction Tabs" of dv_tarvex.ini remembers its
/// extension; 1 when it remembers none of the tabs.
int LastUsedTab(const ReduceState& state);
void RememberTab(const ReduceState& state, int tab);

/// Derives the reduction half of a tab from the folder's files anew, and whether there are errors to read.
void ShowReduced(ReduceState& state, int tab);

}  // namespace Dorvane
