// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Iterate.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <numeric>
#include <utility>

#include "krenn/Errors.h"
#include "krenn/Parallel.h"
#include "krenn/adjust/LeastSum.h"
#include "krenn/solve/Jordan.h"

namespace Krenn {
namespace {

constexpr double kArithmeticNoise = 1e-7;  // meters
constexpr double kMostLeft = 1e-9;         // meters to the solution when the iterations end
// Parts of the shortest sight: so far a factor serves other states, so far their variances differ by less
// than their eighth digit, so far they are those of the state itself.
constexpr double kServedPart = 1e-3;
constexpr double kNearPart = 1e-10;
constexpr double kSamePart = 1e-12;
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
std::vector<double> WeightedResiduals(const Adjustment& adjustment, const State& state) {
    const std::vector<Measure>& measures = adjustment.structure.measures;
    std::vector<double> v(measures.size());
    ParallelRanges(
        ThreadsFor(adjustment.parameters.threads), v.size(), [&](std::size_t begin, std::size_t end) {
            for (std::size_t m = begin; m < end; ++m)
                v[m] = -Misclosure(measures[m], ComputeValue(measures[m], state)) / measures[m].sigma;
        });
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

// Per set-up that is not levelled, its longest sight in meters: what a radian moves its sights by. Empty when
// every set-up is levelled; orientations enter linearly and need no watching.
std::vector<double> ArmsOf(const Structure& structure, const State& state) {
    std::vector<double> arms;
    if (state.axes.empty())
        return arms;
    arms.assign(structure.setups.size(), 0);
    for (const Measure& measure : structure.measures) {
        if (!measure.isTilted)
            continue;
        const auto seen = SeenFrom(measure, state);
        double& arm = arms[At(measure.setup)];
        arm = std::max(arm, std::hypot(seen[0], seen[1], seen[2]));
    }
    return arms;
}

// How far an unknown moves the network, in meters: a coordinate itself, a rotation the end of the longest
// sight.
double ReachOf(const UnknownOf& of, const std::vector<double>& arms) {
    if (IsCoordinate(of))
        return 1;
    const bool isRotation = of.axis >= kRotationAxis && of.axis <= kOrientationAxis;
    return isRotation && !arms.empty() ? arms[At(of.index)] : 0;
}

Iteration Describe(const Adjustment& adjustment, const Eigen::VectorXd& correction) {
    const std::vector<double> arms = ArmsOf(adjustment.structure, adjustment.state);
    Iteration iteration;
    for (int unknown = 0; unknown < adjustment.unknowns.Count(); ++unknown) {
        const double size =
            std::abs(correction(unknown)) * ReachOf(adjustment.unknowns.of[At(unknown)], arms);
        if (!std::isfinite(correction(unknown)))
            throw Failure(ErrorNumber::NotFinite, "A correction is not a finite number.");
        if (size > iteration.largest) {
            iteration.largest = size;
            iteration.unknown = unknown;
        }
    }
    return iteration;
}

[[noreturn]] void RefuseConvergence(const Network& network, const Adjustment& adjustment,
                                    const std::string& cause = {}) {
    const std::vector<double> v = WeightedResiduals(adjustment, adjustment.state);
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
bool TakeStep(Adjustment& adjustment, const Scheme& scheme, double& target,
              int mostHalvings = kMostHalvings) {
    const Eigen::VectorXd correction = scheme.correction();
    const PhaseClock clock(adjustment.phases.linearise);
    Iteration iteration = Describe(adjustment, correction);
    for (int halving = 0; halving <= mostHalvings; ++halving, iteration.step /= 2) {
        State trial = Moved(adjustment.state, adjustment.unknowns, correction, iteration.step);
        const double reached = scheme.target(WeightedResiduals(adjustment, trial));
        // Tiny corrections change the target by less than its own rounding; they are always taken.
        const bool isTiny = iteration.largest < 1e-5;
        if (!(reached <= target * (1 + 1e-10) + 1e-9) && !isTiny)
            continue;
        adjustment.state = std::move(trial);
        iteration.target = reached;
        iteration.largest *= iteration.step;
        adjustment.iterations.push_back(iteration);
        target = reached;
        return true;
    }
    return false;
}

// What the corrections still to come add up to if they go on to shrink as the last two did.
double WayLeft(const std::vector<Iteration>& iterations) {
    const double last = iterations.back().largest;
    if (iterations.size() < 2 || last == 0)
        return last;
    const double rate = last / iterations[iterations.size() - 2].largest;
    return rate < 1 ? last * rate / (1 - rate) : INFINITY;
}

// Corrections that no longer shrink and are too small to mean anything.
bool IsNoise(const std::vector<Iteration>& iterations) {
    const double last = iterations.back().largest;
    return iterations.size() >= 3 && last <= kArithmeticNoise &&
           last > 0.5 * iterations[iterations.size() - 2].largest;
}

// Corrections as small as asked that shrink slowly, however often the equations are made anew: a position
// that the observations hardly hold. More of them would follow the noise of the arithmetic.
bool CreepsBelow(const std::vector<Iteration>& iterations, double bound) {
    const Iteration& last = iterations.back();
    return iterations.size() >= 3 && last.step == 1 && last.largest < bound && WayLeft(iterations) < bound &&
           last.largest > 0.1 * iterations[iterations.size() - 2].largest;
}

// True once the corrections are as small as asked and little is left, or noise.
bool HasSettled(const std::vector<Iteration>& iterations, double bound, double mostLeft) {
    const Iteration& last = iterations.back();
    if (last.step < 1)
        return false;
    return (last.largest < bound && !(WayLeft(iterations) > mostLeft)) || IsNoise(iterations);
}

double FirstTarget(const Adjustment& adjustment, const Scheme& scheme) {
    const double target = scheme.target(WeightedResiduals(adjustment, adjustment.state));
    if (!std::isfinite(target))
        throw Failure(ErrorNumber::NotFinite, "The observations give no finite residuals at the start.");
    return target;
}

// `mostMoved`: what the last correction may move, for the sake of what was computed before it.
void Iterate(const Network& network, Adjustment& adjustment, const Scheme& scheme,
             const Parameters& parameters, double mostLeft, double mostMoved) {
    double target = FirstTarget(adjustment, scheme);
    const std::vector<Iteration>& iterations = adjustment.iterations;
    for (int i = 0; i < parameters.mostIterations; ++i) {
        if (!TakeStep(adjustment, scheme, target))
            RefuseConvergence(network, adjustment);
        if (HasSettled(iterations, parameters.largestCorrection, mostLeft) &&
            (iterations.back().largest <= mostMoved || IsNoise(iterations)))
            return;
        if (CreepsBelow(iterations, parameters.largestCorrection))
            return;
    }
    RefuseConvergence(network, adjustment);
}

void KeepResiduals(Adjustment& adjustment) {
    adjustment.residual = WeightedResiduals(adjustment, adjustment.state);
    adjustment.sumOfSquares = SumOfSquares(adjustment.residual);
    for (std::size_t m = 0; m < adjustment.residual.size(); ++m)
        adjustment.residual[m] *= adjustment.structure.measures[m].sigma;
}

// The correction of all unknowns under inner constraints from that of the unheld ones.
Eigen::VectorXd WithDatum(const Network& network, Adjustment& adjustment, const NormalMatrix& normals,
                          const Eigen::VectorXd& reduced) {
    const PhaseClock clock(adjustment.phases.linearise);
    Eigen::VectorXd correction = Eigen::VectorXd::Zero(adjustment.unknowns.Count());
    for (int row = 0; row < normals.size; ++row)
        correction(normals.unknownOf[At(row)]) = reduced(row);
    RenewDatum(adjustment.datum, network, adjustment.structure, adjustment.unknowns, adjustment.state);
    ApplyInnerConstraints(adjustment.datum, OffsetOf(adjustment), correction);
    return correction;
}

double ShortestSight(const Structure& structure, const State& state) {
    double shortest = INFINITY;
    for (const Measure& measure : structure.measures) {
        const auto& from = state.at[At(measure.from)];
        const auto& to = state.at[At(measure.to)];
        if (measure.kind != MeasureKind::HeightDifference)
            shortest = std::min(shortest, std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]));
    }
    return shortest;
}

// The normal equations and their factor, and how far the state has gone from where they were made.
struct SparseSystem {
    const Network& network;
    Adjustment& adjustment;
    SparseCholesky& cholesky;
    NormalMatrix& normals;
    int steps = 0;  // taken with this factor
    double moved = 0;

