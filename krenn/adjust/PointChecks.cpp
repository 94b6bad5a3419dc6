// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/PointChecks.h"

#include <Eigen/Dense>
#include <algorithm>

namespace Krenn {
namespace {

using Matrix3 = Eigen::Matrix3d;
using Matrix6 = Eigen::Matrix<double, 6, 6>;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// The same sum over all observations and over those that are checked.
template <typename Matrix>
struct Sums {
    Matrix all = Matrix::Zero();
    Matrix checked = Matrix::Zero();

    template <typename Vector>
    void Add(const Vector& gradient, double weight, bool isChecked) {
        const Matrix product = gradient * gradient.transpose() * weight;
        all += product;
        if (isChecked)
            checked += product;
    }
};

// What remains for the coordinates, the first three rows, when the rotations behind them are free.
Matrix3 WithoutRotations(const Matrix6& sum) {
    const Matrix3 rotations = sum.bottomRightCorner<3, 3>();
    const Matrix3 mixed = sum.topRightCorner<3, 3>();
    return sum.topLeftCorner<3, 3>() -
           mixed * rotations.completeOrthogonalDecomposition().pseudoInverse() * mixed.transpose();
}

double LeastShare(const Matrix3& checked, const Matrix3& all, const std::vector<int>& axes) {
    if (axes.empty())
        return 1;
    const Eigen::MatrixXd part = checked(axes, axes);
    Eigen::MatrixXd whole = all(axes, axes);
    whole.diagonal().array() += 1e-12 * whole.trace();
    const Eigen::GeneralizedSelfAdjointEigenSolver<Eigen::MatrixXd> solver(part, whole,
                                                                           Eigen::EigenvaluesOnly);
    return solver.info() == Eigen::Success ? solver.eigenvalues()(0) : 0.0;
}

// The points with an observation that is not checked, numbered from 0 in rising order; -1 for the others.
std::vector<int> FindDoubtful(const Adjustment& adjustment, const Statistics& statistics, int& count) {
    const Structure& structure = adjustment.structure;
    std::vector<int> slot(structure.roles.size(), -1);
    for (std::size_t m = 0; m < structure.measures.size(); ++m) {
        if (statistics.redundancyNumber[m] >= kNotChecked)
            continue;
        for (const int point : {structure.measures[m].from, structure.measures[m].to}) {
            const PointRole& role = structure.roles[At(point)];
            if (role.planIsUnknown || role.heightIsUnknown)
                slot[At(point)] = 0;
        }
    }
    for (int& number : slot)
        number = number == 0 ? count++ : -1;
    return slot;
}

struct DoubtfulSums {
    std::vector<Sums<Matrix3>> point;  // per doubtful point
    std::vector<Sums<Matrix6>> setup;  // per set-up on one
};

DoubtfulSums SumUp(const Adjustment& adjustment, const Statistics& statistics, const std::vector<int>& slot,
                   const std::vector<int>& setupSlot, int points, int setups) {
    DoubtfulSums sums{std::vector<Sums<Matrix3>>(At(points)), std::vector<Sums<Matrix6>>(At(setups))};
    for (std::size_t m = 0; m < adjustment.structure.measures.size(); ++m) {
        const Measure& measure = adjustment.structure.measures[m];
        const int from = slot[At(measure.from)];
        const int to = slot[At(measure.to)];
        if (from < 0 && to < 0)
            continue;
        const Partials partials = ComputePartials(measure, adjustment.state);
        const double weight = 1 / (measure.sigma * measure.sigma);
        const bool isChecked = statistics.redundancyNumber[m] >= kNotChecked;
        const Eigen::Map<const Eigen::Vector3d> byFrom(partials.by.data());
        const Eigen::Map<const Eigen::Vector3d> byTo(partials.by.data() + 3);
        const Eigen::Map<const Eigen::Vector3d> byRotation(partials.by.data() + kRotationTerm);
        if (to >= 0)
            sums.point[At(to)].Add(byTo, weight, isChecked);
        if (from >= 0 && measure.setup >= 0) {
            Eigen::Matrix<double, 6, 1> gradient;
            gradient << byFrom, byRotation;
            sums.setup[At(setupSlot[At(measure.setup)])].Add(gradient, weight, isChecked);
        } else if (from >= 0) {
            sums.point[At(from)].Add(byFrom, weight, isChecked);
        }
    }
    return sums;
}

}  // namespace

std::vector<UncheckedPoint> FindUncheckedPoints(const Adjustment& adjustment, const Statistics& statistics) {
    std::vector<UncheckedPoint> unchecked;
    if (!statistics.isStandardised || statistics.redundancy <= 0)
        return unchecked;
    const Structure& structure = adjustment.structure;
    int points = 0;
    const std::vector<int> slot = FindDoubtful(adjustment, statistics, points);
    int setups = 0;
    std::vector<int> setupSlot(structure.setups.size(), -1);
    for (std::size_t s = 0; s < structure.setups.size(); ++s) {
        if (slot[At(structure.setups[s].point)] >= 0)
            setupSlot[s] = setups++;
    }
    DoubtfulSums sums = SumUp(adjustment, statistics, slot, setupSlot, points, setups);
    for (std::size_t s = 0; s < structure.setups.size(); ++s) {
        if (setupSlot[s] < 0)
            continue;
        Sums<Matrix3>& point = sums.point[At(slot[At(structure.setups[s].point)])];
        point.all += WithoutRotations(sums.setup[At(setupSlot[s])].all);
        point.checked += WithoutRotations(sums.setup[At(setupSlot[s])].checked);
    }
    for (std::size_t p = 0; p < slot.size(); ++p) {
        if (slot[p] < 0)
            continue;
        const PointRole& role = structure.roles[p];
        const Sums<Matrix3>& sum = sums.point[At(slot[p])];
        const std::vector<int> plan = role.planIsUnknown ? std::vector<int>{0, 1} : std::vector<int>{};
        const std::vector<int> height = role.heightIsUnknown ? std::vector<int>{2} : std::vector<int>{};
        std::vector<int> both = plan;
        both.insert(both.end(), height.begin(), height.end());
        if (LeastShare(sum.checked, sum.all, both) >= kNotChecked)
            continue;
        const bool isPlanChecked = LeastShare(sum.checked, sum.all, plan) >= kNotChecked;
        const bool isHeightChecked = LeastShare(sum.checked, sum.all, height) >= kNotChecked;
        unchecked.push_back({static_cast<int>(p), !isPlanChecked && !isHeightChecked ? Unchecked::Position
                                                  : !isPlanChecked                   ? Unchecked::Plan
                                                  : !isHeightChecked                 ? Unchecked::Height
                                                                     : Unchecked::OneDirection});
    }
    return unchecked;
}

}  // namespace Krenn
