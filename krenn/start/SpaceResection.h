// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <optional>
#include <vector>

namespace Krenn {

// The distances from an instrument to three points in space that it sees along unit vectors (columns of
// `seen`), all solutions, at most four: Grunert's quartic in the form of Haralick, Lee, Ottenberg and Noelle
// (1994).
std::vector<Eigen::Vector3d> ThreePointDistances(const Eigen::Matrix3d& points, const Eigen::Matrix3d& seen);

// Where an instrument stands that sees at least four points along unit vectors (columns): of the solutions of
// many threes the one that most of the sights agree with. None if another place agrees nearly as well.
std::optional<Eigen::Vector3d> ResectInSpace(const Eigen::Matrix3Xd& points, const Eigen::Matrix3Xd& seen);

}  // namespace Krenn
