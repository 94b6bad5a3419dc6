// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/krenn/Reference.h"

#include <Eigen/Geometry>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace KrennTest {
namespace {

using Eigen::Index;
using Eigen::MatrixXd;
using Eigen::VectorXd;
using Krenn::Kind;

constexpr double kGons = 200 / std::numbers::pi;
constexpr double kEarth = 6372508.025;
constexpr double kRankBound = 1e-9;  // of a singular value, columns scaled to length 1

std::size_t At(Index index) {
    return static_cast<std::size_t>(index);
}

// Columns: three coordinates a point, three rotations a station, then scale and zero point of both meters and
// the refraction coefficient.
struct Problem {
    const Krenn::Network& network;
    const Krenn::Parameters& parameters;
    int dimension;
    Index points;
    std::vector<bool> isTilted;

    Index RotationOf(int point) const { return 3 * points + 3 * point; }
    Index MeterOf(const Krenn::Observation& o) const { return 6 * points + (o.isTracker ? 2 : 0); }
    Index Refraction() const { return 6 * points + 4; }
    Index Columns() const { return 6 * points + 5; }
};

struct Values {
    VectorXd x;                             // all columns; those of rotations are increments, else zero
    std::vector<Eigen::Matrix3d> attitude;  // per point: from the network into the instrument
};

Eigen::Matrix3d Turned(const Eigen::Vector3d& by) {
    const double angle = by.norm();
    return angle > 0 ? Eigen::AngleAxisd(angle, by / angle).toRotationMatrix() : Eigen::Matrix3d::Identity();
}

double Computed(const Problem& problem, const Krenn::Observation& o, const Values& values) {
    Eigen::Vector3d d = values.x.segment<3>(3 * o.to) - values.x.segment<3>(3 * o.from);
    if (o.kind == Kind::HeightDifference)
        return d.z();
    if (problem.dimension == 2)
        d.z() = 0;
    const double drop = d.head<2>().squaredNorm() / (2 * kEarth);
    if (o.kind == Kind::Distance) {
        if (problem.parameters.curvature && problem.dimension == 3)
            d.z() -= drop;
        const Index meter = problem.MeterOf(o);
        return d.norm() * (1 + values.x(meter)) + values.x(meter + 1);
    }
    d.z() -= drop * ((problem.parameters.curvature ? 1 : 0) - values.x(problem.Refraction()));
    const Eigen::Matrix3d turn = Turned(values.x.segment<3>(problem.RotationOf(o.from)));
    const Eigen::Vector3d seen = turn * values.attitude[At(o.from)] * d;
    return kGons * (o.kind == Kind::Direction ? std::atan2(seen.x(), seen.y())
                                              : std::numbers::pi / 2 - std::asin(seen.z() / seen.norm()));
}

double Difference(const Krenn::Observation& o, double a, double b) {
    const double difference = a - b;
    return o.kind == Kind::Direction ? difference - 400 * std::round(difference / 400) : difference;
}

// The columns that an observation may depend on, and are unknown.
std::vector<Index> ColumnsOf(const Problem& problem, const Krenn::Observation& o) {
    std::vector<Index> columns;
    for (const int point : {o.from, o.to}) {
        for (Index axis = 0; axis < 3; ++axis) {
            if (!problem.network.points[At(point)].isFixed)
                columns.push_back(3 * point + axis);
        }
    }
    const Krenn::Parameters& p = problem.parameters;
    if (o.kind == Kind::Distance) {
        if (p.scale)
            columns.push_back(problem.MeterOf(o));
        if (p.zeroPoint)
            columns.push_back(problem.MeterOf(o) + 1);
    } else if (o.kind != Kind::HeightDifference) {
        for (Index axis = problem.isTilted[At(o.from)] ? 0 : 2; axis < 3; ++axis)
            columns.push_back(problem.RotationOf(o.from) + axis);
        if (p.refraction == Krenn::RefractionModel::Estimated)
            columns.push_back(problem.Refraction());
    }
    return columns;
}

double Derivative(const Problem& problem, const Krenn::Observation& o, const Values& values, Index column) {
    const bool isLength = column < 3 * problem.points || column == problem.MeterOf(o) + 1;
    const double step = column == problem.Refraction() ? 0.5 : (isLength ? 0.02 : 1e-3);
    const auto at = [&](double offset) {
        Values moved = values;
        moved.x(column) += offset;
        return Computed(problem, o, moved);
    };
    return (8 * Difference(o, at(step), at(-step)) - Difference(o, at(2 * step), at(-2 * step))) /
           (12 * step);
}

struct Linear {
    MatrixXd a;                  // over sigma, active columns
    VectorXd l;                  // observed minus computed over sigma
    std::vector<Index> columns;  // that have a derivative
};

Linear Linearise(const Problem& problem, const Values& values) {
    const auto& observations = problem.network.observations;
    MatrixXd a = MatrixXd::Zero(static_cast<Index>(observations.size()), problem.Columns());
    Linear linear;
    linear.l.resize(a.rows());
    for (Index row = 0; row < a.rows(); ++row) {
        const Krenn::Observation& o = observations[At(row)];
        linear.l(row) = Difference(o, o.value, Computed(problem, o, values)) / o.sigma;
        for (const Index column : ColumnsOf(problem, o))
            a(row, column) = Derivative(problem, o, values, column) / o.sigma;
    }
    for (Index column = 0; column < a.cols(); ++column) {
        if (a.col(column).cwiseAbs().maxCoeff() > 0)
            linear.columns.push_back(column);
    }
    linear.a = a(Eigen::all, linear.columns);
    return linear;
}

// One linearised problem solved: the correction of least scaled norm, its cofactors, the null space.
struct Solved {
    VectorXd correction;
    MatrixXd root;  // cofactors = root root'
    MatrixXd null;  // columns that no observation feels
    MatrixXd range;
};

Solved SolveLinear(const Linear& linear) {
    const VectorXd scale = linear.a.colwise().norm().cwiseInverse();
    const Eigen::JacobiSVD<MatrixXd> svd(linear.a * scale.asDiagonal(),
                                         Eigen::ComputeThinU | Eigen::ComputeFullV);
    const VectorXd& values = svd.singularValues();
    Index rank = 0;
    while (rank < values.size() && values(rank) > kRankBound * values(0))
        ++rank;
    Solved solved;
    solved.range = svd.matrixU().leftCols(rank);
    solved.root =
        scale.asDiagonal() * svd.matrixV().leftCols(rank) * values.head(rank).cwiseInverse().asDiagonal();
    solved.correction = solved.root * (solved.range.transpose() * linear.l);
    solved.null = scale.asDiagonal() * svd.matrixV().rightCols(linear.a.cols() - rank);
    return solved;
}

MatrixXd PseudoInverse(const MatrixXd& a) {
    return a.completeOrthogonalDecomposition().pseudoInverse();
}

// The matrix that takes away from a vector what the inner constraints forbid: x := x - null * M * (x - aim).
MatrixXd InnerConstraints(const Problem& problem, const Linear& linear, const MatrixXd& null) {
    if (null.cols() == 0)
        return MatrixXd::Zero(0, null.rows());
    MatrixXd overGiven = MatrixXd::Zero(null.rows(), null.rows());
    MatrixXd overAll = overGiven;
    for (Index i = 0; i < null.rows(); ++i) {
        const Index column = linear.columns[At(i)];
        if (column >= 3 * problem.points)
            continue;
        overAll(i, i) = 1;
        overGiven(i, i) = problem.network.points[At(column / 3)].hasGiven ? 1 : 0;
    }
    const MatrixXd g = overGiven * null;
    const Eigen::JacobiSVD<MatrixXd> svd(g, Eigen::ComputeThinU | Eigen::ComputeFullV);
    Index seen = 0;
    const VectorXd& values = svd.singularValues();
    while (seen < values.size() && values(seen) > 1e-6 * null.norm())
        ++seen;
    const MatrixXd first = svd.matrixV().leftCols(seen) * values.head(seen).cwiseInverse().asDiagonal() *
                           svd.matrixU().leftCols(seen).transpose() * overGiven;
    const MatrixXd open = svd.matrixV().rightCols(null.cols() - seen);
    if (open.cols() == 0)
        return first;
    return first + open * PseudoInverse(overAll * null * open) * (overAll - overAll * null * first);
}

// Attitudes of the instruments from the places of the start: of tilted ones the rotation between two sets of
// unit vectors, of levelled ones the mean orientation of their sights.
void Orient(const Problem& problem, Values& values) {
    std::vector<Eigen::Matrix3d> sums(At(problem.points), Eigen::Matrix3d::Zero());
    const auto& observations = problem.network.observations;
    for (std::size_t i = 0; i < observations.size(); ++i) {
        const Krenn::Observation& o = observations[i];
        if (o.kind != Kind::Direction)
            continue;
        const Eigen::Vector3d d = values.x.segment<3>(3 * o.to) - values.x.segment<3>(3 * o.from);
        const bool hasZenith = i + 1 < observations.size() && observations[i + 1].kind == Kind::ZenithAngle;
        const double zenith = hasZenith ? observations[i + 1].value / kGons : std::numbers::pi / 2;
        const double t = o.value / kGons;
        const Eigen::Vector3d read(std::sin(zenith) * std::sin(t), std::sin(zenith) * std::cos(t),
                                   std::cos(zenith));
        if (problem.isTilted[At(o.from)])
            sums[At(o.from)] += read * d.normalized().transpose();
        else
            sums[At(o.from)].topLeftCorner<2, 2>() +=
                read.head<2>().normalized() * d.head<2>().normalized().transpose();
    }
    for (Index point = 0; point < problem.points; ++point) {
        Eigen::Matrix3d sum = sums[At(point)];
        if (!problem.isTilted[At(point)])
            sum(2, 2) = 1;
        const Eigen::JacobiSVD<Eigen::Matrix3d> svd(sum, Eigen::ComputeFullU | Eigen::ComputeFullV);
        Eigen::Vector3d signs(1, 1, 1);
        signs(2) = svd.matrixU().determinant() * svd.matrixV().determinant() < 0 ? -1 : 1;
        values.attitude[At(point)] =
            problem.isTilted[At(point)] || sum.topLeftCorner<2, 2>().norm() > 0
                ? Eigen::Matrix3d(svd.matrixU() * signs.asDiagonal() * svd.matrixV().transpose())
                : Eigen::Matrix3d(Eigen::Matrix3d::Identity());
    }
}

// Adds a correction of the active columns; rotations go into the attitudes.
void Move(const Problem& problem, const Linear& linear, const VectorXd& correction, Values& values) {
    for (Index i = 0; i < correction.size(); ++i)
        values.x(linear.columns[At(i)]) += correction(i);
    for (int point = 0; point < problem.points; ++point) {
        values.attitude[At(point)] =
            Turned(values.x.segment<3>(problem.RotationOf(point))) * values.attitude[At(point)];
        values.x.segment<3>(problem.RotationOf(point)).setZero();
    }
}

// Values of the active columns minus what the inner constraints aim at.
VectorXd Offset(const Problem& problem, const Linear& linear, const Values& values, const VectorXd& aim) {
    VectorXd offset = VectorXd::Zero(static_cast<Index>(linear.columns.size()));
    for (Index i = 0; i < offset.size(); ++i) {
        const Index column = linear.columns[At(i)];
        if (column >= 3 * problem.points)
            continue;
        const Krenn::Point& point = problem.network.points[At(column / 3)];
        offset(i) = values.x(column) - (point.hasGiven ? point.given[At(column % 3)] : aim(column));
    }
    return offset;
}

Problem MakeProblem(const Krenn::Network& network, const Krenn::Parameters& parameters, int dimension) {
    Problem problem{network, parameters, dimension, static_cast<Index>(network.points.size()), {}};
    problem.isTilted.resize(network.points.size());
    for (const Krenn::Observation& o : network.observations) {
        if (o.isTracker && parameters.tracker == Krenn::TrackerModel::Rotations)
            problem.isTilted[At(o.from)] = true;
    }
    return problem;
}

}  // namespace

