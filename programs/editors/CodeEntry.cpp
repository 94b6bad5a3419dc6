// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/CodeEntry.h"

#include <algorithm>
#include <array>

#include "core/Text.h"
#include "datatree/basRead.h"

namespace Dorvane {

namespace {

// No folder of the 8.3 form can have these. A comma, a blank or a tab would make two words of a name, and a
// point the beginning of an extension.
constexpr std::string_view NotInNames = "\"*+,./:;<=>?[\\]| \t";

// Names that stand for devices and never for folders.
bool IsDevice(const std::string& code) {
    static constexpr std::array<std::string_view, 7> names{"CON",    "PRN",    "AUX",    "NUL",
                                                           "CLOCK$", "CONIN$", "CONOUT$"};
    if (std::find(names.begin(), names.end(), code) != names.end())
        return true;
    return code.size() == 4 && (code.starts_with("COM") || code.starts_with("LPT")) && code[3] >= '1' &&
           code[3] <= '9';
}

std::ptrdiff_t CountCode(const std::vector<CodeEntry>& entries, const std::string& code) {
    return std::count_if(entries.begin(), entries.end(),
                         [&](const CodeEntry& entry) { return entry.Code == code; });
}

std::string CodeFault(const std::vector<CodeEntry>& entries, const std::string& code, const CodeRule& rule) {
    std::string fault = CodeProblem(code);
    if (fault.empty() && CountCode(entries, code) > 1)
        fault = "stands there twice";
    if (fault.empty() && rule)
        fault = rule(code);
    return fault;
}

bool SameCode(const CodeEntry& one, const CodeEntry& other) {
    return one.Code == other.Code;
}

bool SameEntry(const CodeEntry& one, const CodeEntry& other) {
    return one == other;
}

// True when more entries up to the given one are like it than there were before.
bool IsNew(const std::vector<CodeEntry>& entries, const std::vector<CodeEntry>& former, std::size_t place,
           bool (*same)(const CodeEntry&, const CodeEntry&)) {
    const auto isLike = [&](const CodeEntry& other) { return same(entries[place], other); };
    const auto end = entries.begin() + static_cast<std::ptrdiff_t>(place) + 1;
    return std::count_if(entries.begin(), end, isLike) > std::count_if(former.begin(), former.end(), isLike);
}

}  // namespace

bool HasControlCharacter(std::string_view line) {
    return std::any_of(line.begin(), line.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
}

std::string CodeProblem(const std::string& code) {
    if (code.empty())
        return "has no name";
    if (code.size() > LongestCode)
        return "has more than 8 characters";
    if (code != UpperCase(code))
        return "is not in upper case";
    if (HasControlCharacter(code) || code.find_first_of(NotInNames) != std::string::npos)
        return "has a character that a folder's name cannot have";
    if (IsDevice(code))
        return "is the name of a device";
    return "";
}

std::string DescriptionProblem(const std::string& description) {
    if (description.empty())
        return "has no description, so the tree would show it without a caption";
    if (description.size() > LongestDescription)
        return "has a description of more than 20 characters";
    if (HasControlCharacter(description) || description.find('\t') != std::string::npos)
        return "has a description with a control character";
    return "";
}

std::vector<std::string> EntryFaults(const std::vector<CodeEntry>& entries, const CodeRule& rule) {
    std::vector<std::string> faults;
    for (const CodeEntry& entry : entries) {
        const std::string fault = CodeFault(entries, entry.Code, rule);
        faults.push_back(fault.empty() ? DescriptionProblem(entry.Description) : fault);
    }
    return faults;
}

std::string NoteOf(const CodeEntry& entry, const std::string& fault) {
    return (entry.Code.empty() ? "The line" : entry.Code) + " " + fault + ".";
}

std::vector<std::string> GroupProblems(const std::string& group, const std::vector<CodeEntry>& entries,
                                       const std::vector<CodeEntry>& former, const CodeRule& rule) {
    std::vector<std::string> problems;
    if (entries.size() > StructureRecord::Room)
        problems.push_back(group + ": there are more than 16 entries.");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const CodeEntry& entry = entries[i];
        std::string problem = IsNew(entries, former, i, SameCode) ? CodeFault(entries, entry.Code, rule) : "";
        if (problem.empty() && IsNew(entries, former, i, SameEntry))
            problem = DescriptionProblem(entry.Description);
        const std::string name = entry.Code.empty() ? "Line " + std::to_string(i + 1) : entry.Code;
        if (!problem.empty())
            problems.push_back(group + ": " + name + " " + problem + ".");
    }
    return problems;
}

std::vector<std::string> RemovedCodes(const std::vector<CodeEntry>& entries,
                                      const std::vector<CodeEntry>& former) {
    std::vector<std::string> removed;
    for (const CodeEntry& entry : former)
        if (!entry.Code.empty() && CountCode(entries, entry.Code) == 0 &&
            std::find(removed.begin(), removed.end(), entry.Code) == removed.end())
            removed.push_back(entry.Code);
    return removed;
}

}  // namespace Dorvane
