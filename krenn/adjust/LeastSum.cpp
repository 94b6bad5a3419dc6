// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/LeastSum.h"

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"

namespace Krenn {
namespace {

using Vector = Eigen::ArrayXd;

constexpr int kMostSteps = 100;
constexpr double kBackOff = 0.99995;  // part of the way to the nearest bound that a step goes at most
constexpr double kGap = 1e-11;        // duality gap, relative to the sum of absolute values

// The rows of A over sigma, in the numbering of the normal equations.
struct Rows {
    std::vector<std::array<int, kTerms>> index;
    std::vector<std::array<double, kTerms>> entry;
    Vector misclosure;

    Vector Times(const Eigen::VectorXd& x) const {
        Vector product = Vector::Zero(static_cast<Eigen::Index>(index.size()));
        for (std::size_t m = 0; m < index.size(); ++m) {
            for (std::size_t i = 0; i < kTerms; ++i) {
                if (index[m][i] >= 0)
                    product(static_cast<Eigen::Index>(m)) += entry[m][i] * x(index[m][i]);
            }
        }
        return product;
    }

    Eigen::VectorXd TransposeTimes(const Vector& a, int size) const {
        Eigen::VectorXd product = Eigen::VectorXd::Zero(size);
        for (std::size_t m = 0; m < index.size(); ++m) {
            for (std::size_t i = 0; i < kTerms; ++i) {
                if (index[m][i] >= 0)
                    product(index[m][i]) += entry[m][i] * a(static_cast<Eigen::Index>(m));
            }
        }
        return product;
    }
};

Rows RowsAt(const Adjustment& adjustment, const NormalMatrix& normals) {
    const auto& measures = adjustment.structure.measures;
    Rows rows;
    rows.misclosure.resize(static_cast<Eigen::Index>(measures.size()));
    for (std::size_t m = 0; m < measures.size(); ++m) {
        Partials partials = ComputePartials(measures[m], adjustment.state);
        rows.misclosure(static_cast<Eigen::Index>(m)) =
            Misclosure(measures[m], partials.computed) / measures[m].sigma;
        for (double& by : partials.by)
            by /= measures[m].sigma;
        rows.index.push_back(RowsOf(normals, measures[m], adjustment.unknowns));
        rows.entry.push_back(partials.by);
    }
    return rows;
}

// The longest step, at most 1, that keeps value + step * change above zero.
double LongestStep(const Vector& value, const Vector& change) {
    double step = INFINITY;
    for (Eigen::Index i = 0; i < value.size(); ++i) {
        if (change(i) < 0)
            step = std::min(step, -value(i) / change(i));
    }
    return std::min(1.0, kBackOff * step);
}

// The state of the programme: a and its distance s from the upper bound, the multipliers z and w of the two
// bounds, and the correction x; w - z is the residual l - A x.
struct Interior {
    Vector a, s, z, w;
    Eigen::VectorXd x;

    double Gap() const { return (a * z).sum() + (s * w).sum(); }
};

struct Change {
    Vector a, z, w;
    Eigen::VectorXd x;
};

struct Solver {
    const Adjustment& adjustment;
    SparseCholesky& cholesky;
    NormalMatrix& normals;
    const Rows& rows;
    Vector weight;

    // Factorises A' diag(weight) A; false once it has become singular, which happens only near the solution.
    bool Prepare(const Interior& point) {
        weight = 1 / (point.z / point.a + point.w / point.s);
        const std::vector<double> weights(weight.begin(), weight.end());
        FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, weights);
        return Factorise(cholesky, normals).least > 0;
    }

    // The Newton step for a z = mu - pz, s w = mu - pw (pz, pw: products of the predictor).
    Change Step(const Interior& point, double mu, const Vector& pz, const Vector& pw) {
        const Vector target = (mu - pz) / point.a - (mu - pw) / point.s;
        const Vector right = point.w - point.z + target;
        Change change;
        change.x = Solve(cholesky, rows.TransposeTimes(weight * right, normals.size));
        change.a = weight * (right - rows.Times(change.x));
        change.z = (mu - pz) / point.a - point.z - point.z / point.a * change.a;
        change.w = (mu - pw) / point.s - point.w + point.w / point.s * change.a;
        return change;
    }
};

Interior FirstPoint(Solver& solver, const Rows& rows) {
    const Eigen::Index count = rows.misclosure.size();
    FillNormals(solver.normals, solver.adjustment.structure, solver.adjustment.unknowns,
                solver.adjustment.state, {});
    if (Factorise(solver.cholesky, solver.normals).least <= 0)
        throw Failure(ErrorNumber::Singular, "The normal equations became singular while iterating.");
    Interior point;
    point.x = Solve(solver.cholesky, solver.normals.right);
    const Vector residual = rows.misclosure - rows.Times(point.x);
    // Away from the bounds by a part of the mean residual, so that no pair starts at zero.
    const double margin = 0.1 * residual.abs().mean() + 1e-6;
    point.a = Vector::Constant(count, 0.5);
    point.s = Vector::Constant(count, 0.5);
    point.w = residual.max(0) + margin;
    point.z = (-residual).max(0) + margin;
    return point;
}

}  // namespace

Eigen::VectorXd LeastSumCorrection(const Adjustment& adjustment, SparseCholesky& cholesky,
                                   NormalMatrix& normals) {
    const Rows rows = RowsAt(adjustment, normals);
    Solver solver{adjustment, cholesky, normals, rows, {}};
    Interior point = FirstPoint(solver, rows);
    const Eigen::Index count = rows.misclosure.size();
    const Vector none = Vector::Zero(count);
    const double enough = kGap * (1 + rows.misclosure.abs().sum());
    for (int step = 0; step < kMostSteps; ++step) {
        const double gap = point.Gap();
        if (gap < enough)
            return point.x;
        if (!solver.Prepare(point)) {
            // Next to the solution the weights drift so far apart that the arithmetic ends before the gap
            // does.
            if (gap < 1e5 * enough)
                return point.x;
            throw Failure(ErrorNumber::NoConvergence,
                          "The linear programme of the L1 norm became singular before it was solved.");
        }
        const Change predictor = solver.Step(point, 0, none, none);
        const double stepA = std::min(LongestStep(point.a, predictor.a), LongestStep(point.s, -predictor.a));
        const double stepZ = std::min(LongestStep(point.z, predictor.z), LongestStep(point.w, predictor.w));
        const double reached = ((point.a + stepA * predictor.a) * (point.z + stepZ * predictor.z)).sum() +
                               ((point.s - stepA * predictor.a) * (point.w + stepZ * predictor.w)).sum();
        const double ratio = reached / gap;
        const double mu = ratio * ratio * ratio * gap / (2.0 * static_cast<double>(count));
        const Change change = solver.Step(point, mu, predictor.a * predictor.z, -predictor.a * predictor.w);
        const double primal = std::min(LongestStep(point.a, change.a), LongestStep(point.s, -change.a));
        const double dual = std::min(LongestStep(point.z, change.z), LongestStep(point.w, change.w));
        point.a += primal * change.a;
        point.s -= primal * change.a;
        point.x += dual * change.x;
        point.z += dual * change.z;
        point.w += dual * change.w;
        if (!point.x.allFinite())
            throw Failure(ErrorNumber::NotFinite, "The linear programme gives no finite correction.");
    }
    throw Failure(ErrorNumber::NoConvergence, "The linear programme of the L1 norm does not converge.");
}

}  // namespace Krenn
