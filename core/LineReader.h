// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace Dorvane {

/// Ctrl-Z, which old programs leave as the last character of a text, some of them several times.
constexpr char EndOfFileMark = '\x1A';

/// The text as far as the marks at its very end.
std::string WithoutEndOfFileMark(std::string text);

/// Reads a text file line by line. A line ends in CR LF, LF or CR; the last needs no end. End-of-file marks
/// (Ctrl-Z) that old programs leave behind the last character are no part of the text.
class LineReader {
  public:
    /// Opens a file; raises what Drives::ReadFile raises.
    explicit LineReader(std::string_view path);

    /// Reads from a text in memory.
    static LineReader OfText(std::string text);

    bool AtEnd() const { return Position >= Text.size(); }

    /// The next line without its end, valid as long as the reader. Error 62 past the end of the file.
    std::string_view ReadLine();

    /// The number of lines read so far: that of the line returned last.
    long LineNumber() const { return Lines; }

  private:
    LineReader() = default;

    std::string Text;
    std::size_t Position = 0;
    long Lines = 0;
};

}  // namespace Dorvane
