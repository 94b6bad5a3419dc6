// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "krenn/Scan.h"

namespace Krenn {

// A row of the input file: some names, then some numbers, written from fixed start columns.
struct RowLayout {
    std::span<const int> starts;  // 1-based start column of each field
    int names;                    // how many of the fields are names; the others are numbers
    const char* form;             // the fields in words, for messages

    int Fields() const { return static_cast<int>(starts.size()); }
};

extern const RowLayout kCoordinateRow;
extern const RowLayout kDistanceRow;
extern const RowLayout kHeightRow;
extern const RowLayout kAngleRow;

struct RowFields {
    std::vector<std::string_view> names;
    std::vector<double> numbers;
};

// Fits the words of a row, possibly of several lines, to the layout. A field as wide as its column runs
// into the next one; such a word is cut at the start column inside it if that gives the fields asked for.
// Words behind the last field are left in `words` from index Fields() on. False if the words do not fit.
bool FitRow(std::vector<Word>& words, const RowLayout& layout, RowFields& fields);

}  // namespace Krenn
