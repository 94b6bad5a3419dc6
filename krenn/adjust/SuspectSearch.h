// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <vector>

#include "krenn/adjust/Snooping.h"

namespace Krenn {

// The linear algebra of the snooping: residuals, redundancy numbers and columns of the redundancy matrix R of
// a network linearised at one state. Snooping.h tells the formulas.

// What a search works on; `critical` is the least |w| of a suspect.
struct SuspectSearch {
    const Network& network;
    const Adjustment& adjustment;
    SparseCholesky& cholesky;
    NormalMatrix& normals;
    double critical;

    Eigen::Index Measures() const { return static_cast<Eigen::Index>(adjustment.structure.measures.size()); }
};

// The network linearised at a state, all in units of sigma, and the columns of R found so far.
struct LinearNetwork {
    State state;
    Eigen::VectorXd correction;  // of the unheld unknowns, all observations taking part
    Eigen::VectorXd v;           // residuals after that correction
    Eigen::VectorXd r;
    std::vector<int> picked;                // measures
    Eigen::MatrixXd factor;                 // R is about factor * factor': one column for each picked measure
    std::vector<Eigen::VectorXd> response;  // Q a' of each
};

// Picked measures whose errors are estimated together; the others count as good.
struct JointErrors {
    std::vector<int> members;  // positions in LinearNetwork::picked
    Eigen::MatrixXd cofactor;  // inverse(R_SS)
    Eigen::VectorXd size;      // in sigmas
    Eigen::VectorXd w;
    Eigen::VectorXd v, r;  // of all measures
    double scale = 1;      // of |w| of the others, at least 1
};

Eigen::VectorXd ResidualsAt(const SuspectSearch& search, const State& state);

// At the least-squares solution, where residuals and cofactors are known; or at any state, from a
// factorisation of its own. Both leave the factor of their state. Throw Failure Singular.
LinearNetwork AtSolution(const SuspectSearch& search);
LinearNetwork LinearAt(const SuspectSearch& search, const State& state);

// The pivoted Cholesky factorisation of R as far as there are suspects. True when none is left.
bool PickSuspects(const SuspectSearch& search, LinearNetwork& linear);

// The picked measures without those that are good beside the others, smallest |w| first.
JointErrors TakeBack(const SuspectSearch& search, const LinearNetwork& linear);

// The state without the suspects, as the linear model foretells it.
State StateWithout(const SuspectSearch& search, const LinearNetwork& linear, const JointErrors& joint);

// Measures that would be tested with nearly the same result as a suspect, were it not suspected, the most
// alike first.
std::vector<int> AlternativesTo(const LinearNetwork& linear, const JointErrors& joint, Eigen::Index member);

}  // namespace Krenn
