// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Attitude.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// A sight in the frame of its instrument and in the network, both of length 1.
struct SeenSight {
    Eigen::Vector3d seen;
    Eigen::Vector3d lies;
};

std::vector<std::vector<SeenSight>> GatherSeenSights(const Structure& structure, const State& state) {
    std::vector<std::vector<SeenSight>> sights(structure.setups.size());
    for (std::size_t m = 0; m + 1 < structure.measures.size(); ++m) {
        const Measure& direction = structure.measures[m];
        const Measure& zenith = structure.measures[m + 1];
        if (!direction.isTilted || direction.kind != MeasureKind::Direction ||
            zenith.kind != MeasureKind::ZenithAngle || zenith.setup != direction.setup ||
            zenith.to != direction.to)
            continue;
        const auto& from = state.at[At(direction.from)];
        const auto& to = state.at[At(direction.to)];
        const double sine = std::sin(zenith.value);
        const Eigen::Vector3d lies(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
        sights[At(direction.setup)].push_back(
            {{sine * std::sin(direction.value), sine * std::cos(direction.value), std::cos(zenith.value)},
             lies.normalized()});
    }
    return sights;
}

Axes AxesFrom(const std::vector<SeenSight>& sights) {
    Eigen::Matrix3d product = Eigen::Matrix3d::Zero();
    for (const SeenSight& sight : sights)
        product += sight.seen * sight.lies.transpose();
    const Eigen::JacobiSVD<Eigen::Matrix3d> svd(product, Eigen::ComputeFullU | Eigen::ComputeFullV);
    Eigen::Vector3d signs(1, 1, (svd.matrixU() * svd.matrixV().transpose()).determinant() < 0 ? -1 : 1);
    const Eigen::Matrix3d rotation = svd.matrixU() * signs.asDiagonal() * svd.matrixV().transpose();
    Axes axes;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k)
            axes[i][k] = rotation(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(k));
    }
    return axes;
}

}  // namespace

void TurnTilted(const Structure& structure, State& state) {
    if (std::none_of(structure.setups.begin(), structure.setups.end(),
                     [](const Setup& setup) { return setup.isTilted; }))
        return;
    const auto sights = GatherSeenSights(structure, state);
    state.axes.assign(structure.setups.size(), AxesOf({0, 0, 0}));
    for (std::size_t setup = 0; setup < sights.size(); ++setup) {
        if (!sights[setup].empty())
            state.axes[setup] = AxesFrom(sights[setup]);
    }
}

}  // namespace Krenn
