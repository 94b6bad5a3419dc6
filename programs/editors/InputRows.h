// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

// The adjustment's input file as rows that can be left out. Its lines are cut into rows and words by the
// package's own rules, so a file that the package reads is read here, too; values are not judged.
namespace Dorvane {

enum class RowKind { Station, Point, Distance, Height, Angle, Fixed, Pair };

/// A row of a section, with all lines that belong to it: those that it is broken into, the errors below
/// coordinates, the empty line below a name without coordinates.
struct InputRow {
    RowKind Kind = RowKind::Station;
    int Line = 0;           // number of its first line, from 1
    std::size_t Start = 0;  // its place in the content, line ends included
    std::size_t End = 0;
    std::string Name;                 // upper case; the station or from point of an observation
    std::string Target;               // upper case; the second name, empty for a row of one name
    std::vector<std::string> Values;  // the numbers as they stand: X Y Z; distance and error; height and
                                      // error; direction, zenith angle and their errors
    bool Tracker = false;             // the mark of a distance

    bool IsListed() const { return Kind == RowKind::Station || Kind == RowKind::Point; }
    bool IsObservation() const {
        return Kind == RowKind::Distance || Kind == RowKind::Height || Kind == RowKind::Angle;
    }
};

struct InputText {
    std::string Content;
    std::vector<InputRow> Rows;  // in their order
};

/// Takes a file apart. The result is empty when all of it was understood, else it says which line was not and
/// why; `text` then holds the rows before it.
std::string ReadInputRows(const std::string& content, InputText& text);

}  // namespace Dorvane
