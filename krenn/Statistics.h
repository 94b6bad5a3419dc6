// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "krenn/Adjustment.h"

namespace Krenn {

inline constexpr double kConfidence = 0.95;  // of the global test and of the wide ellipses
inline constexpr double kLocalRisk = 0.001;  // two-tailed risk of the test of one observation (Baarda)

// Standard ellipse of a plan position: half axes in meters, bearing of the long one clockwise from north in
// gons, 0 to 200.
struct Ellipse {
    double major = 0;
    double minor = 0;
    double bearing = 0;
};

// From a covariance matrix in plan, in square meters.
Ellipse EllipseOf(double xx, double xy, double yy);

struct Statistics {
    int redundancy = 0;
    bool hasM0 = false;  // false at redundancy 0
    double m0 = 1;       // sqrt(sum of (v / sigma)^2 / redundancy)
    double lowest = 0;   // bounds that m0 keeps with 95% when the weights are right
    double highest = 0;
    bool passes = true;
    double scale = 1;                      // factor of all standard deviations: m0, or 1 where there is none
    double critical = 0;                   // of |w|, two-tailed
    double factor95 = 0;                   // of the half axes for 95%
    bool isStandardised = false;           // w is v / (sigma sqrt(r)); else v / sigma
    std::vector<double> redundancyNumber;  // per measure, 0 to 1; empty without cofactors
    std::vector<double> standardised;      // per measure: w
    std::vector<double> suspected;         // per measure: gross error -v / r, radians or meters; 0 if unknown
    int worst = -1;                        // measure with the largest |w|
    std::vector<std::array<double, 3>> deviation;  // per point SX, SY, SZ in meters
    std::vector<Ellipse> ellipse;                  // per point
    std::vector<Ellipse> relative;                 // per relative pair
};

Statistics Evaluate(const Network& network, const Adjustment& adjustment);

}  // namespace Krenn
