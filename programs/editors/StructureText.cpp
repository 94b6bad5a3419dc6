// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/StructureText.h"

#include "core/ColumnLine.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "datatree/basRead.h"

namespace Dorvane {

namespace {

constexpr int DescriptionColumn = 10;

std::string Sentence(const LineReader& reader, const std::string& what) {
    return "Line " + std::to_string(reader.LineNumber()) + " " + what + ".";
}

// What of an entry's line the two fields do not hold; empty when nothing.
std::string LostOfEntry(std::string_view line) {
    if (HasControlCharacter(line) || line.find('\t') != std::string_view::npos)
        return "has a control character";
    if (!Trim(Mid(line, LongestCode + 1, 1)).empty())
        return "has a character between name and description";
    if (!Trim(Mid(line, DescriptionColumn + LongestDescription)).empty())
        return "has text behind its description";
    return "";
}

CodeEntry EntryOf(std::string_view line) {
    return {UpperCase(Trim(Left(line, LongestCode))), Trim(Mid(line, DescriptionColumn, LongestDescription))};
}

std::string ReadGroup(LineReader& reader, bool last, std::vector<CodeEntry>& entries) {
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        if (line.empty() && !last)
            return "";
        if (const std::string lost = LostOfEntry(line); !lost.empty())
            return Sentence(reader, lost);
        if (entries.size() == StructureRecord::Room)
            return Sentence(reader, "is the 17th entry of its group");
        entries.push_back(EntryOf(line));
    }
    return last ? "" : "The file ends before its last group.";
}

std::string EntryLine(const CodeEntry& entry) {
    ColumnLine line;
    line.At(1, entry.Code);
    if (!entry.Description.empty())
        line.At(DescriptionColumn, entry.Description);
    return line.Text() + "\r\n";
}

}  // namespace

StructureText NewStructure(const std::string& name, const std::string& description, std::size_t groups) {
    StructureText structure;
    structure.Name = name;
    structure.Description = description;
    structure.Groups.resize(groups);
    return structure;
}

std::string ParseStructure(const std::string& content, std::size_t groups, StructureText& structure) {
    structure = NewStructure("", "", groups);
    LineReader reader = LineReader::OfText(content);
    if (reader.AtEnd())
        return "The file is empty.";
    const std::string_view head = reader.ReadLine();
    if (const std::string lost = LostOfEntry(head); !lost.empty())
        return Sentence(reader, lost);
    const CodeEntry system = EntryOf(head);
    structure.Name = system.Code;
    structure.Description = system.Description;
    if (reader.AtEnd())
        return "The file ends before its first group.";
    structure.Heading = reader.ReadLine();
    for (std::size_t i = 0; i < groups; ++i)
        if (const std::string problem = ReadGroup(reader, i + 1 == groups, structure.Groups[i]);
            !problem.empty())
            return problem;
    return "";
}

std::string FormatStructure(const StructureText& structure) {
    std::string text = EntryLine({structure.Name, structure.Description}) + structure.Heading + "\r\n";
    for (std::size_t i = 0; i < structure.Groups.size(); ++i) {
        if (i > 0)
            text += "\r\n";
        const bool last = i + 1 == structure.Groups.size();
        // An empty line would end the group.
        for (const CodeEntry& entry : structure.Groups[i])
            text += !last && entry == CodeEntry{} ? " \r\n" : EntryLine(entry);
    }
    return text;
}

}  // namespace Dorvane
