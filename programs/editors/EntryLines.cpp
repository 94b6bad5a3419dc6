// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EntryLines.h"

#include "core/Globals.h"
#include "datatree/basRead.h"

namespace Dorvane {

void SetUpEntries(EntryTable& table) {
    table.SetUp(
        {{EntryTable::tr("Name"), LongestCode, true}, {EntryTable::tr("Description"), LongestDescription}},
        StructureRecord::Room);
}

void ShowEntries(EntryTable& table, const std::vector<CodeEntry>& entries) {
    std::vector<EntryTable::Line> lines;
    for (const CodeEntry& entry : entries)
        lines.push_back({static_cast<int>(lines.size()) + 1, {entry.Code, entry.Description}});
    table.SetLines(lines);
}

std::vector<CodeEntry> EntriesOf(const EntryTable& table) {
    std::vector<CodeEntry> entries;
    for (const EntryTable::Line& line : table.Lines())
        entries.push_back({line.Texts[0], line.Texts[1]});
    return entries;
}

void TellProblems(const std::string& title, const std::vector<std::string>& problems) {
    std::string text;
    for (const std::string& problem : problems)
        text += (text.empty() ? "" : "\r\n") + problem;
    TheDesktop().ShowMessage({.Text = text, .Title = title, .Picture = Icon::Exclamation});
}

}  // namespace Dorvane
