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
    static constexpr std::array<std::string_view, 4> names{"CON", "PRN", "AUX", "NUL"};
    if (std::find(names.begin(), names.end(), code) != names.end())
        return true;
    return code.size() == 4 && (code.starts_with("COM") || code.starts_with("LPT")) && code[3] >= '1' &&
           code[3] <= '9';
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
    if (description.size() > LongestDescription)
        return "has a description of more than 20 characters";
    if (HasControlCharacter(description) || description.find('\t') != std::string::npos)
        return "has a description with a control character";
    return "";
}

std::vector<std::string> GroupProblems(const std::string& group, const std::vector<CodeEntry>& entries) {
    std::vector<std::string> problems;
    if (entries.size() > StructureRecord::Room)
        problems.push_back(group + ": there are more than 16 entries.");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const CodeEntry& entry = entries[i];
        const std::string name = entry.Code.empty() ? "Line " + std::to_string(i + 1) : entry.Code;
        std::string problem = CodeProblem(entry.Code);
        if (problem.empty())
            problem = DescriptionProblem(entry.Description);
        const auto twin = std::find_if(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(i),
                                       [&](const CodeEntry& other) { return other.Code == entry.Code; });
        if (problem.empty() && twin != entries.begin() + static_cast<std::ptrdiff_t>(i))
            problem = "stands there twice";
        if (!problem.empty())
            problems.push_back(group + ": " + name + " " + problem + ".");
    }
    return problems;
}

}  // namespace Dorvane
