// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "krenn/adjust/Phases.h"
#include "krenn/datum/Datum.h"
#include "krenn/start/Approximate.h"

namespace Krenn {

// The four ways to adjust; the numbers are those that go receives.
enum class Type { Sparse = 0, SparseInverse = 1, Dense = 7, L1Norm = -1 };

struct Iteration {
    double largest = 0;  // largest correction, meters: of a coordinate, or of the longest sight by a rotation
    int unknown = -1;    // whose it is
    double step = 1;     // part of the correction that was taken; below 1 when the whole was too long
    double target = 0;   // sum of (v / sigma)^2, or of |v / sigma| for type -1, after the step
};

// Two unknowns that the observations hardly tell apart.
struct Correlation {
    int first, second;  // unknowns
    double coefficient;
};

// Cofactors a priori: variances and covariances of the unknowns for m0 = 1, in square meters and radians.
struct Cofactors {
    std::vector<std::array<double, 6>> point;     // per point xx, xy, yy, xz, yz, zz
    std::vector<std::array<double, 6>> rotation;  // per set-up about X, Y, Z: xx, xy, yy, xz, yz, zz
    Eigen::MatrixXd global;                       // of the unknowns of the whole network, in their order
    std::vector<Correlation> strong;              // strongest first
    std::vector<double> measure;                  // per measure: of the adjusted observation, a Q a'
    std::vector<std::array<double, 6>> pair;      // per relative pair: of the coordinate differences
};

// An observation suspected of a gross error.
struct Suspect {
    int measure;
    double size;                    // estimated error of the observation, in radians or meters
    double w;                       // its standardised residual with all other suspects left out
    std::vector<int> alternatives;  // measures whose error would show nearly alike, likest first
};

// What the search for gross errors found (Snooping.h).
struct Snooping {
    bool isMade = false;            // some |w| gave cause for it
    double critical = 0;            // of |w|
    std::vector<Suspect> suspects;  // largest |w| first
    bool isComplete = true;         // no |w| above the critical value is left without them
    bool isSettled = true;          // the network without them is where the search took it to be
    int redundancy = 0;             // without them
    double m0 = 1;                  // without them; 1 at redundancy 0
};

struct Adjustment {
    Type type = Type::SparseInverse;
    Parameters parameters;
    Structure structure;
    Unknowns unknowns;
    Datum datum;
    State start;
    State state;
    std::vector<int> computedStarts;  // points that started from the observations
    std::vector<Iteration> iterations;
    std::vector<double> residual;  // per measure: adjusted minus observed, radians or meters
    double sumOfSquares = 0;       // of v / sigma
    bool hasCofactors = false;
    Cofactors cofactors;
    Snooping snooping;
    std::vector<int> weakPoints;  // points that `notes` call badly held (WeakPoints.h)
    std::vector<std::string> notes;
    Phases phases;

    // Observations minus unknowns plus defect.
    int Redundancy() const {
        return static_cast<int>(structure.measures.size()) - unknowns.Count() + datum.Defect();
    }
};

// Adjusts a network. Throws Failure with the numbers 14 and 20 to 42 of ErrorNumber.
Adjustment Adjust(const Network& network, Type type, const Parameters& parameters = {});

}  // namespace Krenn
