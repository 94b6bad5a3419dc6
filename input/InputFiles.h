// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/ReplaceFiles.h"
#include "core/ReportError.h"

namespace Dorvane {

/// The four files of one input while they are composed. They take their places on disk together, at their
/// end, so that a failure on the way leaves the former four as they were.
struct InputFiles {
    FileChange Inp;
    FileChange Org;
    FileChange Sum;
    FileChange Ver;
};

/// Adds a line with its end, CR LF.
void AddLine(std::string& text, std::string_view line);

/// Raises at once where a file could not be written; leaves nothing behind.
void TestOpening(const std::string& path);

/// Puts all four in their places, or none; a statement of the procedure that `guard` guards.
void CloseInputFiles(Guard& guard, const InputFiles& files);

}  // namespace Dorvane
