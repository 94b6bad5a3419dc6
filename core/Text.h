// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Text is 8-bit, Windows code page 1252, exactly as it stands in the files. All positions count from 1.
namespace Dorvane {

/// Upper case by the code page ("é" becomes "É"), whatever the C locale says.
std::string UpperCase(std::string_view text);

/// Without leading and trailing blanks. Only the blank counts; tabs stay.
std::string Trim(std::string_view text);

/// The first `count` characters, or the whole text when it is shorter.
std::string Left(std::string_view text, int count);

/// The last `count` characters, or the whole text when it is shorter.
std::string Right(std::string_view text, int count);

/// `count` characters from position `start` (1 upward); a text too short gives what there is.
std::string Mid(std::string_view text, int start, int count);
std::string Mid(std::string_view text, int start);

/// Position of the first occurrence at or behind `start`, 0 when there is none. Case counts.
int InStr(std::string_view text, std::string_view target, int start = 1);
bool Contains(std::string_view text, std::string_view target);
bool ContainsIgnoringCase(std::string_view text, std::string_view target);
bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// The text before its first point, the whole text when it has none.
std::string BeforeFirstPoint(std::string_view text);

/// The text behind its first point, the whole text when it has none.
std::string BehindFirstPoint(std::string_view text);

/// Blanks fill up to `width` on the right or on the left; a longer text is kept whole.
std::string PadRight(std::string_view text, int width);
std::string RightJustify(std::string_view text, int width);

/// The leading-number rule: blanks and tabs are skipped, the value is that of the longest leading decimal
/// number (sign, digits, point, exponent with E or D); 0 when there is none. Never raises but for error 6
/// (overflow) on a number beyond the range of a double.
double LeadingNumber(std::string_view text);

/// LeadingNumber as a 16-bit integer; a fraction rounds to the nearest whole number, halves to the even one.
/// Error 6 when it does not fit.
std::int16_t LeadingInteger(std::string_view text);

/// A general number test: the whole text, blanks around it aside, is one number.
bool IsNumeric(std::string_view text);

/// The number of a text that must be one as a whole (IsNumeric); error 13 otherwise.
double StrictNumber(std::string_view text);

/// The two doors to people and to host file names. A character that code page 1252 does not hold becomes "?".
std::string Utf8FromText(std::string_view text);
std::string TextFromUtf8(std::string_view utf8);

}  // namespace Dorvane
