// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "krenn/adjust/Adjustment.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// A movement of points is weak when one standard deviation of it, a priori, is longer than the first bound,
// in meters, and longer than the second times what the better quarter of the coordinates have when all others
// are known.
inline constexpr double kWeakDeviation = 1;
inline constexpr double kWeakRatio = 1000;

// A point that nothing checks and that ends farther from its given coordinates than this is named, in meters.
inline constexpr double kFarFromGiven = 10;

// Refuses a network whose normal equations are singular although the datum is set: Failure
// UndeterminedPoints with the points that move freely and the observations that hold each, or else Singular
// with the other unknowns that do. Leaves the factor of `normals` and returns its smallest pivot.
double CheckRank(const Network& network, const Adjustment& adjustment, SparseCholesky& cholesky,
                 const NormalMatrix& normals);

// Adds weakPoints and notes on the points that the finished adjustment holds badly: those that a weak
// movement moves, and those whose observations check nothing and which are far from where they were given.
// `leastPivot` is that of the start. May overwrite the factor.
void NoteWeakPoints(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                    NormalMatrix& normals, double leastPivot);

// "P7: direction from ST1 (line 40), distance to ST2 (line 41)": all observations of a point, or the first
// ones of many.
std::string HeldByInWords(const Network& network, const Structure& structure, int point);

}  // namespace Krenn
