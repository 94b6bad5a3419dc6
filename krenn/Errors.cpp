// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Errors.h"

#include <algorithm>
#include <array>

namespace Krenn {
namespace {

using enum ErrorNumber;

constexpr std::array kTable{
    ErrorMeaning{NoInputPath, "No input file was named, or go was called without a start.",
                 "Call start with the full path of the input file before go."},
    ErrorMeaning{InputNotReadable, "The input file cannot be read.",
                 "See that the file exists and that you may read it."},
    ErrorMeaning{NotAnInputFile, "The file is no input file of the adjustment.",
                 "Choose a file with the section titles \"Theodolite Stations\", \"Object Points\", "
                 "\"Distances\", \"Height differences\", \"Observations\"; create the input file anew."},
    ErrorMeaning{UnknownType, "The adjustment type is not known.", "Use type 0, 1, 7 or -1."},
    ErrorMeaning{BadRow, "A row has too few or too many fields.",
                 "Correct the line named above; each row must have the fields of its section."},
    ErrorMeaning{BadNumber, "A word stands where a number belongs.", "Correct the line named above."},
    ErrorMeaning{BadStandardError, "A standard error is zero or negative.",
                 "Give the observation of the line named above a standard error above zero, or set the "
                 "weights of its input type and create the input file anew."},
    ErrorMeaning{ValueOutOfRange, "A value is outside its range.",
                 "Correct the line named above: directions -400 to 400 gon, zenith angles above 0 and "
                 "below 200 gon, distances above 0 m, coordinates within 1e9 m."},
    ErrorMeaning{ZeroLengthSight, "A sight leads from a point to itself.",
                 "Correct the names on the line named above, or the coordinates that put both points at "
                 "one place."},
    ErrorMeaning{ContradictingCoordinates, "A point is given twice with different coordinates.",
                 "Keep one of the lines named above."},
    ErrorMeaning{FixedWithoutCoordinates, "A fixed point has no coordinates.",
                 "Give the named points coordinates, or take them out of \"Fixed Coordinates\"."},
    ErrorMeaning{UnknownName, "A name is nowhere else in the file.",
                 "Correct the name on the line named above, or take the line out."},
    ErrorMeaning{DuplicateFixed, "A point is named twice under \"Fixed Coordinates\".",
                 "Take one of the lines out."},
    ErrorMeaning{NoObservations, "There is no observation.",
                 "Put distances, height differences or angles into the input file."},
    ErrorMeaning{UndeterminedPoints, "Points are not determined by the observations.",
                 "Observe the named points again, give them coordinates if they have none, or take them "
                 "and their observations out."},
    ErrorMeaning{UndeterminedHeights, "Heights are not determined by the observations.",
                 "Observe a zenith angle or a height difference to the named points, or give them "
                 "coordinates; a height that is given and not observed is held."},
    ErrorMeaning{Singular, "The normal equations are singular.",
                 "See the unknowns named above: the observations do not determine them."},
    ErrorMeaning{NothingToAdjust, "Every point is fixed; nothing is left to adjust.",
                 "Take points out of \"Fixed Coordinates\"."},
    ErrorMeaning{
        UnconnectedParts, "The network falls into parts that nothing connects.",
        "Observe between the parts named above, or set PARTS = ADJUST in the parameter file to adjust "
        "each with its own datum."},
    ErrorMeaning{NoConvergence, "The iterations do not converge.",
                 "Look for a gross error or a wrong name among the worst residuals above, and for wrong "
                 "approximate coordinates; type -1 finds gross errors."},
    ErrorMeaning{NotFinite, "A result is not a finite number.",
                 "Look for extreme values among coordinates, observations and standard errors."},
    ErrorMeaning{NetworkTooLarge, "The network is too large for the dense type 7.",
                 "Use type 1; it gives the same results."},
    ErrorMeaning{
        ListingNotWritten, "The listing cannot be written.",
        "See that the folder of the input file exists, can be written, and that the disk is not full."},
    ErrorMeaning{OutOfMemory, "There is not enough memory.", "Close other programs, or use type 0."},
    ErrorMeaning{Internal, "The package met a state that it should never meet.",
                 "Keep the input file and tell the maintainers."},
    ErrorMeaning{ParametersNotReadable, "The parameter file cannot be read.",
                 "See that you may read the file named above, or take it away; a run without one writes one "
                 "with the defaults."},
    ErrorMeaning{UnknownParameter, "A key of the parameter file is not known.",
                 "Correct the key on the line named above, or put a \";\" before it."},
    ErrorMeaning{BadParameterValue, "A value of the parameter file is not allowed.",
                 "Give the line named above a value that its key takes."},
    ErrorMeaning{RepeatedParameter, "A key stands twice in the parameter file.",
                 "Keep one of the lines named above."},
    ErrorMeaning{BadParameterLine, "A line of the parameter file is no entry.",
                 "Write the line named above as KEY = value, or put a \";\" before it."},
};

}  // namespace

std::span<const ErrorMeaning> ErrorTable() {
    return kTable;
}

const ErrorMeaning& MeaningOf(ErrorNumber number) {
    const auto* row = std::find_if(kTable.begin(), kTable.end(), [number](const ErrorMeaning& meaning) {
        return meaning.number == number;
    });
    return row != kTable.end() ? *row : MeaningOf(Internal);
}

}  // namespace Krenn
