// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/Adjustment.h"
#include "krenn/Errors.h"
#include "krenn/Page.h"
#include "krenn/Statistics.h"

namespace Krenn {

// What the head of every listing tells.
struct RunHeader {
    std::string inputPath;
    int type = 0;
    std::string when;                       // date and time of the run
    std::string parameterFile = {};         // its path and how it came to be used; empty: not told
    std::vector<std::string> options = {};  // those that differ from their defaults, as "KEY = value"
};

// The listing of a good run. For people: run, input, datum, start positions, iterations, solution, summary.
// For programs, from column 1 and in this order: "Final results", the residual tables "horizontal direction",
// "vertical direction", "distance residuals", "height differences", and "Standard deviations" as the last
// section. docs/adjustment.md tells their layout.
std::string GoodListing(const RunHeader& run, const Network& network, const Adjustment& adjustment,
                        const Statistics& statistics);

// The listing of a failed run: number, cause, lines or names, what to do. It holds no results.
std::string FailureListing(const RunHeader& run, const Failure& failure);

// The parts of GoodListing that other programs read.
void PrintResults(Page& page, const Network& network, const Adjustment& adjustment);
void PrintResiduals(Page& page, const Network& network, const Adjustment& adjustment,
                    const Statistics& statistics);
void PrintRelative(Page& page, const Network& network, const Adjustment& adjustment,
                   const Statistics& statistics);
void PrintDeviations(Page& page, const Network& network, const Adjustment& adjustment,
                     const Statistics& statistics);

// Width of a column of names: the longest name, within reason, and a blank.
int NameWidth(const Network& network);

// An observation in words: kind, names and line.
std::string Describe(const Network& network, const Measure& measure);

// Unit of residuals: milligons or millimeters, and the factor to it from radians or meters.
bool IsAngle(MeasureKind kind);
double ResidualUnit(MeasureKind kind);
const char* ResidualUnitName(MeasureKind kind);

}  // namespace Krenn
