// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "programs/editors/CodeEntry.h"
#include "programs/editors/EntryTable.h"

namespace Dorvane {

/// Makes a table one of names and descriptions, at most 16.
void SetUpEntries(EntryTable& table);

void ShowEntries(EntryTable& table, const std::vector<CodeEntry>& entries);
std::vector<CodeEntry> EntriesOf(const EntryTable& table);

/// The faults, a line each, as a message of a window.
void TellProblems(const std::string& title, const std::vector<std::string>& problems);

}  // namespace Dorvane
