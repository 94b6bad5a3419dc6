// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The public GSI format of field instruments. A line is a run of words with one blank between them. A word is
//   positions 1-2   the word index
//             3-6   information on the data; with a point or code number (11, 41) the block number
//             7     the sign
//             8-    the data: 8 characters, or 16 in a line that begins with "*"
// Position 3 holds the third digit of an index that has one (331), position 6 the units of a measured value.
namespace Dorvane {

struct GsiWord {
    int Index = 0;     // the two digits
    std::string Info;  // positions 3 to 6
    bool Negative = false;
    std::string Data;  // 8 or 16 characters

    /// The third digit of the index, 0 when it has none.
    int Extension() const { return Info[0] >= '0' && Info[0] <= '9' ? Info[0] - '0' : 0; }
    char Unit() const { return Info[3]; }
};

struct GsiLine {
    std::vector<GsiWord> Words;        // never empty
    std::vector<std::string> Damaged;  // what stands between the words and is none

    /// The first word of an index; null when the line has none.
    const GsiWord* Find(int index) const;
    /// The first word of a three-digit index.
    const GsiWord* Find(int index, int extension) const;
};

/// Cuts a line into its words. Without a value, and with the reason, when its first word has not the form of
/// a word; behind a damaged word the line is taken up again at the next blank.
std::optional<GsiLine> ParseGsiLine(std::string_view line, std::string& reason);

/// A length in meters: units 0 (mm), 1 (1/1000 foot), 6 (1/10 mm), 7 (1/10000 foot), 8 (1/100 mm). Data with
/// a written point is a number of meters or feet. Nothing when the data is no number ("-----") or the units
/// are none of a length. A foot is 0.3048 m.
std::optional<double> GsiLength(const GsiWord& word);

/// As GsiLength; a word without units, as typed into a code block, is in millimeters.
std::optional<double> GsiTypedLength(const GsiWord& word);

/// An angle in gons, as it stands, not brought into a circle: units 2 (gon, 5 decimals), 3 (decimal degrees,
/// 5 decimals), 4 (DDDMMSSs, tenths of a second; 60 seconds carry), 5 (mil of 6400, 4 decimals).
std::optional<double> GsiAngle(const GsiWord& word);

/// A point's name: leading zeros and blanks stripped, upper case, and what separates words in a result file
/// (blank, comma, tab) replaced by "_". Only zeros are the name "0". Empty when the name holds a control
/// character.
std::string GsiName(const GsiWord& word);

}  // namespace Dorvane
