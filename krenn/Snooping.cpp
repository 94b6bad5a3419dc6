// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Snooping.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "krenn/Distributions.h"
#include "krenn/Errors.h"
#include "krenn/Iterate.h"

namespace Krenn {
namespace {

constexpr int kMostRounds = 8;
constexpr double kForetold = 0.3;          // sigmas between a residual and its linear forecast
constexpr int kMostUnknownsForL1 = 60000;  // beyond, the L1 solution takes too long for a second attempt
constexpr std::size_t kAlternativesKept = 4;
constexpr double kNothingLeft = 1e-4;  // of a redundancy number

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// The network linearised at a state, all in units of sigma, and the columns of R found so far.
struct Linear {
    State state;
    Eigen::VectorXd correction;  // of the unheld unknowns, all observations taking part
    Eigen::VectorXd v;           // residuals after that correction
    Eigen::VectorXd r;
    std::vector<int> picked;                // measures
    Eigen::MatrixXd factor;                 // R is about factor * factor': one column for each picked measure
    std::vector<Eigen::VectorXd> response;  // Q a' of each
};

// Picked measures whose errors are estimated together; the others count as good.
struct Joint {
    std::vector<int> members;  // positions in Linear::picked
    Eigen::MatrixXd cofactor;  // inverse(R_SS)
    Eigen::VectorXd size;      // in sigmas
    Eigen::VectorXd w;
    Eigen::VectorXd v, r;  // of all measures
    double scale = 1;      // of |w| of the others, at least 1
};

struct Outcome {
    Linear linear;
    Joint joint;
    bool isComplete = false;
    bool isSettled = false;
};

struct Search {
    const Network& network;
    const Adjustment& adjustment;
    SparseCholesky& cholesky;
    NormalMatrix& normals;
    double critical;

