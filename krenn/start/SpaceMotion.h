// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <optional>

namespace Krenn {

// x' = R x + t: a rigid motion in space.
struct Motion {
    Eigen::Matrix3d rotation = Eigen::Matrix3d::Identity();
    Eigen::Vector3d shift = Eigen::Vector3d::Zero();

    Eigen::Vector3d operator()(const Eigen::Vector3d& place) const { return rotation * place + shift; }
};

// The least-squares motion of places (columns), in closed form by the singular value decomposition of their
// covariance (Umeyama 1991; the problem is that of Horn 1987).
Motion BestMotion(const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to);

// The motion that most places agree with: the best of those through three places by the median of the misses,
// then the least-squares motion of the places within a few times that median. None for fewer than three
// places, places near one line, or when even the median miss is a fifth of the size of the whole.
std::optional<Motion> RobustMotion(const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to);

}  // namespace Krenn
