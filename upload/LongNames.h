// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>

#include "core/List1.h"
#include "datatree/basTarvex.h"

// The survey index has room for 9 characters of a base name. A longer one breaks its line, and no reduction
// finds the file; so the operator is offered a shorter name before that happens.
namespace Dorvane {

/// The names under which files of a run go to the survey folder, where that is not their own name.
using ShorterNames = std::map<std::string, std::string>;

/// A shorter name for each file of a run that is to be listed in the index and whose base has 10 characters
/// or more. It is that of no file or folder in `toPath`, of no line in its indexes, and of no other file of
/// the run: the first 9 characters of the base, or fewer and a number behind them. A file that will be
/// refused, since it is in `toPath` already and may not be appended, needs none.
ShorterNames ProposeShorterNames(const List1<FileEntry>& files, const std::string& toPath,
                                 const std::string& dataTypeName);

/// Tells of the long names, and asks. Yes leaves the proposals, No takes the long names and empties them.
/// False when the upload is to be left alone.
bool AskForShorterNames(ShorterNames& names);

}  // namespace Dorvane
