// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/model/Model.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Krenn {
namespace {

using Vector = std::array<double, 3>;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

double Dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

bool IsLength(MeasureKind kind) {
    return kind == MeasureKind::SlopeDistance || kind == MeasureKind::HorizontalDistance;
}

// Factor of h^2 that the measure sees its target lowered by.
double DropOf(const Measure& measure, const State& state) {
    if (measure.kind == MeasureKind::SlopeDistance)
        return state.curvature / (2 * kEarthRadius);
    if (measure.kind == MeasureKind::ZenithAngle || measure.isTilted)
        return (state.curvature - state.refraction) / (2 * kEarthRadius);
    return 0;
}

// Second point minus first, the height as the measure sees it.
Vector DifferenceOf(const Measure& measure, const State& state, double drop) {
    const Vector& from = state.at[At(measure.from)];
    const Vector& to = state.at[At(measure.to)];
    Vector d{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
    if (drop != 0)
        d[2] -= drop * (d[0] * d[0] + d[1] * d[1]);
    return d;
}

Vector Seen(const Measure& measure, const State& state, const Vector& d) {
    if (!measure.isTilted)
        return d;
    const Axes& axes = state.axes[At(measure.setup)];
    return {Dot(axes[0], d), Dot(axes[1], d), Dot(axes[2], d)};
}

double ValueOf(const Measure& measure, const State& state, const Vector& seen) {
    const double horizontal = std::sqrt(seen[0] * seen[0] + seen[1] * seen[1]);
    const DistanceMeter& meter = state.meter[measure.isMarked ? 1 : 0];
    switch (measure.kind) {
        case MeasureKind::Direction:
            return std::atan2(seen[0], seen[1]) -
                   (measure.isTilted ? 0.0 : state.orientation[At(measure.setup)]);
        case MeasureKind::ZenithAngle: return std::atan2(horizontal, seen[2]);
        case MeasureKind::SlopeDistance:
            return (1 + meter.scale) * std::sqrt(horizontal * horizontal + seen[2] * seen[2]) +
                   meter.zeroPoint;
        case MeasureKind::HorizontalDistance: return (1 + meter.scale) * horizontal + meter.zeroPoint;
        default: return seen[2];
    }
}

double SafeRatio(double numerator, double denominator) {
    return denominator > 0 ? numerator / denominator : 0.0;
}

// Derivatives of the value by the sight as the instrument sees it.
Vector GradientOf(const Measure& measure, const State& state, const Vector& seen) {
    const auto [x, y, z] = seen;
    const double horizontal = std::sqrt(x * x + y * y);
    const double square = x * x + y * y + z * z;
    const double stretch = 1 + state.meter[measure.isMarked ? 1 : 0].scale;
    switch (measure.kind) {
        case MeasureKind::Direction: {
            const double plan = std::max(horizontal, kPlumb) * std::max(horizontal, kPlumb);
            return {y / plan, -x / plan, 0};
        }
        case MeasureKind::ZenithAngle: {
            const double lean = SafeRatio(z, square);
            return {SafeRatio(x, horizontal) * lean, SafeRatio(y, horizontal) * lean,
                    -SafeRatio(horizontal, square)};
        }
        case MeasureKind::SlopeDistance: {
            const double slope = std::sqrt(square);
            return {SafeRatio(stretch * x, slope), SafeRatio(stretch * y, slope),
                    SafeRatio(stretch * z, slope)};
        }
        case MeasureKind::HorizontalDistance:
            return {SafeRatio(stretch * x, horizontal), SafeRatio(stretch * y, horizontal), 0};
        default: return {0, 0, 1};
    }
}

// The axes turned by a small rotation about X, Y and clockwise about Z.
Axes Turned(const Axes& axes, const Vector& rotation) {
    const Vector turn{rotation[0], rotation[1], -rotation[2]};
    const double angle = std::sqrt(Dot(turn, turn));
    if (angle == 0)
        return axes;
    const double sine = std::sin(angle) / angle;
    const double rest = (1 - std::cos(angle)) / (angle * angle);
    Axes turned;
    for (std::size_t i = 0; i < 3; ++i) {
        const Vector across = Cross(turn, axes[i]);
        const Vector twice = Cross(turn, across);
        for (std::size_t k = 0; k < 3; ++k)
            turned[i][k] = axes[i][k] + sine * across[k] + rest * twice[k];
    }
    return turned;
}

}  // namespace

Unknowns NumberUnknowns(const Structure& structure) {
    Unknowns unknowns;
    unknowns.number.assign(structure.roles.size(), {-1, -1, -1});
    unknowns.rotation.assign(structure.setups.size(), {-1, -1, -1});
    const auto add = [&](int& number, const UnknownOf& of) {
        number = unknowns.Count();
        unknowns.of.push_back(of);
    };
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        const PointRole& role = structure.roles[i];
        const std::array<bool, 3> wanted{role.planIsUnknown, role.planIsUnknown, role.heightIsUnknown};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (wanted[axis])
                add(unknowns.number[i][axis], {static_cast<int>(i), static_cast<int>(axis)});
        }
        for (int s = structure.setupStart[i]; s < structure.setupStart[i + 1]; ++s) {
            const Setup& setup = structure.setups[At(s)];
            for (int axis = setup.isTilted ? 0 : 2; axis < 3; ++axis) {
                if (setup.isTilted || setup.hasDirections)
                    add(unknowns.rotation[At(s)][At(axis)], {setup.point, kRotationAxis + axis, s});
            }
        }
    }
    const int local = unknowns.Count();
    std::array<bool, 2> isUsed{};
    bool hasZeniths = false;
    for (const Measure& measure : structure.measures) {
        if (IsLength(measure.kind))
            isUsed[measure.isMarked ? 1 : 0] = true;
        hasZeniths |= measure.kind == MeasureKind::ZenithAngle;
    }
    for (int meter = 0; meter < 2; ++meter) {
        if (isUsed[At(meter)] && structure.model.scale)
            add(unknowns.scale[At(meter)], {-1, kScaleAxis, meter});
        if (isUsed[At(meter)] && structure.model.zeroPoint)
            add(unknowns.zeroPoint[At(meter)], {-1, kZeroPointAxis, meter});
    }
    if (hasZeniths && structure.model.refraction == RefractionModel::Estimated)
        add(unknowns.refraction, {-1, kRefractionAxis});
    unknowns.globals = unknowns.Count() - local;
    return unknowns;
}

