// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "core/LineReader.h"
#include "core/ReportError.h"

namespace Dorvane {

/// A text file read inside a procedure that guards itself: opening it and reading each line are statements of
/// their own, which the operator may have retried, skipped or given up.
class GuardedReader {
  public:
    GuardedReader(Guard& guard, const std::string& path);

    /// True behind the last line. Error 52 when the opening was skipped.
    bool AtEnd() const;

    /// Reads the next line and returns it; error 62 past the end. A skipped failure keeps the line before.
    const std::string& ReadLine();

    /// The line read last, and its number from 1.
    const std::string& Line() const { return Current; }
    long LineNumber() const { return File ? File->LineNumber() : 0; }

  private:
    Guard& Procedure;
    std::optional<LineReader> File;
    std::string Current;
};

}  // namespace Dorvane
