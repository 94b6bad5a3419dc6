// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <vector>

#include "krenn/Scan.h"

namespace Krenn {

// A row of the input file: some names, then some numbers. The writer of the file begins names at fixed
// columns and ends numbers, always of five decimals, at fixed columns. A field as wide as its columns runs
// into the next one; a field that finds its start column passed stands there on the next line.
struct RowLayout {
    std::span<const int> starts;  // 1-based start column of each field
    std::span<const int> widths;  // columns of each number, 0 for a name
    int names;                    // how many of the fields are names; the others are numbers
    const char* title;            // of the section that holds such rows
    const char* form;             // the fields in words, for messages

    int Fields() const { return static_cast<int>(starts.size()); }
};

extern const RowLayout kCoordinateRow;
extern const RowLayout kDistanceRow;
extern const RowLayout kHeightRow;
extern const RowLayout kAngleRow;

struct RowFields {
    std::array<std::string_view, 2> names;
    std::array<double, 4> numbers;
};

// Takes the fields of a row of one line that lies in the writer's columns, each field with a blank before
// it. Returns how many characters the fields take, 0 if this is no such row.
std::size_t TakeWrittenRow(std::string_view line, const RowLayout& layout, RowFields& fields);

// Fits the words of a row, possibly of several lines, to the layout. Words that are too few are cut at start
// columns inside them, if then every field lies in the writer's columns. Words behind the last field are
// left in `words` from index Fields() on. False if the words do not fit.
bool FitRow(std::vector<Word>& words, const RowLayout& layout, RowFields& fields);

// Appends the words of the line after a row, if the row has passed the start column of a field that it
// lacks and the line goes on with that field in its columns. False, with `words` as they were, if not.
bool JoinLine(std::vector<Word>& words, std::string_view line, const RowLayout& layout);

// True if every name begins where the writer puts it.
bool NamesBeginColumns(const std::vector<Word>& words, const RowLayout& layout);

// True if every number looks and lies as the writer puts it.
bool NumbersLieInColumns(const std::vector<Word>& words, const RowLayout& layout);

// True if a name, or a number that begins in its columns and is wider than they are, reaches into the columns
// of the field behind it on its line. The writer would have gone on with the next line.
bool RunsOver(const std::vector<Word>& words, const RowLayout& layout, int field);

// True if both words are parts of one text without anything between them.
bool AreGlued(std::string_view left, std::string_view right);

}  // namespace Krenn
