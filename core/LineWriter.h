// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "core/Drives.h"

namespace Dorvane {

/// Writes a whole text file with lines that end in CR LF. The former file stays until Close; a writer that is
/// dropped without Close leaves it as it was.
class LineWriter {
  public:
    /// Opens the file for output; raises at once where it could not be written.
    explicit LineWriter(std::string_view path);

    void Line(std::string_view text);
    void Line() { Line(""); }

    /// Puts the file in its place, whole and on disk. When it fails it can be tried again.
    void Close();

  private:
    Drives::StagedFile File;
    std::string Buffer;
};

/// Where appended lines begin when the file's last line has no end.
enum class AppendTo {
    NewLine,   // below it
    LastLine,  // directly behind its last character
};

/// What a file holds when lines, each with its end, are appended to what it holds now (see LineAppender).
std::string WithLines(const std::string& former, const std::string& lines,
                      AppendTo begin = AppendTo::NewLine);

/// Collects lines ended by CR LF and appends them to a file in one write at Close. An end-of-file mark at the
/// file's end gives way to them. Without any line a file is made when it is absent, and else left as it is.
/// No other workstation appends meanwhile (see FolderLock.h).
class LineAppender {
  public:
    explicit LineAppender(std::string_view path, AppendTo begin = AppendTo::NewLine)
        : Path(path), Begin(begin) {}

    void Line(std::string_view text);

    /// When it fails it can be tried again.
    void Close();

  private:
    std::string Path;
    AppendTo Begin;
    std::string Buffer;
};

}  // namespace Dorvane
