// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Names and descriptions as the structure files hold them. A name becomes the name of a folder or of a file.
namespace Dorvane {

constexpr int LongestCode = 8;
constexpr int LongestDescription = 20;

/// A name and what it means in words.
struct CodeEntry {
    std::string Code;
    std::string Description;

    bool operator==(const CodeEntry&) const = default;
};

/// What is wrong with a name as the name of a folder of at most 8 characters, upper case, or with a
/// description; empty when nothing is.
std::string CodeProblem(const std::string& code);
std::string DescriptionProblem(const std::string& description);

/// What is wrong with the entries of a group, the first fault of each, each in a sentence of its own that
/// begins with the name of the group. A group holds at most 16 entries and each name once.
std::vector<std::string> GroupProblems(const std::string& group, const std::vector<CodeEntry>& entries);

/// True when a line has a character that no text has: anything below the blank but the tab.
bool HasControlCharacter(std::string_view line);

}  // namespace Dorvane