    void Renew() {
        steps = 0;
        moved = 0;
        {
            const PhaseClock clock(adjustment.phases.linearise);
            FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
        }
        const PhaseClock clock(adjustment.phases.factorise);
        const Pivot pivot = Factorise(cholesky, normals);
        if (pivot.least > 0)
            return;
        const int unknown = normals.unknownOf[At(pivot.row)];
        RefuseConvergence(
            network, adjustment,
            fmt::format("In iteration {} the normal equations became singular near {}.",
                        adjustment.iterations.size() + 1,
                        UnknownInWords(network, adjustment.structure, adjustment.unknowns.of[At(unknown)])));
    }

    Eigen::VectorXd Correction() {
        if (steps > 0) {
            const PhaseClock clock(adjustment.phases.linearise);
            FillRight(normals, adjustment.structure, adjustment.unknowns, adjustment.state,
                      ThreadsFor(adjustment.parameters.threads));
        }
        Eigen::VectorXd reduced;
        {
            const PhaseClock clock(adjustment.phases.solve);
            reduced = Solve(cholesky, normals.right);
        }
        return WithDatum(network, adjustment, normals, reduced);
    }

    void CountStep() {
        ++steps;
        moved += adjustment.iterations.back().largest;
    }

    // The factor gives corrections that shrink by a factor of ten at least.
    bool IsStillGood(double shortest) const {
        const std::vector<Iteration>& iterations = adjustment.iterations;
        const Iteration& last = iterations.back();
        if (last.step < 1 || moved > kServedPart * shortest)
            return false;
        return iterations.size() < 2 || last.largest < 0.1 * iterations[iterations.size() - 2].largest;
    }
};

}  // namespace

void IterateSparse(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                   NormalMatrix& normals, const Parameters& parameters) {
    SparseSystem system{network, adjustment, cholesky, normals};
    const Scheme scheme{[&] { return system.Correction(); }, SumOfSquares};
    const double shortest = ShortestSight(adjustment.structure, adjustment.state);
    double target = FirstTarget(adjustment, scheme);
    bool wasTrue = false;
    while (static_cast<int>(adjustment.iterations.size()) < parameters.mostIterations) {
        const bool isTrue = system.steps == 0;
        const bool isTrueAgain = std::exchange(wasTrue, isTrue) && isTrue;
        if (!TakeStep(adjustment, scheme, target, isTrue ? kMostHalvings : 0)) {
            if (isTrue)
                RefuseConvergence(network, adjustment);
            system.Renew();
            continue;
        }
        system.CountStep();
        if (isTrueAgain && CreepsBelow(adjustment.iterations, parameters.largestCorrection)) {
            KeepResiduals(adjustment);
            return;
        }
        if (!HasSettled(adjustment.iterations, parameters.largestCorrection, kMostLeft)) {
            if (!system.IsStillGood(shortest))
                system.Renew();
            continue;
        }
        const bool isNear = system.moved <= kNearPart * shortest;
        if (system.moved <= kSamePart * shortest || (IsNoise(adjustment.iterations) && (isTrue || isNear))) {
            KeepResiduals(adjustment);
            return;
        }
        // Another solution costs little. It tells whether a true correction that is larger than thought is
        // noise, and spares a factor at a state that is not yet the last one.
        const bool isSmall = adjustment.iterations.back().largest <= kSamePart * shortest;
        if (isNear ? !isTrue : isSmall || IsNoise(adjustment.iterations) || !system.IsStillGood(shortest))
            system.Renew();
    }
    RefuseConvergence(network, adjustment);
}

Eigen::MatrixXd IterateDense(const Network& network, Adjustment& adjustment, const Parameters& parameters) {
    NormalMatrix normals = MakePattern(adjustment.structure, adjustment.unknowns, {}, {});
    Eigen::MatrixXd inverse;
    const auto correction = [&] {
        FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
        RenewDatum(adjustment.datum, network, adjustment.structure, adjustment.unknowns, adjustment.state);
        inverse = BorderedInverse(normals, adjustment.datum, parameters.threads);
        Eigen::VectorXd found = inverse * normals.right;
        ApplyInnerConstraints(adjustment.datum, OffsetOf(adjustment), found);
        return found;
    };
    const double shortest = ShortestSight(adjustment.structure, adjustment.state);
    Iterate(network, adjustment, {correction, SumOfSquares}, parameters, kMostLeft, kSamePart * shortest);
    KeepResiduals(adjustment);
    return inverse;
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
    Iterate(network, adjustment, {correction, sum}, level, INFINITY, INFINITY);
    KeepResiduals(adjustment);
}

}  // namespace Krenn
