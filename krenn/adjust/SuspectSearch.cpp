// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/SuspectSearch.h"

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Distributions.h"

namespace Krenn {
namespace {

constexpr std::size_t kAlternativesKept = 4;
constexpr double kNothingLeft = 1e-4;  // of a redundancy number

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// A x over sigma.
Eigen::VectorXd TimesDesign(const SuspectSearch& search, const State& state, const Eigen::VectorXd& x) {
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

Eigen::VectorXd RedundancyFrom(const SuspectSearch& search, const std::vector<double>& forms) {
    Eigen::VectorXd r(search.Measures());
    for (Eigen::Index m = 0; m < r.size(); ++m) {
        const double sigma = search.adjustment.structure.measures[At(m)].sigma;
        r(m) = std::clamp(1 - forms[At(m)] / (sigma * sigma), 0.0, 1.0);
    }
    return r;
}

void FactoriseAt(const SuspectSearch& search, const State& state) {
    FillNormals(search.normals, search.adjustment.structure, search.adjustment.unknowns, state, {});
    if (Factorise(search.cholesky, search.normals).least <= 0)
        throw Failure(ErrorNumber::Singular,
                      "The normal equations became singular in the search for errors.");
}

// Q a' over sigma.
Eigen::VectorXd ResponseTo(const SuspectSearch& search, const State& state, int m) {
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

Eigen::MatrixXd RowsOfMembers(const LinearNetwork& linear, const JointErrors& joint) {
    Eigen::MatrixXd rows(joint.members.size(), linear.factor.cols());
    for (std::size_t i = 0; i < joint.members.size(); ++i)
        rows.row(static_cast<Eigen::Index>(i)) = linear.factor.row(linear.picked[At(joint.members[i])]);
    return rows;
}

// Median of |w| over its expectation, at least 1.
double TypicalSize(const JointErrors& joint) {
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

JointErrors Estimate(const LinearNetwork& linear, const std::vector<int>& members) {
    JointErrors joint;
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

}  // namespace

Eigen::VectorXd ResidualsAt(const SuspectSearch& search, const State& state) {
    Eigen::VectorXd v(search.Measures());
    for (Eigen::Index m = 0; m < v.size(); ++m) {
        const Measure& measure = search.adjustment.structure.measures[At(m)];
        v(m) = -Misclosure(measure, ComputeValue(measure, state)) / measure.sigma;
    }
    return v;
}

LinearNetwork AtSolution(const SuspectSearch& search) {
    FactoriseAt(search, search.adjustment.state);
    LinearNetwork linear;
    linear.state = search.adjustment.state;
    linear.correction = Eigen::VectorXd::Zero(search.normals.size);
    linear.v = ResidualsAt(search, linear.state);
    linear.r = RedundancyFrom(search, search.adjustment.cofactors.measure);
    return linear;
}

LinearNetwork LinearAt(const SuspectSearch& search, const State& state) {
    FactoriseAt(search, state);
    LinearNetwork linear;
    linear.state = state;
    linear.correction = Solve(search.cholesky, search.normals.right);
    linear.v = ResidualsAt(search, state) + TimesDesign(search, state, linear.correction);
    const std::vector<double> entries = InverseEntries(search.cholesky, search.normals);
    linear.r = RedundancyFrom(search, MeasureForms(search.normals, entries, search.adjustment.structure,
                                                   search.adjustment.unknowns, state));
    FactoriseAt(search, state);
    return linear;
}

bool PickSuspects(const SuspectSearch& search, LinearNetwork& linear) {
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

JointErrors TakeBack(const SuspectSearch& search, const LinearNetwork& linear) {
    std::vector<int> members(linear.picked.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        members[i] = static_cast<int>(i);
    for (;;) {
        JointErrors joint = Estimate(linear, members);
        if (members.empty())
            return joint;
        Eigen::Index least = 0;
        if (joint.w.cwiseAbs().minCoeff(&least) > search.critical * joint.scale)
            return joint;
        members.erase(members.begin() + least);
    }
}

State StateWithout(const SuspectSearch& search, const LinearNetwork& linear, const JointErrors& joint) {
    Eigen::VectorXd reduced = linear.correction;
    for (std::size_t i = 0; i < joint.members.size(); ++i)
        reduced -= linear.response[At(joint.members[i])] * joint.size(static_cast<Eigen::Index>(i));
    Eigen::VectorXd correction = Eigen::VectorXd::Zero(search.adjustment.unknowns.Count());
    for (int row = 0; row < search.normals.size; ++row)
        correction(search.normals.unknownOf[At(row)]) = reduced(row);
    return Moved(linear.state, search.adjustment.unknowns, correction, 1);
}

std::vector<int> AlternativesTo(const LinearNetwork& linear, const JointErrors& joint, Eigen::Index member) {
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

}  // namespace Krenn
