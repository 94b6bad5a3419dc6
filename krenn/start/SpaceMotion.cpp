// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/SpaceMotion.h"

#include <algorithm>
#include <vector>

#include "krenn/Mixer.h"

namespace Krenn {
namespace {

constexpr int kTrials = 200;
constexpr double kLine = 0.02;  // places whose width is less than this part of their length are on a line
constexpr double kWorstMedian = 0.2;
constexpr double kInlier = 4;

bool IsOnLine(const Eigen::Matrix3Xd& places) {
    const Eigen::Matrix3Xd centred = places.colwise() - places.rowwise().mean();
    const Eigen::JacobiSVD<Eigen::Matrix3Xd> svd(centred);
    return svd.singularValues().size() < 2 || svd.singularValues()(1) < kLine * svd.singularValues()(0);
}

Eigen::VectorXd MissesOf(const Motion& motion, const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to) {
    return (((motion.rotation * from).colwise() + motion.shift) - to).colwise().norm().transpose();
}

// Three places can always nearly be met; the fourth tells.
double MedianMiss(const Motion& motion, const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to) {
    Eigen::VectorXd misses = MissesOf(motion, from, to);
    const Eigen::Index rank = std::min(misses.size() - 1, std::max<Eigen::Index>(misses.size() / 2, 3));
    std::nth_element(misses.begin(), misses.begin() + rank, misses.end());
    return misses(rank);
}

}  // namespace

Motion BestMotion(const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to) {
    const Eigen::Vector3d fromMean = from.rowwise().mean();
    const Eigen::Vector3d toMean = to.rowwise().mean();
    const Eigen::Matrix3d covariance = (to.colwise() - toMean) * (from.colwise() - fromMean).transpose();
    const Eigen::JacobiSVD<Eigen::Matrix3d> svd(covariance, Eigen::ComputeFullU | Eigen::ComputeFullV);
    const Eigen::Vector3d signs(1, 1, (svd.matrixU() * svd.matrixV().transpose()).determinant() < 0 ? -1 : 1);
    Motion motion;
    motion.rotation = svd.matrixU() * signs.asDiagonal() * svd.matrixV().transpose();
    motion.shift = toMean - motion.rotation * fromMean;
    return motion;
}

std::optional<Motion> RobustMotion(const Eigen::Matrix3Xd& from, const Eigen::Matrix3Xd& to) {
    const Eigen::Index count = from.cols();
    if (count < 3 || IsOnLine(from) || IsOnLine(to))
        return std::nullopt;
    Motion best = BestMotion(from, to);
    double bestMedian = MedianMiss(best, from, to);
    Mixer mixer;
    for (int trial = 0; trial < kTrials && count > 3; ++trial) {
        std::vector<Eigen::Index> chosen;
        for (int i = 0; i < 3; ++i)
            chosen.push_back(static_cast<Eigen::Index>(mixer.Below(static_cast<std::size_t>(count))));
        if (chosen[0] == chosen[1] || chosen[1] == chosen[2] || chosen[0] == chosen[2])
            continue;
        const Eigen::Matrix3Xd three = from(Eigen::all, chosen);
        if (IsOnLine(three))
            continue;
        const Motion trialMotion = BestMotion(three, to(Eigen::all, chosen));
        const double median = MedianMiss(trialMotion, from, to);
        if (median < bestMedian) {
            bestMedian = median;
            best = trialMotion;
        }
    }
    const double size = (from.colwise() - from.rowwise().mean()).colwise().norm().maxCoeff();
    if (bestMedian > kWorstMedian * size)
        return std::nullopt;
    const Eigen::VectorXd misses = MissesOf(best, from, to);
    std::vector<Eigen::Index> inliers;
    for (Eigen::Index i = 0; i < count; ++i) {
        if (misses(i) <= kInlier * bestMedian + 1e-9)
            inliers.push_back(i);
    }
    if (inliers.size() < 3 || IsOnLine(from(Eigen::all, inliers)))
        return best;
    return BestMotion(from(Eigen::all, inliers), to(Eigen::all, inliers));
}

}  // namespace Krenn
