// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/LineReader.h"

// The keyword lines at the head of an adjustment input file: "PROJECT = ", "TASK = ", "DATE = ", "LISTING =
// ".
namespace Dorvane {

/// What a keyword line says: its first word in upper case, and all that stands behind its first "=", in its
/// own case and with its blanks (empty when it has none).
struct KeywordLine {
    std::string Keyword;
    std::string Value;
};

/// The next line that has words. Error 62 when the file ends before one, 9 for a line of more than 50 words.
KeywordLine ReadKeywordLine(LineReader& reader);

/// Reads project, task and date of an input file, whose first line is passed by. -1 on success. A missing
/// file is told by a message and gives 0. Error 62 when the file has fewer than four keyword lines.
int ReadInputHeader(const std::string& folder, const std::string& fileName, std::string& project,
                    std::string& task, std::string& date);

}  // namespace Dorvane
