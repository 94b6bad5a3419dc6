// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "krenn/Parameters.h"
#include "krenn/adjust/Adjustment.h"

namespace Krenn {

// Below the first redundancy number an observation is not checked by the others at all and has no w; below
// the second an error may stay hidden that is 40 times its standard error, and it counts as not checked;
// below the third it counts as poorly checked.
inline constexpr double kNoCheck = 1e-4;
inline constexpr double kNotChecked = 0.01;
inline constexpr double kPoorlyChecked = 0.1;

// Standard ellipse of a plan position: half axes in meters, bearing of the long one clockwise from north in
// gons, 0 to 200.
struct Ellipse {
    double major = 0;
    double minor = 0;
    double bearing = 0;
};

// From a covariance matrix in plan, in square meters.
Ellipse EllipseOf(double xx, double xy, double yy);

// Inner reliability (Baarda): the smallest error of an observation that its test finds with the power wanted,
//     nabla0 = delta0 sigma / sqrt(r),
// in the unit of sigma, delta0 being the noncentrality of the test and r > 0 the redundancy number.
double SmallestDetectable(double noncentrality, double sigma, double redundancyNumber);

// Outer reliability (Baarda): what an error of that size, left undetected, does to any coordinate, and to
// any function of the unknowns, is at most this many of its a-priori standard deviations,
//     delta0 sqrt((1 - r) / r).
double LargestEffect(double noncentrality, double redundancyNumber);

// How well two points lie to each other.
struct RelativeEllipse {
    bool isKnown = false;  // both points have observations
    Ellipse ellipse;       // standard, of the plan differences
    double height = 0;     // standard deviation of the height difference
    double distance = 0;   // between the points
    double actual =
        0;  // long half axis for Parameters::confidence; between heights that multiple of `height`
    double allowed = 0;  // Parameters::allowedConstant + allowedPerLength * distance
};

// The observations of one kind.
struct KindStatistics {
    int number = 0;
    double squares = 0;              // sum of v^2, radians or meters
    double scaledSquares = 0;        // sum of (v / sigma)^2
    double standardisedSquares = 0;  // sum of w^2
    double redundancy = 0;           // sum of r
    int flagged = 0;
    int notChecked = 0;
    int poorlyChecked = 0;  // and not counted above
    int worst = -1;         // measure with the largest |w|
};

struct Statistics {
    Parameters parameters;  // of the tests
    int redundancy = 0;
    bool hasM0 = false;  // false at redundancy 0
    double m0 = 1;       // sqrt(sum of (v / sigma)^2 / redundancy)
    double lowest = 0;   // bounds that m0 keeps, but for the risk of the test, when the weights are right
    double highest = 0;
    double exceedance = 1;  // probability of a larger m0 when the weights are right
    bool passes = true;
    double scale = 1;     // factor of all standard deviations: m0, or 1 a priori
    double critical = 0;  // of |w|
    double noncentrality =
        0;                  // delta0 of the test of one observation: critical value + quantile of the power
    double wideFactor = 0;  // of the half axes of an ellipse for Parameters::confidence
    double wideHeightFactor = 0;           // of a single deviation for the same
    bool isStandardised = false;           // w is v / (sigma sqrt(r)); else v / sigma
    std::vector<double> redundancyNumber;  // per measure, 0 to 1; empty without cofactors
    std::vector<double> standardised;      // per measure: w
    std::vector<double> suspected;         // per measure: gross error -v / r, radians or meters; 0 if unknown
    int worst = -1;                        // measure with the largest |w|; of equals that with the largest r
    int flagged = 0;                       // measures with |w| above the critical value
    int notChecked = 0;                    // measures with r below kNotChecked
    double typicalW = 0;  // median of |w| over its expectation: near 1, and hardly moved by gross errors
    std::array<KindStatistics, 5> kinds;           // by MeasureKind
    std::vector<std::array<double, 3>> deviation;  // per point SX, SY, SZ in meters
    std::vector<Ellipse> ellipse;                  // per point
    std::vector<RelativeEllipse> relative;         // per relative pair
};

Statistics Evaluate(const Network& network, const Adjustment& adjustment, const Parameters& parameters = {});

}  // namespace Krenn
