// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "upload/UploadState.h"

// The folders that are chosen by hand in a file dialog.
namespace Dorvane {

/// The click of cmdFromBrowse: asks for the collection folder, beginning at the present one when it exists.
/// True when one was chosen and taken, and the state is to be brought up to date (TotalUpdate); a cancelled
/// dialog changes nothing.
bool BrowseUploadSource(UploadState& state);

/// The click of cmdToBrowse where folders are chosen by hand: the same for the survey folder.
bool BrowseUploadTarget(UploadState& state);

/// Asks for the folder to reduce, beginning at "Last Path" of section "Manual", and writes an existing one
/// back to that key. False, with `folder` as it was, when there is none.
bool AskReductionFolder(std::string& folder);

/// Asks where to download to. Empty when the dialog is cancelled or names no existing folder.
std::string AskDownloadFolder();

}  // namespace Dorvane
