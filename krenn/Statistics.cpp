// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Statistics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "krenn/Distributions.h"

namespace Krenn {
namespace {

// Below this redundancy number the observation is hardly checked by the others and its w says nothing.
constexpr double kUnchecked = 1e-4;

void TestObservations(const Adjustment& adjustment, Statistics& statistics) {
    const auto& measures = adjustment.structure.measures;
    statistics.standardised.resize(measures.size());
    statistics.suspected.assign(measures.size(), 0);
    statistics.isStandardised = adjustment.hasCofactors;
    double most = 0;
    for (std::size_t m = 0; m < measures.size(); ++m) {
        const double sigma = measures[m].sigma;
        const double v = adjustment.residual[m];
        statistics.standardised[m] = v / sigma;
        if (adjustment.hasCofactors) {
            const double r = std::clamp(1 - adjustment.cofactors.measure[m] / (sigma * sigma), 0.0, 1.0);
            statistics.redundancyNumber.push_back(r);
            const bool isChecked = r > kUnchecked;
            statistics.standardised[m] = isChecked ? v / (sigma * std::sqrt(r)) : 0.0;
            statistics.suspected[m] = isChecked ? -v / r : 0.0;
        }
        if (std::abs(statistics.standardised[m]) > most) {
            most = std::abs(statistics.standardised[m]);
            statistics.worst = static_cast<int>(m);
        }
    }
}

void TestGlobally(const Adjustment& adjustment, Statistics& statistics) {
    statistics.redundancy = adjustment.Redundancy();
    statistics.critical = NormalQuantile(1 - kLocalRisk / 2);
    statistics.hasM0 = statistics.redundancy > 0;
    if (!statistics.hasM0) {
        statistics.factor95 = std::sqrt(ChiSquareQuantile(kConfidence, 2));
        return;
    }
    const double r = statistics.redundancy;
    statistics.m0 = std::sqrt(adjustment.sumOfSquares / r);
    statistics.lowest = std::sqrt(ChiSquareQuantile((1 - kConfidence) / 2, r) / r);
    statistics.highest = std::sqrt(ChiSquareQuantile((1 + kConfidence) / 2, r) / r);
    statistics.passes = statistics.m0 >= statistics.lowest && statistics.m0 <= statistics.highest;
    statistics.scale = statistics.m0;
    statistics.factor95 = std::sqrt(2 * FisherQuantileOfTwo(kConfidence, r));
}

}  // namespace

Ellipse EllipseOf(double xx, double xy, double yy) {
    const double mean = (xx + yy) / 2;
    const double half = std::hypot((xx - yy) / 2, xy);
    Ellipse ellipse;
    ellipse.major = std::sqrt(std::max(mean + half, 0.0));
    ellipse.minor = std::sqrt(std::max(mean - half, 0.0));
    double bearing = std::atan2(2 * xy, yy - xx) / 2 * 200 / std::numbers::pi;
    if (bearing < 0)
        bearing += 200;
    ellipse.bearing = bearing;
    return ellipse;
}

Statistics Evaluate(const Network& network, const Adjustment& adjustment) {
    Statistics statistics;
    TestGlobally(adjustment, statistics);
    TestObservations(adjustment, statistics);
    statistics.deviation.resize(network.points.size());
    statistics.ellipse.resize(network.points.size());
    if (!adjustment.hasCofactors)
        return statistics;
    const double variance = statistics.scale * statistics.scale;
    for (std::size_t point = 0; point < network.points.size(); ++point) {
        const auto& q = adjustment.cofactors.point[point];
        for (const auto& [axis, entry] : {std::pair<std::size_t, std::size_t>{0, 0}, {1, 2}, {2, 5}})
            statistics.deviation[point][axis] = std::sqrt(std::max(q[entry], 0.0) * variance);
        statistics.ellipse[point] = EllipseOf(q[0] * variance, q[1] * variance, q[2] * variance);
    }
    for (const auto& q : adjustment.cofactors.pair)
        statistics.relative.push_back(EllipseOf(q[0] * variance, q[1] * variance, q[2] * variance));
    return statistics;
}

}  // namespace Krenn
