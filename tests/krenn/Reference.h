// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>

#include "krenn/Network.h"

namespace KrennTest {

// An adjustment that shares nothing with the package: its own observation functions, derivatives by central
// differences, and a dense singular value decomposition, whose minimum-norm solution needs no datum.
struct Reference {
    Eigen::VectorXd place;     // X Y Z of every point, one after the other
    Eigen::VectorXd residual;  // adjusted minus observed per observation, gons or meters
    double sumOfSquares = 0;   // of v / sigma
    int rank = 0;
    Eigen::VectorXd redundancy;  // per observation
};

// `dimension` 1, 2 or 3; the start is the package's result moved by a few centimeters, to be led back from.
Reference Solve(const Krenn::Network& network, int dimension, const Eigen::VectorXd& start);

}  // namespace KrennTest