std::string UnknownInWords(const Network& network, const Structure& structure, const UnknownOf& of) {
    const auto meter = [&](const char* what) {
        return fmt::format("{} of the distance meter{}", what, of.index == 1 ? " of the tracker" : "");
    };
    switch (of.axis) {
        case 0: return "X of " + network.points[At(of.point)].name;
        case 1: return "Y of " + network.points[At(of.point)].name;
        case 2: return "Z of " + network.points[At(of.point)].name;
        case kScaleAxis: return meter("scale");
        case kZeroPointAxis: return meter("zero point");
        case kRefractionAxis: return "refraction";
        default: break;
    }
    const Setup& setup = structure.setups[At(of.index)];
    constexpr std::array kAbout{"rotation about X", "rotation about Y", "rotation about Z"};
    return fmt::format("{} of {} (set-up of line {})",
                       setup.isTilted ? kAbout[At(of.axis - kRotationAxis)] : "orientation",
                       network.points[At(setup.point)].name, setup.line);
}

double Wrapped(double angle) {
    angle = std::remainder(angle, 2 * std::numbers::pi);
    return angle <= -std::numbers::pi ? std::numbers::pi : angle;
}

std::array<double, 3> SeenFrom(const Measure& measure, const State& state) {
    return Seen(measure, state, DifferenceOf(measure, state, DropOf(measure, state)));
}

double ComputeValue(const Measure& measure, const State& state) {
    return ValueOf(measure, state, SeenFrom(measure, state));
}

double Misclosure(const Measure& measure, double computed) {
    const double difference = measure.value - computed;
    const bool isAngle = measure.kind == MeasureKind::Direction || measure.kind == MeasureKind::ZenithAngle;
    return isAngle ? Wrapped(difference) : difference;
}

