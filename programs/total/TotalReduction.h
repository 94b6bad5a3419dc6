// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/total/FieldBook.h"
#include "programs/total/StationReduction.h"

// The reduction of a whole book, and what the protocol and the result file make of it. Angles in gons,
// lengths in meters.
namespace Dorvane {

/// A line measured from both of its ends: forward less backward.
struct BothEnds {
    std::string From;
    std::string To;
    double Distance = 0;
    double DistanceDifference = 0;
    double HeightSum = 0;  // forward and backward height difference added; 0 without any error
};

/// The spreads of the whole book, pooled.
struct BookSpread {
    std::optional<double> Set;   // standard deviation of one set
    std::optional<double> Mean;  // root mean square of those of the means
};

struct TotalResult {
    std::vector<StationResult> Stations;
    std::vector<BothEnds> Lines;
    BookSpread Direction;
    BookSpread Zenith;
    BookSpread Distance;
    std::optional<double> LineDeviation;    // of one distance, from the lines measured from both ends
    std::optional<double> HeightDeviation;  // of one height difference, likewise
    std::vector<Remark> Warnings;
};

/// What a result file takes of each target: direction, zenith angle and distance; the two angles; or the
/// distance. A target that lacks one of them is not in it and is named in the warnings.
enum class ResultKind { Total, Angle, Distance };

/// Reduces a book, station by station (ReduceStation). Set-ups of one station are taken together wherever
/// they stand in the book. What the result file will not hold is told in the warnings.
TotalResult ReduceBook(const FieldBook& book, ResultKind kind = ResultKind::Total);

/// The result file's lines: station, target, and what the kind says, angles with 6 decimals, the distance
/// with 5. A direction that rounds to 400 is written as 0.
std::vector<std::string> ResultLines(const TotalResult& result, ResultKind kind = ResultKind::Total);

}  // namespace Dorvane
