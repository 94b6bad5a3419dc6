// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Snooping.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "krenn/Errors.h"
#include "krenn/adjust/Distributions.h"
#include "krenn/adjust/Iterate.h"
#include "krenn/adjust/SuspectSearch.h"

namespace Krenn {
namespace {

constexpr int kMostRounds = 8;
constexpr double kForetold = 0.3;          // sigmas between a residual and its linear forecast
constexpr int kMostUnknownsForL1 = 60000;  // beyond, the L1 solution takes too long for a second attempt

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

struct Outcome {
    LinearNetwork linear;
    JointErrors joint;
    bool isComplete = false;
    bool isSettled = false;
};

double CriticalOfLargest(const Parameters& parameters, std::size_t measures) {
    const double local = NormalQuantile(1 - parameters.localRisk / 2);
    const double tail = parameters.globalRisk / (2 * static_cast<double>(std::max<std::size_t>(measures, 1)));
    return std::max(local, NormalQuantile(1 - tail));
}

bool IsForetold(const SuspectSearch& search, const LinearNetwork& linear, const JointErrors& joint,
                const State& reached) {
    Eigen::VectorXd off = ResidualsAt(search, reached) - joint.v;
    for (const int member : joint.members)
        off(linear.picked[At(member)]) = 0;
    return off.allFinite() && off.cwiseAbs().maxCoeff() < kForetold * joint.scale;
}

// One search at one state; `reached` is the state without the suspects.
Outcome Examine(const SuspectSearch& search, LinearNetwork linear, State& reached) {
    Outcome outcome;
    outcome.isComplete = PickSuspects(search, linear);
    outcome.joint = TakeBack(search, linear);
    reached = StateWithout(search, linear, outcome.joint);
    outcome.isSettled = IsForetold(search, linear, outcome.joint, reached);
    outcome.linear = std::move(linear);
    return outcome;
}

// Follows the network without its suspects; nothing when that leads nowhere.
std::optional<Outcome> Follow(const SuspectSearch& search, State state) {
    try {
        for (int round = 0; round < kMostRounds; ++round) {
            State reached;
            Outcome outcome = Examine(search, LinearAt(search, state), reached);
            if (outcome.isSettled)
                return outcome;
            state = std::move(reached);
        }
    } catch (const Failure& failure) {
        if (failure.number != ErrorNumber::Singular)
            throw;
    }
    return std::nullopt;
}

std::optional<State> L1Solution(const SuspectSearch& search) {
    if (search.normals.size > kMostUnknownsForL1)
        return std::nullopt;
    Adjustment other = search.adjustment;
    other.state = other.start;
    other.iterations.clear();
    other.type = Type::L1Norm;
    try {
        IterateL1(search.network, other, search.cholesky, search.normals, other.parameters);
    } catch (const Failure& failure) {
        if (failure.number != ErrorNumber::NoConvergence && failure.number != ErrorNumber::Singular &&
            failure.number != ErrorNumber::NotFinite)
            throw;
        return std::nullopt;
    }
    return other.state;
}

std::optional<Outcome> FollowFromStart(const SuspectSearch& search) {
    std::optional<Outcome> first = Follow(search, search.adjustment.start);
    if (first && first->isComplete)
        return first;
    if (const std::optional<State> state = L1Solution(search)) {
        std::optional<Outcome> second = Follow(search, *state);
        if (second && (second->isComplete || !first))
            return second;
    }
    return first;
}

void Keep(const SuspectSearch& search, const Outcome& outcome, Snooping& snooping) {
    const JointErrors& joint = outcome.joint;
    snooping.isMade = true;
    snooping.isComplete = outcome.isComplete;
    snooping.isSettled = outcome.isSettled;
    snooping.redundancy = search.adjustment.Redundancy() - static_cast<int>(joint.members.size());
    snooping.m0 = snooping.redundancy > 0 ? std::sqrt(joint.v.squaredNorm() / snooping.redundancy) : 1;
    for (Eigen::Index i = 0; i < joint.size.size(); ++i) {
        const int m = outcome.linear.picked[At(joint.members[At(i)])];
        snooping.suspects.push_back({m, joint.size(i) * search.adjustment.structure.measures[At(m)].sigma,
                                     joint.w(i), AlternativesTo(outcome.linear, joint, i)});
    }
    std::stable_sort(snooping.suspects.begin(), snooping.suspects.end(),
                     [](const Suspect& a, const Suspect& b) { return std::abs(a.w) > std::abs(b.w); });
}

bool HasCause(const SuspectSearch& search) {
    const Adjustment& adjustment = search.adjustment;
    for (std::size_t m = 0; m < adjustment.residual.size(); ++m) {
        const double sigma = adjustment.structure.measures[m].sigma;
        const double r = 1 - adjustment.cofactors.measure[m] / (sigma * sigma);
        if (r > kLeastRedundancy && std::abs(adjustment.residual[m]) > search.critical * sigma * std::sqrt(r))
            return true;
    }
    return false;
}

}  // namespace

void Snoop(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky, NormalMatrix& normals) {
    Snooping snooping;
    snooping.critical = CriticalOfLargest(adjustment.parameters, adjustment.structure.measures.size());
    const SuspectSearch search{network, adjustment, cholesky, normals, snooping.critical};
    if (HasCause(search)) {
        State reached;
        Outcome outcome = Examine(search, AtSolution(search), reached);
        if (!outcome.isSettled) {
            if (std::optional<Outcome> followed = FollowFromStart(search))
                outcome = std::move(*followed);
        }
        Keep(search, outcome, snooping);
    }
    adjustment.snooping = std::move(snooping);
}

void SnoopFromStart(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                    NormalMatrix& normals) {
    Snooping snooping;
    snooping.critical = CriticalOfLargest(adjustment.parameters, adjustment.structure.measures.size());
    const SuspectSearch search{network, adjustment, cholesky, normals, snooping.critical};
    if (const std::optional<Outcome> outcome = FollowFromStart(search))
        Keep(search, *outcome, snooping);
    adjustment.snooping = std::move(snooping);
}

void KeepLargestResiduals(Adjustment& adjustment) {
    Snooping& snooping = adjustment.snooping;
    const auto& measures = adjustment.structure.measures;
    snooping.critical = CriticalOfLargest(adjustment.parameters, measures.size());
    double squares = adjustment.sumOfSquares;
    std::vector<Suspect> suspects;
    for (std::size_t m = 0; m < measures.size(); ++m) {
        const double w = adjustment.residual[m] / measures[m].sigma;
        if (std::abs(w) > snooping.critical)
            suspects.push_back({static_cast<int>(m), -adjustment.residual[m], w, {}});
    }
    std::stable_sort(suspects.begin(), suspects.end(),
                     [](const Suspect& a, const Suspect& b) { return std::abs(a.w) > std::abs(b.w); });
    snooping.isMade = !suspects.empty();
    snooping.isComplete = suspects.size() <= kMostSuspects;
    if (!snooping.isComplete)
        suspects.resize(kMostSuspects);
    for (const Suspect& suspect : suspects)
        squares -= suspect.w * suspect.w;
    snooping.suspects = std::move(suspects);
    snooping.redundancy = adjustment.Redundancy() - static_cast<int>(snooping.suspects.size());
    snooping.m0 = snooping.redundancy > 0 ? std::sqrt(std::max(squares, 0.0) / snooping.redundancy) : 1;
}

std::string SuspectInWords(const Network& network, const Adjustment& adjustment, const Suspect& suspect) {
    constexpr std::array kNames{"direction", "zenith angle", "slope distance", "horizontal distance",
                                "height difference"};
    const Measure& measure = adjustment.structure.measures[At(suspect.measure)];
    const bool isAngle = measure.kind == MeasureKind::Direction || measure.kind == MeasureKind::ZenithAngle;
    const double size = isAngle ? suspect.size * 200 / std::numbers::pi : suspect.size;
    const std::string amount = std::abs(size) < 0.1
                                   ? fmt::format("{:.2f} {}", 1000 * size, isAngle ? "mgon" : "mm")
                                   : fmt::format("{:.5g} {}", size, isAngle ? "gon" : "m");
    return fmt::format("{} {} to {}, line {}: {}", kNames[static_cast<std::size_t>(measure.kind)],
                       network.points[At(measure.from)].name, network.points[At(measure.to)].name,
                       network.observations[At(measure.observation)].line, amount);
}

}  // namespace Krenn
