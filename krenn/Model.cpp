// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Model.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Krenn {
namespace {

struct Difference {
    double x, y, z;
    double horizontal, slope;
};

Difference DifferenceOf(const Measure& measure, const State& state) {
    const auto& from = state.at[static_cast<std::size_t>(measure.from)];
    const auto& to = state.at[static_cast<std::size_t>(measure.to)];
    Difference d{to[0] - from[0], to[1] - from[1], to[2] - from[2], 0, 0};
    d.horizontal = std::hypot(d.x, d.y);
    d.slope = std::hypot(d.horizontal, d.z);
    return d;
}

double ValueOf(const Measure& measure, const State& state, const Difference& d) {
    switch (measure.kind) {
        case MeasureKind::Direction:
            return std::atan2(d.x, d.y) - state.orientation[static_cast<std::size_t>(measure.from)];
        case MeasureKind::ZenithAngle: return std::atan2(d.horizontal, d.z);
        case MeasureKind::SlopeDistance: return d.slope;
        case MeasureKind::HorizontalDistance: return d.horizontal;
        default: return d.z;
    }
}

double SafeRatio(double numerator, double denominator) {
    return denominator > 0 ? numerator / denominator : 0.0;
}

}  // namespace

Unknowns NumberUnknowns(const Structure& structure) {
    Unknowns unknowns;
    unknowns.number.assign(structure.roles.size(), {-1, -1, -1, -1});
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        const PointRole& role = structure.roles[i];
        const std::array<bool, 4> wanted{role.planIsUnknown, role.planIsUnknown, role.heightIsUnknown,
                                         role.hasDirections};
        for (int axis = 0; axis < 4; ++axis) {
            if (!wanted[static_cast<std::size_t>(axis)])
                continue;
            unknowns.number[i][static_cast<std::size_t>(axis)] = unknowns.Count();
            unknowns.of.push_back({static_cast<int>(i), axis});
        }
    }
    return unknowns;
}

double Wrapped(double angle) {
    angle = std::remainder(angle, 2 * std::numbers::pi);
    return angle <= -std::numbers::pi ? std::numbers::pi : angle;
}

double ComputeValue(const Measure& measure, const State& state) {
    return ValueOf(measure, state, DifferenceOf(measure, state));
}

double Misclosure(const Measure& measure, double computed) {
    const double difference = measure.value - computed;
    const bool isAngle = measure.kind == MeasureKind::Direction || measure.kind == MeasureKind::ZenithAngle;
    return isAngle ? Wrapped(difference) : difference;
}

Partials ComputePartials(const Measure& measure, const State& state) {
    const Difference d = DifferenceOf(measure, state);
    Partials partials;
    partials.computed = ValueOf(measure, state, d);
    std::array<double, 3> by{};
    switch (measure.kind) {
        case MeasureKind::Direction: {
            const double square = std::max(d.horizontal, kPlumb) * std::max(d.horizontal, kPlumb);
            by = {d.y / square, -d.x / square, 0};
            partials.by[6] = -1;
            break;
        }
        case MeasureKind::ZenithAngle: {
            const double square = d.slope * d.slope;
            const double lean = SafeRatio(d.z, square);
            by = {SafeRatio(d.x, d.horizontal) * lean, SafeRatio(d.y, d.horizontal) * lean,
                  -SafeRatio(d.horizontal, square)};
            break;
        }
        case MeasureKind::SlopeDistance:
            by = {SafeRatio(d.x, d.slope), SafeRatio(d.y, d.slope), SafeRatio(d.z, d.slope)};
            break;
        case MeasureKind::HorizontalDistance:
            by = {SafeRatio(d.x, d.horizontal), SafeRatio(d.y, d.horizontal), 0};
            break;
        case MeasureKind::HeightDifference: by = {0, 0, 1}; break;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        partials.by[axis] = -by[axis];
        partials.by[axis + 3] = by[axis];
    }
    return partials;
}

std::array<int, 7> UnknownsOf(const Measure& measure, const Unknowns& unknowns) {
    const auto& from = unknowns.number[static_cast<std::size_t>(measure.from)];
    const auto& to = unknowns.number[static_cast<std::size_t>(measure.to)];
    const int orientation = measure.kind == MeasureKind::Direction ? from[kOrientationAxis] : -1;
    return {from[0], from[1], from[2], to[0], to[1], to[2], orientation};
}

}  // namespace Krenn
