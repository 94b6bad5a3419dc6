// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Iterate.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <numeric>

#include "krenn/Errors.h"
#include "krenn/Jordan.h"
#include "krenn/LeastSum.h"

namespace Krenn {
namespace {

constexpr double kArithmeticNoise = 1e-7;  // meters
constexpr int kMostHalvings = 14;
constexpr std::size_t kWorstShown = 10;

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// What one kind of iteration differs in: how the linear system is solved and what is to become least.
struct Scheme {
    std::function<Eigen::VectorXd()> correction;                 // of all unknowns, datum set
    std::function<double(const std::vector<double>& v)> target;  // of the residuals over sigma
};

// Residuals over sigma, adjusted minus observed.
std::vector<double> WeightedResiduals(const Structure& structure, const State& state) {
    std::vector<double> v(structure.measures.size());
    for (std::size_t m = 0; m < v.size(); ++m) {
        const Measure& measure = structure.measures[m];
        v[m] = -Misclosure(measure, ComputeValue(measure, state)) / measure.sigma;
    }
    return v;
}

double SumOfSquares(const std::vector<double>& v) {
    return std::inner_product(v.begin(), v.end(), v.begin(), 0.0);
}

// State minus start, per unknown: what the inner constraints have to bring back to zero.
Eigen::VectorXd OffsetOf(const Adjustment& adjustment) {
    Eigen::VectorXd offset = Eigen::VectorXd::Zero(adjustment.unknowns.Count());
    for (int unknown = 0; unknown < adjustment.unknowns.Count(); ++unknown) {
        const UnknownOf& of = adjustment.unknowns.of[At(unknown)];
        if (IsCoordinate(of))
            offset(unknown) = adjustment.state.at[At(of.point)][At(of.axis)] -
                              adjustment.start.at[At(of.point)][At(of.axis)];
    }
    return offset;
}

Iteration Describe(const Unknowns& unknowns, const Eigen::VectorXd& correction) {
    Iteration iteration;
    for (int unknown = 0; unknown < unknowns.Count(); ++unknown) {
        const double size = std::abs(correction(unknown));
        if (!std::isfinite(size))
            throw Failure(ErrorNumber::NotFinite, "A correction is not a finite number.");
        if (IsCoordinate(unknowns.of[At(unknown)]) && size > iteration.largest) {
            iteration.largest = size;
            iteration.unknown = unknown;
        }
    }
    return iteration;
}

[[noreturn]] void RefuseConvergence(const Network& network, const Adjustment& adjustment,
                                    const std::string& cause = {}) {
    const std::vector<double> v = WeightedResiduals(adjustment.structure, adjustment.state);
    std::vector<std::size_t> order(v.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t shown = std::min(kWorstShown, order.size());
    std::partial_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(shown), order.end(),
                      [&](std::size_t a, std::size_t b) { return std::abs(v[a]) > std::abs(v[b]); });
    std::vector<std::string> details{"The worst residuals at the last iteration (in units of sigma):"};
    for (std::size_t i = 0; i < shown; ++i) {
        const Measure& measure = adjustment.structure.measures[order[i]];
        const Observation& observation = network.observations[At(measure.observation)];
        details.push_back(fmt::format("line {}: {} {}, v/sigma = {:.1f}", observation.line,
                                      network.points[At(measure.from)].name,
                                      network.points[At(measure.to)].name, v[order[i]]));
    }
    throw Failure(
        ErrorNumber::NoConvergence,
        !cause.empty()
            ? cause
            : fmt::format("After {} iterations the largest correction is still {:.3g} m.",
                          adjustment.iterations.size(),
                          adjustment.iterations.empty() ? 0.0 : adjustment.iterations.back().largest),
        details);
}

// One iteration: the correction, shortened until the target does not grow. False if no length of it helps.
bool TakeStep(Adjustment& adjustment, const Scheme& scheme, double& target) {
    const Eigen::VectorXd correction = scheme.correction();
    Iteration iteration = Describe(adjustment.unknowns, correction);
    for (int halving = 0; halving <= kMostHalvings; ++halving, iteration.step /= 2) {
        const State trial = Moved(adjustment.state, adjustment.unknowns, correction, iteration.step);
        const double reached = scheme.target(WeightedResiduals(adjustment.structure, trial));
        // Tiny corrections change the target by less than its own rounding; they are always taken.
        const bool isTiny = iteration.largest < 1e-5;
        if (!(reached <= target * (1 + 1e-10) + 1e-9) && !isTiny)
            continue;
        adjustment.state = trial;
        iteration.target = reached;
        iteration.largest *= iteration.step;
        adjustment.iterations.push_back(iteration);
        target = reached;
        return true;
    }
    return false;
}

// True once the corrections are as small as asked, or below the noise and no longer shrinking.
bool HasConverged(const std::vector<Iteration>& iterations, double bound) {
    const Iteration& last = iterations.back();
    if (last.step < 1)
        return false;
    if (last.largest < bound)
        return true;
    if (iterations.size() < 3 || last.largest > kArithmeticNoise)
        return false;
    return last.largest > 0.5 * iterations[iterations.size() - 2].largest;
}

void Iterate(const Network& network, Adjustment& adjustment, const Scheme& scheme,
             const Parameters& parameters) {
    double target = scheme.target(WeightedResiduals(adjustment.structure, adjustment.state));
    if (!std::isfinite(target))
        throw Failure(ErrorNumber::NotFinite, "The observations give no finite residuals at the start.");
    for (int i = 0; i < parameters.mostIterations; ++i) {
        if (!TakeStep(adjustment, scheme, target))
            RefuseConvergence(network, adjustment);
        if (HasConverged(adjustment.iterations, parameters.largestCorrection))
            return;
    }
    RefuseConvergence(network, adjustment);
}

void KeepResiduals(Adjustment& adjustment) {
    adjustment.residual = WeightedResiduals(adjustment.structure, adjustment.state);
    adjustment.sumOfSquares = SumOfSquares(adjustment.residual);
    for (std::size_t m = 0; m < adjustment.residual.size(); ++m)
        adjustment.residual[m] *= adjustment.structure.measures[m].sigma;
}

// The correction of all unknowns under inner constraints from that of the unheld ones.
Eigen::VectorXd WithDatum(const Network& network, Adjustment& adjustment, const NormalMatrix& normals,
                          const Eigen::VectorXd& reduced) {
    Eigen::VectorXd correction = Eigen::VectorXd::Zero(adjustment.unknowns.Count());
    for (int row = 0; row < normals.size; ++row)
        correction(normals.unknownOf[At(row)]) = reduced(row);
    RenewDatum(adjustment.datum, network, adjustment.structure, adjustment.unknowns, adjustment.state);
    ApplyInnerConstraints(adjustment.datum, OffsetOf(adjustment), correction);
    return correction;
}

Eigen::VectorXd SparseCorrection(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                                 NormalMatrix& normals) {
    FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    const Pivot pivot = Factorise(cholesky, normals);
    if (pivot.least <= 0) {
        const int unknown = normals.unknownOf[At(pivot.row)];
        RefuseConvergence(
            network, adjustment,
            fmt::format("In iteration {} the normal equations became singular near {}.",
                        adjustment.iterations.size() + 1,
                        UnknownInWords(network, adjustment.structure, adjustment.unknowns.of[At(unknown)])));
    }
    return WithDatum(network, adjustment, normals, Solve(cholesky, normals.right));
}

}  // namespace

void IterateSparse(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                   NormalMatrix& normals, const Parameters& parameters) {
    const Scheme scheme{[&] { return SparseCorrection(network, adjustment, cholesky, normals); },
                        SumOfSquares};
    Iterate(network, adjustment, scheme, parameters);
    KeepResiduals(adjustment);
}

void IterateDense(const Network& network, Adjustment& adjustment, const Parameters& parameters) {
    NormalMatrix normals = MakePattern(adjustment.structure, adjustment.unknowns, {}, {});
    const auto correction = [&] {
        FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
        RenewDatum(adjustment.datum, network, adjustment.structure, adjustment.unknowns, adjustment.state);
        Eigen::VectorXd found = BorderedInverse(normals, adjustment.datum) * normals.right;
        ApplyInnerConstraints(adjustment.datum, OffsetOf(adjustment), found);
        return found;
    };
    Iterate(network, adjustment, {correction, SumOfSquares}, parameters);
    KeepResiduals(adjustment);
}

void IterateL1(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
               NormalMatrix& normals, const Parameters& parameters) {
    const auto correction = [&] {
        const Eigen::VectorXd reduced = LeastSumCorrection(adjustment, cholesky, normals);
        return WithDatum(network, adjustment, normals, reduced);
    };
    const auto sum = [](const std::vector<double>& v) {
        return std::accumulate(v.begin(), v.end(), 0.0, [](double s, double r) { return s + std::abs(r); });
    };
    Parameters level = parameters;
    level.largestCorrection = std::max(parameters.largestCorrection, kArithmeticNoise);
    Iterate(network, adjustment, {correction, sum}, level);
    KeepResiduals(adjustment);
}

}  // namespace Krenn
