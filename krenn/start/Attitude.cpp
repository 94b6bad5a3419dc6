// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/Attitude.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr int kReweightings = 12;
constexpr double kLeastAngle = 1e-7;  // radians; smaller misses weigh no more

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

Eigen::Matrix3d WeightedRotation(const Eigen::Matrix3Xd& lies, const Eigen::Matrix3Xd& seen,
                                 const Eigen::VectorXd& weight) {
    const Eigen::Matrix3d product = seen * weight.asDiagonal() * lies.transpose();
    const Eigen::JacobiSVD<Eigen::Matrix3d> svd(product, Eigen::ComputeFullU | Eigen::ComputeFullV);
    const Eigen::Vector3d signs(1, 1, (svd.matrixU() * svd.matrixV().transpose()).determinant() < 0 ? -1 : 1);
    return svd.matrixU() * signs.asDiagonal() * svd.matrixV().transpose();
}

Axes AxesFrom(const Eigen::Matrix3d& rotation) {
    Axes axes;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k)
            axes[i][k] = rotation(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(k));
    }
    return axes;
}

}  // namespace

std::vector<std::vector<TiltedSight>> GatherTiltedSights(const Structure& structure) {
    std::vector<std::vector<TiltedSight>> sights(structure.setups.size());
    for (std::size_t m = 0; m + 1 < structure.measures.size(); ++m) {
        const Measure& direction = structure.measures[m];
        const Measure& zenith = structure.measures[m + 1];
        if (!direction.isTilted || direction.kind != MeasureKind::Direction ||
            zenith.kind != MeasureKind::ZenithAngle || zenith.setup != direction.setup ||
            zenith.to != direction.to)
            continue;
        const double sine = std::sin(zenith.value);
        sights[At(direction.setup)].push_back(
            {direction.to,
             {sine * std::sin(direction.value), sine * std::cos(direction.value), std::cos(zenith.value)}});
    }
    return sights;
}

Eigen::Matrix3d RotationBetween(const Eigen::Matrix3Xd& lies, const Eigen::Matrix3Xd& seen) {
    Eigen::VectorXd weight = Eigen::VectorXd::Ones(lies.cols());
    Eigen::Matrix3d rotation = WeightedRotation(lies, seen, weight);
    for (int i = 0; i < kReweightings && lies.cols() > 2; ++i) {
        const Eigen::VectorXd miss = (rotation * lies - seen).colwise().norm().transpose();
        weight = miss.cwiseMax(kLeastAngle).cwiseInverse();
        rotation = WeightedRotation(lies, seen, weight);
    }
    return rotation;
}

void TurnTilted(const Structure& structure, State& state) {
    if (std::none_of(structure.setups.begin(), structure.setups.end(),
                     [](const Setup& setup) { return setup.isTilted; }))
        return;
    const auto sights = GatherTiltedSights(structure);
    state.axes.assign(structure.setups.size(), AxesOf({0, 0, 0}));
    for (std::size_t setup = 0; setup < sights.size(); ++setup) {
        if (sights[setup].empty())
            continue;
        const auto count = static_cast<Eigen::Index>(sights[setup].size());
        Eigen::Matrix3Xd lies(3, count);
        Eigen::Matrix3Xd seen(3, count);
        const auto& from = state.at[At(structure.setups[setup].point)];
        for (Eigen::Index i = 0; i < count; ++i) {
            const TiltedSight& sight = sights[setup][static_cast<std::size_t>(i)];
            const auto& to = state.at[At(sight.to)];
            lies.col(i) = Eigen::Vector3d(to[0] - from[0], to[1] - from[1], to[2] - from[2]).normalized();
            seen.col(i) = sight.seen;
        }
        state.axes[setup] = AxesFrom(RotationBetween(lies, seen));
    }
}

}  // namespace Krenn
