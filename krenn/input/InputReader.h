// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "krenn/Network.h"

namespace Krenn {

// Reads the text of an input file.
//
// The text is a header, which ends with the first section title, and the sections "Theodolite Stations",
// "Object Points", "Distances", "Height differences", "Observations", "Control Information" with "Fixed
// Coordinates", and "Relative error point pairs". Titles stand alone on a line and are compared trimmed and
// ignoring case; END closes a section. Names are upper-cased. docs/adjustment.md tells the rows, what a
// hand-edited file may look like, and which rows are refused because they may mean something else.
//
// A zenith angle or a distance of exactly zero says "not observed": the writer of the file has no other way
// to say so. A name that only observations know is taken as a point, with a note.
//
// Throws Failure with NotAnInputFile, BadRow, BadNumber, BadStandardError, ValueOutOfRange, ZeroLengthSight,
// ContradictingCoordinates, FixedWithoutCoordinates, UnknownName, DuplicateFixed or NoObservations. It tells
// up to 20 faults of rows: number and cause are those of the first; the details are its line and text, then
// cause, line and text of each other.
Network ReadInput(std::string_view text);

}  // namespace Krenn
