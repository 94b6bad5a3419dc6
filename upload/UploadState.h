// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"
#include "upload/DataTypes.h"
#include "upload/UploadReport.h"

// What the upload screen shows and remembers, and how it follows from the two folders.
namespace Dorvane {

/// The state of the upload screen. Folders end in a backslash once they were found to exist.
struct UploadState {
    std::string FromPath;          // lblFromPath, the collection folder
    bool FromPathMissing = false;  // drawn in red
    std::string ToPath;            // lblToPath, the survey folder
    bool ToPathMissing = false;    // drawn in red
    std::string DataTypeName;      // lblDataType; empty when the target path names no data type
    DataType CurrentDataType;      // the one in force: the last that a target path named
    List1<std::string> FileNames;  // lstFileNames: the patterns, then the files of the collection folder
    std::string FileSelection;     // lblFileSelection: a file's name, or patterns separated by blanks
    bool PrintUpload = false;      // chkPrintUpload
    std::string WasteBin;          // picture of cmdDelete999
    std::int16_t FileCount = 0;    // files in the collection folder when it was last listed
    UploadOutcome Outcome;         // of the last upload or deletion; empty once a folder was chosen behind it
};

/// Takes the folders and the print switch from section "Upload Select" of dv_tarvex.ini, and derives the
/// rest. A print value whose number is neither 0 nor 1 leaves the switch as it is.
void LoadUploadState(UploadState& state);

/// Writes the folders that exist, and the print switch, back to that section.
void SaveUploadState(UploadState& state);

/// Forgets the last outcome, derives the data type from the target path, then runs Update. Without a match
/// the former type stays in force, though none is shown. Reports as "frmUploadMenu-TotalUpdate".
void TotalUpdate(UploadState& state);

/// The status bar: a folder that is missing, else the last outcome, else how many files there are.
std::string UploadStatus(const UploadState& state);

/// Rebuilds the list of choices with its default selection, the first item, and the waste bin. All stays as
/// it was when the collection folder does not exist. Reports as "frmUploadMenu-Update".
void Update(UploadState& state);

/// The animation of every data type that has none of its own, or one that cannot be played.
inline constexpr const char* ShippedCopyAnimation = "filecopy.avi";

/// The animation of the meters, by its name in the program's graphics folder: what key `FileCopy` names in
/// the data type's section of "Datatype.ini" when the folder holds just that file, else the one for all.
std::string CopyAnimation(const std::string& dataTypeName);

}  // namespace Dorvane
