// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace Dorvane {

/// A place or a number of bytes in a text; the first byte is 0.
using Offset = std::int64_t;

/// What the lines of a stretch of text come to. A line ends in CR LF, LF or CR. No stretch begins between CR
/// and LF, so stretches add up.
struct TextSummary {
    Offset Ends = 0;     // line ends
    Offset Head = 0;     // bytes before the first line end
    Offset Tail = 0;     // bytes behind the last line end; as Head when there is none
    Offset Longest = 0;  // the longest line that begins and ends inside
};

TextSummary Summarize(std::string_view text);

/// The summary of two stretches, one behind the other.
TextSummary Joined(const TextSummary& first, const TextSummary& second);

/// The longest line of a whole text.
Offset LongestLine(const TextSummary& text);

/// The bytes of a line end at a place of a text: 2, 1, or 0 where none stands.
int LineEndLength(std::string_view text, std::size_t place);

/// The place of the first CR or LF at or behind `from`, npos when there is none.
std::size_t FindLineEnd(std::string_view text, std::size_t from);

}  // namespace Dorvane
