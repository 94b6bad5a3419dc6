// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>

#include "krenn/Network.h"
#include "krenn/Parameters.h"

namespace KrennTest {

// An adjustment that shares nothing with the package: its own observation functions (a set-up is a rotation
// matrix, levelled or not), derivatives by differences of the fourth order, a dense singular value
// decomposition whose null space is the datum defect, and inner constraints solved over the given points,
// then over all. Of the parameters it knows tracker, scale, zeroPoint, refraction and curvature; a station is
// one set-up, and tilted if its distances bear the mark.
struct Reference {
    Eigen::VectorXd place;       // X Y Z of every point, one after the other, in meters
    Eigen::VectorXd residual;    // adjusted minus observed per observation, gons or meters
    Eigen::VectorXd redundancy;  // redundancy number per observation
    Eigen::MatrixXd cofactor;    // of `place`, for m0 = 1, in square meters
    double sumOfSquares = 0;     // of v / sigma
    int rank = 0;
    int unknowns = 0;
    double scale[2]{}, zeroPoint[2]{};  // of distances without and with the mark
    double refraction = 0;
};

// `dimension` 1, 2 or 3. `start` is where it sets out from, some centimeters away from the result; `aim` are
// the coordinates that points without given ones are kept near to by the inner constraints.
Reference Solve(const Krenn::Network& network, int dimension, const Eigen::VectorXd& start,
                const Eigen::VectorXd& aim, const Krenn::Parameters& parameters = {});

}  // namespace KrennTest
