// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/StartCheck.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr double kCostUnit = 50;  // sigmas
constexpr std::size_t kSampled = 5000;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

double LengthOf(const Measure& measure, const State& state) {
    const auto& from = state.at[At(measure.from)];
    const auto& to = state.at[At(measure.to)];
    return std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
}

bool IsAngle(const Measure& measure) {
    return measure.kind == MeasureKind::Direction || measure.kind == MeasureKind::ZenithAngle;
}

// Meters by which the start misses a gross error's bound, in units of that bound: above 1 it is gross.
bool IsGross(const Measure& measure, const State& state, double misclosure, double lengthScale) {
    const double length = LengthOf(measure, state);
    const double bound = kGrossMiss * std::max(length, 0.1 * lengthScale);
    if (measure.kind == MeasureKind::HeightDifference)
        return std::abs(misclosure) > bound + 100 * measure.sigma;
    if (!IsAngle(measure))
        return std::abs(misclosure) > bound;
    double lever = length;
    if (measure.kind == MeasureKind::Direction) {
        const auto seen = SeenFrom(measure, state);
        lever = std::hypot(seen[0], seen[1]);
    }
    return std::abs(misclosure) * lever > bound;
}

}  // namespace

std::vector<StartFit> FitOf(const Structure& structure, const State& state, const std::vector<char>& isKnown,
                            double lengthScale) {
    std::vector<StartFit> fits(At(structure.parts));
    for (const Measure& measure : structure.measures) {
        if (!isKnown[At(measure.from)] || !isKnown[At(measure.to)])
            continue;
        StartFit& fit = fits[At(structure.roles[At(measure.from)].part)];
        const double misclosure = Misclosure(measure, ComputeValue(measure, state));
        const double ratio = misclosure / (kCostUnit * measure.sigma);
        ++fit.measures;
        fit.cost += std::log1p(ratio * ratio);
        fit.gross += IsGross(measure, state, misclosure, lengthScale) ? 1 : 0;
    }
    return fits;
}

double MedianSight(const Structure& structure, const State& state, const std::vector<char>& isKnown) {
    std::vector<double> lengths;
    const std::size_t step = structure.measures.size() / kSampled + 1;
    for (std::size_t m = 0; m < structure.measures.size(); m += step) {
        const Measure& measure = structure.measures[m];
        if (measure.kind != MeasureKind::HeightDifference && isKnown[At(measure.from)] &&
            isKnown[At(measure.to)])
            lengths.push_back(LengthOf(measure, state));
    }
    if (lengths.empty())
        return 0;
    const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
    std::nth_element(lengths.begin(), middle, lengths.end());
    return *middle;
}

}  // namespace Krenn
