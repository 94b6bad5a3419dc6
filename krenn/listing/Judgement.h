// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/adjust/PointChecks.h"
#include "krenn/adjust/Statistics.h"

namespace Krenn {

// A point counts as poorly held when its deviation is this many times the median of the network.
inline constexpr double kPoorlyHeld = 10;

// What the statistics mean, in sentences for the head of the listing.
struct Judgement {
    enum class Level {
        Good,
        Remarks,     // good, and something to know
        Doubtful,    // a test failed, or an observation is suspected
        NotChecked,  // redundancy 0: no test can be made
    };
    Level level = Level::Good;
    std::vector<std::string> doubts;
    std::vector<std::string> remarks;
    std::vector<UncheckedPoint> uncheckedPoints;
    std::vector<int> poorlyHeld;  // points, the worst first
    double medianMajor = 0;       // of the long half axes of the standard ellipses, meters; 0 without
    double medianHeight = 0;      // of the deviations of heights
    int largestMajor = -1;        // the points with the largest of each; -1 without
    int largestHeight = -1;
    std::vector<Correlation> correlations;  // of unknowns that are also poorly held, or of the whole network
    bool hasSuspect = false;                // Statistics::worst is suspected of a gross error
};

// Observations above the critical value make a network doubtful when the largest is beyond what the largest
// of so many may be by chance, at Parameters::globalRisk, or when there are more of them than chance makes
// (its expectation and three deviations). In a network of 200,000 observations some 200 exceed 0.1%.
Judgement Judge(const Network& network, const Adjustment& adjustment, const Statistics& statistics);

// "the plan position", "the height" ... of what nothing checks.
const char* InWords(Unchecked what);

}  // namespace Krenn
