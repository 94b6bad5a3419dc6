// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"
#include "reduction/basReduce.h"

namespace Dorvane {

/// One tab of the reduction screen: a file extension of the folder's data type that has a name.
struct ReduceTab {
    std::string Extension;
    std::string Name;             // caption
    std::string CalibrationType;  // empty: no calibration choice is shown
    std::string ReduceList;       // program, then its result files, as the profile has them
    std::string RunPicture;       // picture of cmdReduce: a file name in the program's graphics folder
    std::string RunTip;
    List1<std::string> Epochs;  // cmbCalibEpoch: "none", then the epochs of the calibration type
    int Epoch = 0;              // the chosen one, from 1
    StatePicture Data;          // imgData
    ReductionState Reduction;
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

}  // namespace Dorvane
