// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "programs/editors/CodeEntry.h"
#include "programs/editors/EntryTable.h"

namespace Dorvane {

/// Makes a table one of names and descriptions, at most 16. With `names` a name is one of these.
void SetUpEntries(EntryTable& table, const std::vector<std::string>& names = {});

void ShowEntries(EntryTable& table, const std::vector<CodeEntry>& entries);

/// The entries of a table; lines that were added and left blank are none.
std::vector<CodeEntry> EntriesOf(const EntryTable& table);

/// Marks the lines of a table with what there is to say of its entries, in the order of EntriesOf.
void MarkEntries(EntryTable& table, const std::vector<std::string>& notes);

/// The faults, a line each, as a message of a window.
void TellProblems(const std::string& title, const std::vector<std::string>& problems);

/// Tells what is doubtful, a line each; true when the operator saves all the same.
bool AskInSpite(const std::string& title, const std::vector<std::string>& warnings);

}  // namespace Dorvane
