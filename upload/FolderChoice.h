// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "upload/UploadState.h"

// The folders that are chosen by hand in a file dialog.
namespace Dorvane {

/// The click of cmdFromBrowse: asks for the collection folder, beginning at the present one when it exists,
/// and brings the state up to date. A cancelled dialog changes nothing.
void BrowseUploadSource(UploadState& state);

/// The click of cmdToBrowse where folders are chosen by hand: the same for the survey folder.
void BrowseUploadTarget(UploadState& state);

/// Asks for the folder to reduce, beginning at "Last Path" of section "Manual", and writes an existing one
/// back to that key. False, with `folder` as it was, when there is none.
bool AskReductionFolder(std::string& folder);

/// Asks where to download to. Empty when the dialog is cancelled or names no existing folder.
std::string AskDownloadFolder();

}  // namespace Dorvane