Reference Solve(const Krenn::Network& network, int dimension, const VectorXd& start, const VectorXd& aim,
                const Krenn::Parameters& parameters) {
    const Problem problem = MakeProblem(network, parameters, dimension);
    Values values{VectorXd::Zero(problem.Columns()),
                  std::vector<Eigen::Matrix3d>(network.points.size(), Eigen::Matrix3d::Identity())};
    values.x.head(start.size()) = start;
    if (parameters.refraction != Krenn::RefractionModel::Off)
        values.x(problem.Refraction()) = parameters.refractionCoefficient;
    Orient(problem, values);
    Linear linear;
    Solved solved;
    for (int i = 0; i < 30; ++i) {
        linear = Linearise(problem, values);
        solved = SolveLinear(linear);
        VectorXd correction = solved.correction;
        const MatrixXd back = InnerConstraints(problem, linear, solved.null);
        correction -= solved.null * (back * (correction + Offset(problem, linear, values, aim)));
        Move(problem, linear, correction, values);
        if (correction.cwiseAbs().maxCoeff() < 1e-11)
            break;
    }
    linear = Linearise(problem, values);
    solved = SolveLinear(linear);
    Reference reference;
    reference.rank = static_cast<int>(solved.range.cols());
    reference.unknowns = static_cast<int>(linear.columns.size());
    reference.redundancy = VectorXd::Ones(linear.l.size()) - solved.range.rowwise().squaredNorm();
    reference.place = values.x.head(3 * problem.points);
    reference.sumOfSquares = linear.l.squaredNorm();
    reference.residual.resize(linear.l.size());
    for (Index row = 0; row < linear.l.size(); ++row)
        reference.residual(row) = -linear.l(row) * network.observations[At(row)].sigma;
    const MatrixXd root =
        solved.root - solved.null * (InnerConstraints(problem, linear, solved.null) * solved.root);
    MatrixXd spread = MatrixXd::Zero(problem.Columns(), root.cols());
    for (Index i = 0; i < root.rows(); ++i)
        spread.row(linear.columns[At(i)]) = root.row(i);
    reference.cofactor = spread.topRows(3 * problem.points) * spread.topRows(3 * problem.points).transpose();
    for (Index meter = 0; meter < 2; ++meter) {
        reference.scale[meter] = values.x(6 * problem.points + 2 * meter);
        reference.zeroPoint[meter] = values.x(6 * problem.points + 2 * meter + 1);
    }
    reference.refraction = values.x(problem.Refraction());
    return reference;
}

}  // namespace KrennTest
