// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"

namespace Krenn {

// What the head of every listing tells.
struct RunHeader {
    std::string inputPath;
    int type = 0;
    std::string when;                       // date and time of the run
    std::string parameterFile = {};         // its path and how it came to be used; empty: not told
    std::vector<std::string> options = {};  // those that differ from their defaults, as "KEY = value"
};

// The listing of a good run. For people, every line indented: run, summary, input, datum, iterations,
// solution, coordinates with ellipses, other unknowns, residual statistics, relative ellipses, correlations.
// For programs, from column 1 and in this order: "Final results", the residual tables "horizontal direction",
// "vertical direction", "distance residuals", "height differences", and "Standard deviations" as the last
// section. docs/adjustment.md tells their layout.
std::string GoodListing(const RunHeader& run, const Network& network, const Adjustment& adjustment,
                        const Statistics& statistics);

// The listing of a failed run: number, cause, lines or names, what to do. It holds no results.
std::string FailureListing(const RunHeader& run, const Failure& failure);

}  // namespace Krenn
