// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/List1.h"
#include "input/InputScreen.h"

// The list of user coordinate files, kept in section "User Database" of the input profile: keys Names1 to
// Names16, each a path, a blank, and "1" (checked) or "0". A value that does not cut into exactly these two
// words is none, so a path with a blank in it drops out; paths come back in upper case.
namespace Dorvane {

inline constexpr int MostUserFiles = 16;

/// The checked user files as they stand in the profile, whether they exist or not.
List1<std::string> ReadUserFiles();

/// Fills the screen's list with the user files that exist, checked as they were.
std::vector<ListEntry> LoadUserDbList();

/// Writes the list to the profile, one blank for each unused key.
void SaveUserDbList(const std::vector<ListEntry>& list);

/// Why the profile could not keep a file of this path; empty when it can.
std::string WhyNotKept(const std::string& path);

/// The click of cmdBrowse: adds a file of the operator's choice, checked, and saves the list. A full list, a
/// file that is listed already, or one that the profile could not keep, is told. Reports as
/// "frmInput-cmdBrowse_Click".
void BrowseUserDbFile(std::vector<ListEntry>& list);

/// The click of cmdDelete: removes the entry under the cursor (from 0) and saves the list; nothing happens
/// without one.
void DeleteUserDbFile(std::vector<ListEntry>& list, int index);

}  // namespace Dorvane
