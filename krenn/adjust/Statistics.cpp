// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Statistics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "krenn/adjust/Distributions.h"

namespace Krenn {
namespace {

void TestObservations(const Adjustment& adjustment, Statistics& statistics) {
    const auto& measures = adjustment.structure.measures;
    statistics.standardised.resize(measures.size());
    statistics.suspected.assign(measures.size(), 0);
    statistics.isStandardised = adjustment.hasCofactors;
    if (!adjustment.hasCofactors) {
        for (std::size_t m = 0; m < measures.size(); ++m)
            statistics.standardised[m] = adjustment.residual[m] / measures[m].sigma;
        return;
    }
    statistics.redundancyNumber.resize(measures.size());
    for (std::size_t m = 0; m < measures.size(); ++m) {
        const double sigma = measures[m].sigma;
        const double v = adjustment.residual[m];
        const double r = std::clamp(1 - adjustment.cofactors.measure[m] / (sigma * sigma), 0.0, 1.0);
        const bool isChecked = r > kNoCheck;
        statistics.redundancyNumber[m] = r;
        statistics.standardised[m] = isChecked ? v / (sigma * std::sqrt(r)) : 0.0;
        statistics.suspected[m] = isChecked ? -v / r : 0.0;
    }
}

// Observations that only together have a check have one |w|, but for the last digits; of these the one with
// the largest redundancy number needs the smallest error to explain it.
int WorstOf(const Statistics& statistics, double most) {
    int worst = -1;
    double largest = -1;
    for (std::size_t m = 0; m < statistics.standardised.size() && most > 0; ++m) {
        if (std::abs(statistics.standardised[m]) < most * (1 - 1e-6))
            continue;
        const double r = statistics.isStandardised ? statistics.redundancyNumber[m] : 0;
        if (r > largest + 1e-6) {
            largest = r;
            worst = static_cast<int>(m);
        }
    }
    return worst;
}

void SumUpKinds(const Adjustment& adjustment, Statistics& statistics) {
    double most = 0;
    std::array<double, 5> mostOf{};
    for (std::size_t m = 0; m < adjustment.structure.measures.size(); ++m) {
        const Measure& measure = adjustment.structure.measures[m];
        const auto kindIndex = static_cast<std::size_t>(measure.kind);
        KindStatistics& kind = statistics.kinds[kindIndex];
        const double v = adjustment.residual[m];
        const double w = std::abs(statistics.standardised[m]);
        ++kind.number;
        kind.squares += v * v;
        kind.scaledSquares += v / measure.sigma * (v / measure.sigma);
        kind.standardisedSquares += w * w;
        kind.flagged += w > statistics.critical ? 1 : 0;
        if (w > mostOf[kindIndex]) {
            mostOf[kindIndex] = w;
            kind.worst = static_cast<int>(m);
        }
        most = std::max(most, w);
        if (statistics.isStandardised) {
            const double r = statistics.redundancyNumber[m];
            kind.redundancy += r;
            kind.notChecked += r < kNotChecked ? 1 : 0;
            kind.poorlyChecked += r >= kNotChecked && r < kPoorlyChecked ? 1 : 0;
        }
    }
    statistics.worst = WorstOf(statistics, most);
    for (const KindStatistics& kind : statistics.kinds) {
        statistics.flagged += kind.flagged;
        statistics.notChecked += kind.notChecked;
    }
}

double TypicalW(const Statistics& statistics) {
    std::vector<double> sizes;
    sizes.reserve(statistics.standardised.size());
    for (std::size_t m = 0; m < statistics.standardised.size(); ++m) {
        if (!statistics.isStandardised || statistics.redundancyNumber[m] >= kNotChecked)
            sizes.push_back(std::abs(statistics.standardised[m]));
    }
    if (sizes.empty())
        return 0;
    const auto middle = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
    std::nth_element(sizes.begin(), middle, sizes.end());
    return *middle / NormalQuantile(0.75);
}

void TestGlobally(const Adjustment& adjustment, Statistics& statistics) {
    const Parameters& parameters = statistics.parameters;
    const double localTail =
        parameters.localTails == Tails::Two ? parameters.localRisk / 2 : parameters.localRisk;
    statistics.critical = NormalQuantile(1 - localTail);
    statistics.noncentrality = statistics.critical + NormalQuantile(parameters.power);
    statistics.redundancy = adjustment.Redundancy();
    statistics.hasM0 = statistics.redundancy > 0;
    statistics.wideFactor = std::sqrt(ChiSquareQuantile(parameters.confidence, 2));
    statistics.wideHeightFactor = NormalQuantile((1 + parameters.confidence) / 2);
    if (!statistics.hasM0)
        return;
    const double r = statistics.redundancy;
    const bool isTwoTailed = parameters.globalTails == Tails::Two;
    const double tail = isTwoTailed ? parameters.globalRisk / 2 : parameters.globalRisk;
    statistics.m0 = std::sqrt(adjustment.sumOfSquares / r);
    statistics.lowest = isTwoTailed ? std::sqrt(ChiSquareQuantile(tail, r) / r) : 0.0;
    statistics.highest = std::sqrt(ChiSquareQuantile(1 - tail, r) / r);
    statistics.exceedance = ChiSquareExceedance(adjustment.sumOfSquares, r);
    statistics.passes = statistics.m0 >= statistics.lowest && statistics.m0 <= statistics.highest;
    if (!parameters.posteriori)
        return;
    statistics.scale = statistics.m0;
    statistics.wideFactor = std::sqrt(2 * FisherQuantileOfTwo(parameters.confidence, r));
    statistics.wideHeightFactor = StudentQuantile((1 + parameters.confidence) / 2, r);
}

void FillRelative(const Network& network, const Adjustment& adjustment, Statistics& statistics) {
    const double variance = statistics.scale * statistics.scale;
    const bool isHeights = adjustment.structure.dimension == Dimension::Heights;
    for (std::size_t i = 0; i < adjustment.cofactors.pair.size(); ++i) {
        const auto& q = adjustment.cofactors.pair[i];
        const auto from = static_cast<std::size_t>(network.relativePairs[i].first);
        const auto to = static_cast<std::size_t>(network.relativePairs[i].second);
        RelativeEllipse relative;
        relative.isKnown =
            adjustment.structure.roles[from].part >= 0 && adjustment.structure.roles[to].part >= 0;
        relative.ellipse = EllipseOf(q[0] * variance, q[1] * variance, q[2] * variance);
        relative.height = std::sqrt(std::max(q[5], 0.0) * variance);
        std::array<double, 3> d{};
        for (std::size_t axis = isHeights ? 2 : 0; axis < 3; ++axis)
            d[axis] = adjustment.state.at[to][axis] - adjustment.state.at[from][axis];
        relative.distance = std::hypot(d[0], d[1], d[2]);
        relative.actual = isHeights ? relative.height * statistics.wideHeightFactor
                                    : relative.ellipse.major * statistics.wideFactor;
        relative.allowed = statistics.parameters.allowedConstant +
                           statistics.parameters.allowedPerLength * relative.distance;
        statistics.relative.push_back(relative);
    }
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

double SmallestDetectable(double noncentrality, double sigma, double redundancyNumber) {
    return noncentrality * sigma / std::sqrt(redundancyNumber);
}

double LargestEffect(double noncentrality, double redundancyNumber) {
    return noncentrality * std::sqrt((1 - redundancyNumber) / redundancyNumber);
}

Statistics Evaluate(const Network& network, const Adjustment& adjustment, const Parameters& parameters) {
    Statistics statistics;
    statistics.parameters = parameters;
    TestGlobally(adjustment, statistics);
    TestObservations(adjustment, statistics);
    SumUpKinds(adjustment, statistics);
    statistics.typicalW = TypicalW(statistics);
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
    FillRelative(network, adjustment, statistics);
    return statistics;
}

}  // namespace Krenn
