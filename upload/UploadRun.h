// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/FileMeter.h"
#include "core/List1.h"
#include "datatree/basTarvex.h"
#include "upload/UploadState.h"

// The commands of the upload screen, without the screen.
namespace Dorvane {

/// Lists the files of a selection: those of the one name or pattern, or of each pattern in turn. A file that
/// two patterns match stands twice. Returns their number. Error 9 for more than 50 patterns, 6 past 32767
/// files.
std::int16_t CollectFiles(List1<FileEntry>& files, const std::string& folder, const std::string& selection);

/// The click of cmdUpload: checks selection and folders, with a message for what is missing, offers shorter
/// names for those that the index cannot hold, asks for the survey index, and uploads file after file; one
/// that is refused does not stop the run. The state is brought up to date at the end in every case, and its
/// outcome says what was made. Reports as "frmUploadMenu-cmdUpload_Click".
void UploadSelection(UploadState& state, FileMeter& meter);

/// The click of cmdDelete999: deletes, after a question, every file of the collection folder whose extension
/// begins with "99". Reports as "frmUploadMenu-cmdDelete999_Click".
void DeleteUploaded(UploadState& state, FileMeter& meter);

/// The click of cmdEdit: starts the general editor on the selected file. Reports as
/// "frmUploadMenu-cmdEdit_Click".
void EditSelection(const UploadState& state);

}  // namespace Dorvane
