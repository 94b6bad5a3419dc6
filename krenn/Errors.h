// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace Krenn {

// Every number that start or go can return. The numbers are part of the calling convention and are
// never given a second meaning; docs/adjustment.md holds the same table for the reader.
enum class ErrorNumber : std::int16_t {
    Good = 0,

    NoInputPath = 1,
    InputNotReadable = 2,
    NotAnInputFile = 3,
    UnknownType = 4,

    BadRow = 10,
    BadNumber = 11,
    BadStandardError = 12,
    ValueOutOfRange = 13,
    ZeroLengthSight = 14,
    ContradictingCoordinates = 15,
    FixedWithoutCoordinates = 16,
    UnknownName = 17,
    DuplicateFixed = 18,

    NoObservations = 20,
    UndeterminedPoints = 21,
    UndeterminedHeights = 22,
    Singular = 23,
    NothingToAdjust = 24,
    UnconnectedParts = 25,

    NoConvergence = 30,
    NotFinite = 31,
    NetworkTooLarge = 32,

    ListingNotWritten = 40,
    OutOfMemory = 41,
    Internal = 42,

    ParametersNotReadable = 50,
    UnknownParameter = 51,
    BadParameterValue = 52,
    RepeatedParameter = 53,
    BadParameterLine = 54,
};

// One row of the error table.
struct ErrorMeaning {
    ErrorNumber number;
    const char* title;   // what went wrong, one line
    const char* advice;  // what the surveyor does about it
};

// All rows, in rising order of number, without Good.
std::span<const ErrorMeaning> ErrorTable();

// The row of a number; the row of Internal for a number that is not in the table.
const ErrorMeaning& MeaningOf(ErrorNumber number);

// What ends a run. `details` are whole lines for the listing: input lines, names, worst residuals.
struct Failure : std::runtime_error {
    Failure(ErrorNumber theNumber, const std::string& cause, std::vector<std::string> theDetails = {})
        : std::runtime_error(cause), number(theNumber), details(std::move(theDetails)) {}

    ErrorNumber number;
    std::vector<std::string> details;
};

}  // namespace Krenn
