// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EntryLines.h"

#include "core/Globals.h"
#include "datatree/basRead.h"

namespace Dorvane {

void SetUpEntries(EntryTable& table, const std::vector<std::string>& names) {
    EntryColumn name{.Title = EntryTable::tr("Name"), .Longest = LongestCode, .UpperCase = true};
    if (!names.empty())
        name.Choices = [names](const std::vector<std::string>&) { return names; };
    table.SetUp({name, {.Title = EntryTable::tr("Description"), .Longest = LongestDescription}},
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
        if (!table.IsBlank(line))
            entries.push_back({line.Texts[0], line.Texts[1]});
    return entries;
}

void MarkEntries(EntryTable& table, const std::vector<std::string>& notes) {
    std::map<int, std::string> marks;
    std::size_t place = 0;
    for (const EntryTable::Line& line : table.Lines())
        if (!table.IsBlank(line) && place < notes.size())
            if (const std::string& note = notes[place++]; !note.empty())
                marks[line.Id] = note;
    table.ShowMarks(marks);
}

void TellProblems(const std::string& title, const std::vector<std::string>& problems) {
    std::string text;
    for (const std::string& problem : problems)
        text += (text.empty() ? "" : "\r\n") + problem;
    TheDesktop().ShowMessage({.Text = text, .Title = title, .Picture = Icon::Exclamation});
}

bool AskInSpite(const std::string& title, const std::vector<std::string>& warnings) {
    std::string text;
    for (const std::string& warning : warnings)
        text += warning + "\r\n";
    return TheDesktop().ShowMessage({.Text = text + "\r\nSave all the same?",
                                     .Title = title,
                                     .Picture = Icon::Question,
                                     .Choices = Buttons::YesNo,
                                     .Default = Answer::No}) == Answer::Yes;
}

}  // namespace Dorvane
