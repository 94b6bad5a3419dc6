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
// ignoring case; END closes a section, and so does the next title or the end of the text. Names are
// upper-cased. docs/adjustment.md tells the rows and what a hand-edited file may look like.
//
// A zenith angle or a distance of exactly zero says "not observed": the writer of the file has no other way
// to say so. A name that only observations know is taken as a point, with a note.
//
// Throws Failure with NotAnInputFile, BadRow, BadNumber, BadStandardError, ValueOutOfRange, ZeroLengthSight,
// ContradictingCoordinates, FixedWithoutCoordinates, UnknownName, DuplicateFixed or NoObservations; its
// details name the line and hold its text.
Network ReadInput(std::string_view text);

}  // namespace Krenn
