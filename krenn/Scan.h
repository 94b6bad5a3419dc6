// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Krenn {

// A word of a line and where it stands.
struct Word {
    std::string_view text;
    int column;  // 1-based; a tab counts as one column
};

// Cuts a text into lines at CR LF, LF or CR, one after the other, without copying.
struct LineCutter {
    explicit LineCutter(std::string_view text) : rest(text) {}

    // The next line in `line`, its 1-based number in `number`; false past the last one.
    bool Next();

    std::string_view rest;
    std::string_view line;
    int number = 0;
    const char* feed = nullptr;  // the first LF at or behind the rest, the end of the text if there is none
};

// The words of a line, separated by blanks, commas and tabs, appended to `words`.
void AppendWords(std::string_view line, std::vector<Word>& words);

// A full number: an optional sign, digits with an optional point, an optional exponent, nothing else.
// Empty for any other text, for "inf" and "nan", and for a number too large for a double.
std::optional<double> FullNumber(std::string_view text);

// Takes a number as the writer of the input file prints it from the start of `text`: a minus sign or none,
// digits without a needless zero in front, a point, five decimals, and no digit or point behind them. Returns
// its length, 0 without such a number.
std::size_t TakeWrittenNumber(std::string_view text, double& value);

// A character in upper case after code page 1252.
char UpperCharacter(char c);

std::string_view Trimmed(std::string_view text);

// Upper case after code page 1252, byte by byte.
std::string UpperCase(std::string_view text);

// True if both are equal after trimming, ignoring the case of plain letters.
bool SameText(std::string_view left, std::string_view right);

// A text as it may stand in the listing: control characters become "?", and past `limit` characters it is
// cut.
std::string Printable(std::string_view text, std::size_t limit = 100);

}  // namespace Krenn
