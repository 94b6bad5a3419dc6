// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/SpaceResection.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "krenn/Mixer.h"
#include "krenn/start/SpaceMotion.h"

namespace Krenn {
namespace {

constexpr int kTrials = 60;
constexpr double kCappedMiss = 0.02;  // radians

// Real roots of a v^4 + ... + e, from the eigenvalues of the companion matrix.
std::vector<double> RealRoots(const std::array<double, 5>& falling) {
    const double largest = std::abs(*std::max_element(
        falling.begin(), falling.end(), [](double x, double y) { return std::abs(x) < std::abs(y); }));
    if (std::abs(falling[0]) < 1e-12 * largest)
        return {};
    Eigen::Matrix4d companion = Eigen::Matrix4d::Zero();
    for (Eigen::Index i = 0; i < 4; ++i)
        companion(0, i) = -falling[static_cast<std::size_t>(i) + 1] / falling[0];
    companion.block<3, 3>(1, 0).setIdentity();
    const Eigen::EigenSolver<Eigen::Matrix4d> eigen(companion, false);
    std::vector<double> roots;
    for (const auto& root : eigen.eigenvalues()) {
        if (std::abs(root.imag()) < 1e-4 * (1 + std::abs(root.real())))
            roots.push_back(root.real());
    }
    return roots;
}

struct Stand {
    Eigen::Vector3d at;
    double miss;
};

// Sum of the capped angles by which a motion from the instrument into the network misses the sights.
double MissOf(const Motion& motion, const Eigen::Matrix3Xd& points, const Eigen::Matrix3Xd& seen) {
    double sum = 0;
    for (Eigen::Index i = 0; i < points.cols(); ++i) {
        const Eigen::Vector3d lies = (points.col(i) - motion.shift).normalized();
        sum += std::min((motion.rotation * seen.col(i) - lies).norm(), kCappedMiss);
    }
    return sum;
}

void AddStands(const Eigen::Matrix3Xd& points, const Eigen::Matrix3Xd& seen,
               const std::vector<Eigen::Index>& chosen, std::vector<Stand>& stands) {
    const Eigen::Matrix3d three = points(Eigen::all, chosen);
    const Eigen::Matrix3d rays = seen(Eigen::all, chosen);
    for (const Eigen::Vector3d& lengths : ThreePointDistances(three, rays)) {
        const Motion motion = BestMotion(rays * lengths.asDiagonal(), three);
        stands.push_back({motion.shift, MissOf(motion, points, seen)});
    }
}

}  // namespace

std::vector<Eigen::Vector3d> ThreePointDistances(const Eigen::Matrix3d& points, const Eigen::Matrix3d& seen) {
    const double a2 = (points.col(1) - points.col(2)).squaredNorm();
    const double b2 = (points.col(0) - points.col(2)).squaredNorm();
    const double c2 = (points.col(0) - points.col(1)).squaredNorm();
    if (std::min({a2, b2, c2}) <= 0)
        return {};
    const double ca = seen.col(1).dot(seen.col(2));
    const double cb = seen.col(0).dot(seen.col(2));
    const double cg = seen.col(0).dot(seen.col(1));
    const double minus = (a2 - c2) / b2;
    const double plus = (a2 + c2) / b2;
    const std::array<double, 5> quartic{
        (minus - 1) * (minus - 1) - 4 * c2 / b2 * ca * ca,
        4 * (minus * (1 - minus) * cb - (1 - plus) * ca * cg + 2 * c2 / b2 * ca * ca * cb),
        2 * (minus * minus - 1 + 2 * minus * minus * cb * cb + 2 * (b2 - c2) / b2 * ca * ca -
             4 * plus * ca * cb * cg + 2 * (b2 - a2) / b2 * cg * cg),
        4 * (-minus * (1 + minus) * cb + 2 * a2 / b2 * cg * cg * cb - (1 - plus) * ca * cg),
        (1 + minus) * (1 + minus) - 4 * a2 / b2 * cg * cg};
    std::vector<Eigen::Vector3d> solutions;
    for (const double v : RealRoots(quartic)) {
        const double divisor = 2 * (cg - v * ca);
        const double square = 1 + v * v - 2 * v * cb;
        if (std::abs(divisor) < 1e-12 || square <= 0)
            continue;
        const double u = ((minus - 1) * v * v - 2 * minus * cb * v + 1 + minus) / divisor;
        const double first = std::sqrt(b2 / square);
        if (u > 0 && v > 0)
            solutions.emplace_back(first, u * first, v * first);
    }
    return solutions;
}

std::optional<Eigen::Vector3d> ResectInSpace(const Eigen::Matrix3Xd& points, const Eigen::Matrix3Xd& seen) {
    const Eigen::Index count = points.cols();
    if (count < 4)
        return std::nullopt;
    std::vector<Stand> stands;
    Mixer mixer;
    for (int trial = 0; trial < kTrials; ++trial) {
        std::vector<Eigen::Index> chosen;
        for (int i = 0; i < 3; ++i)
            chosen.push_back(static_cast<Eigen::Index>(mixer.Below(static_cast<std::size_t>(count))));
        if (chosen[0] != chosen[1] && chosen[1] != chosen[2] && chosen[0] != chosen[2])
            AddStands(points, seen, chosen, stands);
    }
    if (stands.empty())
        return std::nullopt;
    const Stand best = *std::min_element(stands.begin(), stands.end(),
                                         [](const Stand& a, const Stand& b) { return a.miss < b.miss; });
    const double size = (points.colwise() - points.rowwise().mean()).colwise().norm().maxCoeff();
    const bool hasRival = std::any_of(stands.begin(), stands.end(), [&](const Stand& other) {
        return (other.at - best.at).norm() > 0.02 * size && other.miss < 3 * best.miss + 1e-4;
    });
    if (hasRival || best.miss > 0.5 * kCappedMiss * static_cast<double>(count - 3))
        return std::nullopt;
    return best.at;
}

}  // namespace Krenn