    Eigen::Index Measures() const { return static_cast<Eigen::Index>(adjustment.structure.measures.size()); }
};

double CriticalOfLargest(const Parameters& parameters, std::size_t measures) {
    const double local = NormalQuantile(1 - parameters.localRisk / 2);
    const double tail = parameters.globalRisk / (2 * static_cast<double>(std::max<std::size_t>(measures, 1)));
    return std::max(local, NormalQuantile(1 - tail));
}

// A x over sigma.
Eigen::VectorXd TimesDesign(const Search& search, const State& state, const Eigen::VectorXd& x) {
    Eigen::VectorXd product(search.Measures());
    for (Eigen::Index m = 0; m < product.size(); ++m) {
        const Measure& measure = search.adjustment.structure.measures[At(m)];
        const Partials partials = ComputePartials(measure, state);
        const auto rows = RowsOf(search.normals, measure, search.adjustment.unknowns);
        double sum = 0;
        for (std::size_t i = 0; i < kTerms; ++i) {
            if (rows[i] >= 0)
                sum += partials.by[i] * x(rows[i]);
        }
        product(m) = sum / measure.sigma;
    }
    return product;
}

Eigen::VectorXd ResidualsAt(const Search& search, const State& state) {
    Eigen::VectorXd v(search.Measures());
    for (Eigen::Index m = 0; m < v.size(); ++m) {
        const Measure& measure = search.adjustment.structure.measures[At(m)];
        v(m) = -Misclosure(measure, ComputeValue(measure, state)) / measure.sigma;
    }
    return v;
}

Eigen::VectorXd RedundancyFrom(const Search& search, const std::vector<double>& forms) {
    Eigen::VectorXd r(search.Measures());
    for (Eigen::Index m = 0; m < r.size(); ++m) {
        const double sigma = search.adjustment.structure.measures[At(m)].sigma;
        r(m) = std::clamp(1 - forms[At(m)] / (sigma * sigma), 0.0, 1.0);
    }
    return r;
}

void FactoriseAt(const Search& search, const State& state) {
    FillNormals(search.normals, search.adjustment.structure, search.adjustment.unknowns, state, {});
    if (Factorise(search.cholesky, search.normals).least <= 0)
        throw Failure(ErrorNumber::Singular,
                      "The normal equations became singular in the search for errors.");
}

// At the least-squares solution, where residuals and cofactors are known.
Linear AtSolution(const Search& search) {
    FactoriseAt(search, search.adjustment.state);
    Linear linear;
    linear.state = search.adjustment.state;
    linear.correction = Eigen::VectorXd::Zero(search.normals.size);
    linear.v = ResidualsAt(search, linear.state);
    linear.r = RedundancyFrom(search, search.adjustment.cofactors.measure);
    return linear;
}

Linear LinearAt(const Search& search, const State& state) {
    FactoriseAt(search, state);
    Linear linear;
    linear.state = state;
    linear.correction = Solve(search.cholesky, search.normals.right);
    linear.v = ResidualsAt(search, state) + TimesDesign(search, state, linear.correction);
    const std::vector<double> entries = InverseEntries(search.cholesky, search.normals);
    linear.r = RedundancyFrom(search, MeasureForms(search.normals, entries, search.adjustment.structure,
                                                   search.adjustment.unknowns, state));
    FactoriseAt(search, state);
    return linear;
}

// Q a' over sigma.
Eigen::VectorXd ResponseTo(const Search& search, const State& state, int m) {
    const Measure& measure = search.adjustment.structure.measures[At(m)];
    const Partials partials = ComputePartials(measure, state);
    const auto rows = RowsOf(search.normals, measure, search.adjustment.unknowns);
    Eigen::VectorXd right = Eigen::VectorXd::Zero(search.normals.size);
    for (std::size_t i = 0; i < kTerms; ++i) {
        if (rows[i] >= 0)
            right(rows[i]) += partials.by[i] / measure.sigma;
    }
    return Solve(search.cholesky, right);
}

// The pivoted Cholesky factorisation of R as far as there are suspects. True when none is left.
bool PickSuspects(const Search& search, Linear& linear) {
    Eigen::VectorXd v = linear.v;
    Eigen::VectorXd r = linear.r;
    for (;;) {
        Eigen::Index worst = -1;
        double most = search.critical;
        for (Eigen::Index m = 0; m < v.size(); ++m) {
            const double w = r(m) > kLeastRedundancy ? std::abs(v(m)) / std::sqrt(r(m)) : 0.0;
            if (w > most) {
                most = w;
                worst = m;
            }
        }
        if (worst < 0)
            return true;
        const auto count = static_cast<Eigen::Index>(linear.picked.size());
        if (count >= kMostSuspects)
            return false;
        linear.response.push_back(ResponseTo(search, linear.state, static_cast<int>(worst)));
        Eigen::VectorXd column = -TimesDesign(search, linear.state, linear.response.back());
        column(worst) += 1;
        if (count > 0)
            column -= linear.factor * linear.factor.row(worst).transpose();
        column /= std::sqrt(std::max(column(worst), kLeastRedundancy));
        v -= column * (v(worst) / column(worst));
        r -= column.cwiseAbs2();
        v(worst) = 0;
        r(worst) = 0;
        linear.picked.push_back(static_cast<int>(worst));
        linear.factor.conservativeResize(v.size(), count + 1);
        linear.factor.col(count) = column;
    }
}

Eigen::MatrixXd RowsOfMembers(const Linear& linear, const Joint& joint) {
    Eigen::MatrixXd rows(joint.members.size(), linear.factor.cols());
    for (std::size_t i = 0; i < joint.members.size(); ++i)
        rows.row(static_cast<Eigen::Index>(i)) = linear.factor.row(linear.picked[At(joint.members[i])]);
    return rows;
}

// Median of |w| over its expectation, at least 1.
double TypicalSize(const Joint& joint) {
    std::vector<double> sizes;
    for (Eigen::Index m = 0; m < joint.v.size(); ++m) {
        if (joint.r(m) > kLeastRedundancy)
            sizes.push_back(std::abs(joint.v(m)) / std::sqrt(joint.r(m)));
    }
    if (sizes.empty())
        return 1;
    const auto middle = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
    std::nth_element(sizes.begin(), middle, sizes.end());
    return std::max(1.0, *middle / NormalQuantile(0.75));
}

Joint Estimate(const Linear& linear, const std::vector<int>& members) {
    Joint joint;
    joint.members = members;
    joint.v = linear.v;
    joint.r = linear.r;
    const auto count = static_cast<Eigen::Index>(members.size());
    if (count > 0) {
        const Eigen::MatrixXd rows = RowsOfMembers(linear, joint);
        joint.cofactor = (rows * rows.transpose()).ldlt().solve(Eigen::MatrixXd::Identity(count, count));
        Eigen::VectorXd known(count);
        for (Eigen::Index i = 0; i < count; ++i)
            known(i) = linear.v(linear.picked[At(members[At(i)])]);
        joint.size = -joint.cofactor * known;
        joint.w = -joint.size.cwiseQuotient(joint.cofactor.diagonal().cwiseSqrt());
        joint.v += linear.factor * (rows.transpose() * joint.size);
        const Eigen::MatrixXd taken = rows.transpose() * joint.cofactor * rows;
        joint.r -= (linear.factor * taken).cwiseProduct(linear.factor).rowwise().sum();
        for (const int member : members) {
            joint.v(linear.picked[At(member)]) = 0;
            joint.r(linear.picked[At(member)]) = 0;
        }
    }
    joint.scale = TypicalSize(joint);
    return joint;
}

// The picked measures without those that are good beside the others, smallest |w| first.
Joint TakeBack(const Search& search, const Linear& linear) {
    std::vector<int> members(linear.picked.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        members[i] = static_cast<int>(i);
    for (;;) {
        Joint joint = Estimate(linear, members);
        if (members.empty())
            return joint;
        Eigen::Index least = 0;
        if (joint.w.cwiseAbs().minCoeff(&least) > search.critical * joint.scale)
            return joint;
        members.erase(members.begin() + least);
    }
}

// The state without the suspects, as the linear model foretells it.
State StateWithout(const Search& search, const Linear& linear, const Joint& joint) {
    Eigen::VectorXd reduced = linear.correction;
    for (std::size_t i = 0; i < joint.members.size(); ++i)
        reduced -= linear.response[At(joint.members[i])] * joint.size(static_cast<Eigen::Index>(i));
    Eigen::VectorXd correction = Eigen::VectorXd::Zero(search.adjustment.unknowns.Count());
    for (int row = 0; row < search.normals.size; ++row)
        correction(search.normals.unknownOf[At(row)]) = reduced(row);
    return Moved(linear.state, search.adjustment.unknowns, correction, 1);
}

bool IsForetold(const Search& search, const Linear& linear, const Joint& joint, const State& reached) {
    Eigen::VectorXd off = ResidualsAt(search, reached) - joint.v;
    for (const int member : joint.members)
        off(linear.picked[At(member)]) = 0;
    return off.allFinite() && off.cwiseAbs().maxCoeff() < kForetold * joint.scale;
}

// One search at one state; `reached` is the state without the suspects.
Outcome Examine(const Search& search, Linear linear, State& reached) {
    Outcome outcome;
    outcome.isComplete = PickSuspects(search, linear);
    outcome.joint = TakeBack(search, linear);
    reached = StateWithout(search, linear, outcome.joint);
    outcome.isSettled = IsForetold(search, linear, outcome.joint, reached);
    outcome.linear = std::move(linear);
    return outcome;
}

// Follows the network without its suspects; nothing when that leads nowhere.
std::optional<Outcome> Follow(const Search& search, State state) {
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

std::optional<State> L1Solution(const Search& search) {
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

std::optional<Outcome> FollowFromStart(const Search& search) {
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

// Measures that would be tested with nearly the same result as a suspect, were it not suspected.
std::vector<int> AlternativesTo(const Linear& linear, const Joint& joint, Eigen::Index member) {
    const double own = 1 / joint.cofactor(member, member);
    const Eigen::MatrixXd rows = RowsOfMembers(linear, joint);
    const Eigen::VectorXd column = linear.factor * (rows.transpose() * joint.cofactor.col(member)) * own;
    std::vector<std::pair<double, int>> alike;
    for (Eigen::Index m = 0; m < column.size(); ++m) {
        const double left = std::max(joint.r(m), 0.0) + column(m) * column(m) / own;
        const bool isSuspect = std::any_of(joint.members.begin(), joint.members.end(),
                                           [&](int other) { return linear.picked[At(other)] == m; });
        if (isSuspect || left < kNothingLeft)
            continue;
        const double correlation = std::abs(column(m)) / std::sqrt(own * left);
        if (correlation > kAlike)
            alike.emplace_back(-correlation, static_cast<int>(m));
    }
    std::sort(alike.begin(), alike.end());
    std::vector<int> alternatives;
    for (std::size_t i = 0; i < std::min(alike.size(), kAlternativesKept); ++i)
        alternatives.push_back(alike[i].second);
    return alternatives;
}

void Keep(const Search& search, const Outcome& outcome, Snooping& snooping) {
    const Joint& joint = outcome.joint;
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

bool HasCause(const Search& search) {
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
    const Search search{network, adjustment, cholesky, normals, snooping.critical};
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
    const Search search{network, adjustment, cholesky, normals, snooping.critical};
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
