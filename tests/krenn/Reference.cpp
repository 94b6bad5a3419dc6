// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/krenn/Reference.h"

#include <cmath>
#include <numbers>

namespace KrennTest {
namespace {

constexpr double kGons = 200 / std::numbers::pi;

double Computed(const Krenn::Observation& o, int dimension, const Eigen::VectorXd& x, Eigen::Index points) {
    const Eigen::Vector3d d = x.segment<3>(3 * o.to) - x.segment<3>(3 * o.from);
    switch (o.kind) {
        case Krenn::Kind::Direction: return std::atan2(d.x(), d.y()) * kGons - x(3 * points + o.from) * kGons;
        case Krenn::Kind::ZenithAngle: return std::acos(d.z() / d.norm()) * kGons;
        case Krenn::Kind::Distance: return dimension == 2 ? d.head<2>().norm() : d.norm();
        default: return d.z();
    }
}

double Difference(const Krenn::Observation& o, double observed, double computed) {
    double difference = observed - computed;
    if (o.kind == Krenn::Kind::Direction)
        difference -= 400 * std::round(difference / 400);
    return difference;
}

void Linearise(const Krenn::Network& network, int dimension, const Eigen::VectorXd& x, Eigen::MatrixXd& a,
               Eigen::VectorXd& l) {
    const auto points = static_cast<Eigen::Index>(network.points.size());
    const auto rows = static_cast<Eigen::Index>(network.observations.size());
    a = Eigen::MatrixXd::Zero(rows, x.size());
    l.resize(rows);
    for (Eigen::Index row = 0; row < rows; ++row) {
        const Krenn::Observation& o = network.observations[static_cast<std::size_t>(row)];
        l(row) = Difference(o, o.value, Computed(o, dimension, x, points)) / o.sigma;
        for (const Eigen::Index column :
             {Eigen::Index(3 * o.from), Eigen::Index(3 * o.from + 1), Eigen::Index(3 * o.from + 2),
              Eigen::Index(3 * o.to), Eigen::Index(3 * o.to + 1), Eigen::Index(3 * o.to + 2),
              3 * points + o.from}) {
            const bool isOrientation = column >= 3 * points;
            const double step = isOrientation ? 1e-5 : 1e-3;
            Eigen::VectorXd forth = x;
            Eigen::VectorXd back = x;
            forth(column) += step;
            back(column) -= step;
            a(row, column) =
                Difference(o, Computed(o, dimension, forth, points), Computed(o, dimension, back, points)) /
                (2 * step) / o.sigma;
        }
    }
    for (std::size_t point = 0; point < network.points.size(); ++point) {
        if (network.points[point].isFixed)
            a.middleCols(static_cast<Eigen::Index>(3 * point), 3).setZero();
    }
}

// First orientations from the start places.
void Orient(const Krenn::Network& network, int dimension, Eigen::VectorXd& x) {
    const auto points = static_cast<Eigen::Index>(network.points.size());
    for (const Krenn::Observation& o : network.observations) {
        if (o.kind == Krenn::Kind::Direction)
            x(3 * points + o.from) =
                (Computed(o, dimension, x, points) - o.value) / kGons + x(3 * points + o.from);
    }
}

}  // namespace

Reference Solve(const Krenn::Network& network, int dimension, const Eigen::VectorXd& start) {
    const auto points = static_cast<Eigen::Index>(network.points.size());
    Eigen::VectorXd x = Eigen::VectorXd::Zero(4 * points);
    x.head(3 * points) = start;
    Orient(network, dimension, x);
    Eigen::MatrixXd a;
    Eigen::VectorXd l;
    Reference reference;
    for (int i = 0; i < 30; ++i) {
        Linearise(network, dimension, x, a, l);
        // Columns of equal size, so that the rank decision does not depend on units.
        Eigen::VectorXd scale = a.colwise().norm();
        for (double& s : scale)
            s = s > 0 ? 1 / s : 0;
        Eigen::JacobiSVD<Eigen::MatrixXd> svd(a * scale.asDiagonal(),
                                              Eigen::ComputeThinU | Eigen::ComputeThinV);
        svd.setThreshold(1e-6);
        reference.rank = static_cast<int>(svd.rank());
        const Eigen::VectorXd dx = scale.asDiagonal() * svd.solve(l);
        x += dx;
        if (dx.head(3 * points).cwiseAbs().maxCoeff() < 1e-10)
            break;
    }
    Linearise(network, dimension, x, a, l);
    const Eigen::JacobiSVD<Eigen::MatrixXd> svd(a, Eigen::ComputeThinU);
    const Eigen::MatrixXd u = svd.matrixU().leftCols(reference.rank);
    reference.redundancy = Eigen::VectorXd::Ones(l.size()) - u.rowwise().squaredNorm();
    reference.place = x.head(3 * points);
    reference.sumOfSquares = l.squaredNorm();
    reference.residual.resize(l.size());
    for (Eigen::Index row = 0; row < l.size(); ++row)
        reference.residual(row) = -l(row) * network.observations[static_cast<std::size_t>(row)].sigma;
    return reference;
}

}  // namespace KrennTest