Partials ComputePartials(const Measure& measure, const State& state) {
    const double drop = DropOf(measure, state);
    const Vector d = DifferenceOf(measure, state, drop);
    const Vector seen = Seen(measure, state, d);
    const Vector bySeen = GradientOf(measure, state, seen);
    Partials partials;
    partials.computed = ValueOf(measure, state, seen);
    Vector by = bySeen;
    if (measure.isTilted) {
        const Axes& axes = state.axes[At(measure.setup)];
        by = {};
        for (std::size_t i = 0; i < 3; ++i) {
            const Vector turn = Cross(axes[i], d);
            for (std::size_t k = 0; k < 3; ++k) {
                by[k] += bySeen[i] * axes[i][k];
                partials.by[kRotationTerm + k] += bySeen[i] * (k == 2 ? -turn[k] : turn[k]);
            }
        }
    } else if (measure.kind == MeasureKind::Direction) {
        partials.by[kRotationTerm + 2] = -1;
    }
    if (IsLength(measure.kind)) {
        const DistanceMeter& meter = state.meter[measure.isMarked ? 1 : 0];
        partials.by[kGlobalTerm] = (partials.computed - meter.zeroPoint) / (1 + meter.scale);
        partials.by[kGlobalTerm + 1] = 1;
    } else if (measure.kind == MeasureKind::ZenithAngle || measure.isTilted) {
        partials.by[kGlobalTerm] = by[2] * (d[0] * d[0] + d[1] * d[1]) / (2 * kEarthRadius);
    }
    by[0] -= 2 * drop * d[0] * by[2];
    by[1] -= 2 * drop * d[1] * by[2];
    for (std::size_t axis = 0; axis < 3; ++axis) {
        partials.by[axis] = -by[axis];
        partials.by[axis + 3] = by[axis];
    }
    return partials;
}

std::array<int, kTerms> UnknownsOf(const Measure& measure, const Unknowns& unknowns) {
    const auto& from = unknowns.number[At(measure.from)];
    const auto& to = unknowns.number[At(measure.to)];
    std::array<int, kTerms> numbers{from[0], from[1], from[2], to[0], to[1], to[2], -1, -1, -1, -1, -1};
    if (measure.isTilted || measure.kind == MeasureKind::Direction) {
        const auto& rotation = unknowns.rotation[At(measure.setup)];
        std::copy(rotation.begin(), rotation.end(), numbers.begin() + kRotationTerm);
    }
    if (IsLength(measure.kind)) {
        const std::size_t meter = measure.isMarked ? 1 : 0;
        numbers[kGlobalTerm] = unknowns.scale[meter];
        numbers[kGlobalTerm + 1] = unknowns.zeroPoint[meter];
    } else if (measure.kind == MeasureKind::ZenithAngle || measure.isTilted) {
        numbers[kGlobalTerm] = unknowns.refraction;
    }
    return numbers;
}

State Moved(const State& state, const Unknowns& unknowns, const Eigen::VectorXd& correction, double step) {
    State moved = state;
    for (std::size_t point = 0; point < unknowns.number.size(); ++point) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (const int number = unknowns.number[point][axis]; number >= 0)
                moved.at[point][axis] += step * correction(number);
        }
    }
    for (std::size_t setup = 0; setup < unknowns.rotation.size(); ++setup) {
        const auto& number = unknowns.rotation[setup];
        if (number[0] >= 0)
            moved.axes[setup] = Turned(
                state.axes[setup],
                {step * correction(number[0]), step * correction(number[1]), step * correction(number[2])});
        else if (number[2] >= 0)
            moved.orientation[setup] = Wrapped(state.orientation[setup] + step * correction(number[2]));
    }
    for (std::size_t meter = 0; meter < 2; ++meter) {
        if (unknowns.scale[meter] >= 0)
            moved.meter[meter].scale += step * correction(unknowns.scale[meter]);
        if (unknowns.zeroPoint[meter] >= 0)
            moved.meter[meter].zeroPoint += step * correction(unknowns.zeroPoint[meter]);
    }
    if (unknowns.refraction >= 0)
        moved.refraction += step * correction(unknowns.refraction);
    return moved;
}

std::array<double, 3> RotationsOf(const State& state, const Setup& setup, std::size_t number) {
    if (!setup.isTilted)
        return {0, 0, state.orientation[number]};
    const Axes& axes = state.axes[number];
    return {std::atan2(axes[1][2], axes[2][2]), std::asin(std::clamp(-axes[0][2], -1.0, 1.0)),
            std::atan2(-axes[0][1], axes[0][0])};
}

Axes AxesOf(const std::array<double, 3>& rotations) {
    const double s1 = std::sin(rotations[0]);
    const double c1 = std::cos(rotations[0]);
    const double s2 = std::sin(rotations[1]);
    const double c2 = std::cos(rotations[1]);
    const double s3 = std::sin(rotations[2]);
    const double c3 = std::cos(rotations[2]);
    return {{{c2 * c3, -c2 * s3, -s2},
             {c1 * s3 + s1 * s2 * c3, c1 * c3 - s1 * s2 * s3, s1 * c2},
             {-s1 * s3 + c1 * s2 * c3, -s1 * c3 - c1 * s2 * s3, c1 * c2}}};
}

}  // namespace Krenn
