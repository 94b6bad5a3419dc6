// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <string>
#include <vector>

#include "krenn/datum/Movements.h"

namespace Krenn {

// The datum of one part of the network: which movements of the whole part no observation feels, and how they
// are taken out.
//
// A movement g is a column over the unknowns of the part with J g = 0; all of them are the null space G
// (n x defect) of the normal equations (Movements.h).
//
// Inner constraints: the sum of squares of the corrections that lead from the given coordinates to the
// adjusted ones, taken over the datum coordinates, is least. Datum coordinates are those of the points with
// given coordinates; what these leave open, and all if there is none, is set over all points against the
// start positions. In the form H' (x - x0) = 0 with H' G = 1 this gives
//     x = x_min - G H' (x_min - x0),  Q = T Q_min T',  T = 1 - G H'
// from the solution x_min with any minimal set of coordinates held (S-transformation, after Baarda).
struct PartDatum : NetworkPart {
    int defect = 0;
    std::vector<std::string> movements;  // the free movements in words
    std::vector<int> held;     // unknowns whose correction is zero in the minimal solution, `defect` of them
    int datumPoints = 0;       // points the inner constraints run over
    bool overGiven = false;    // they run over points with given coordinates
    bool alsoOverAll = false;  // the given points leave a movement open that is set over all points
    Eigen::MatrixXd movement;  // G, rows in the order of `unknowns`
    Eigen::MatrixXd constraint;                 // H, the same rows
    std::vector<MovementCandidate> candidates;  // what the movements are combined of
    Eigen::MatrixXd combinations;
};

// One datum for each part of the network that hangs together; one for all parts when there are unknowns of
// the whole network, which every part feels.
struct Datum {
    DatumRule rule = DatumRule::Given;
    std::vector<PartDatum> parts;
    std::vector<int> rowOf;   // per unknown: row in its part's matrices
    std::vector<int> partOf;  // per unknown: index into `parts`
    GroupFrames frames;       // of the state at which the movements were found
    int Defect() const;
};

// Finds the datum at a state. Movements and constraints hold for this state alone. With DatumRule::All the
// inner constraints run over all points, given or not.
Datum FindDatum(const Network& network, const Structure& structure, const Unknowns& unknowns,
                const State& state, DatumRule rule = DatumRule::Given);

// Computes G and H of every part for another state; the defect and the held unknowns stay as they are, and,
// without unknowns of the whole network, so does what the movements are combined of. Throws Failure
// NoConvergence when there are not as many movements any more.
void RenewDatum(Datum& datum, const Network& network, const Structure& structure, const Unknowns& unknowns,
                const State& state);

// That no observation feels G at a state, which RenewDatum takes for granted. Throws Failure NoConvergence.
void ConfirmDatum(const Datum& datum, const Structure& structure, const Unknowns& unknowns,
                  const State& state);

// Turns the correction of the minimal solution into that of the inner constraints. `offset` is, per unknown,
// the state minus the position that the constraints aim at.
void ApplyInnerConstraints(const Datum& datum, const Eigen::VectorXd& offset, Eigen::VectorXd& correction);

}  // namespace Krenn
