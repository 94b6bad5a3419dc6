// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/ListingWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <numbers>

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

const char* KindName(MeasureKind kind) {
    switch (kind) {
        case MeasureKind::Direction: return "direction";
        case MeasureKind::ZenithAngle: return "zenith angle";
        case MeasureKind::SlopeDistance: return "slope distance";
        case MeasureKind::HorizontalDistance: return "horizontal distance";
        default: return "height difference";
    }
}

std::string Describe(const Network& network, const Measure& measure) {
    return fmt::format("{} {} to {}, line {}", KindName(measure.kind), network.points[At(measure.from)].name,
                       network.points[At(measure.to)].name,
                       network.observations[At(measure.observation)].line);
}

bool IsAngle(MeasureKind kind) {
    return kind == MeasureKind::Direction || kind == MeasureKind::ZenithAngle;
}

double ResidualUnit(MeasureKind kind) {
    return IsAngle(kind) ? 200 / std::numbers::pi * 1000 : 1000;
}

const char* ResidualUnitName(MeasureKind kind) {
    return IsAngle(kind) ? "mgon" : "mm";
}

double SuspectedError(const Adjustment& adjustment, const Statistics& statistics, std::size_t measure) {
    return statistics.isStandardised ? statistics.suspected[measure] : -adjustment.residual[measure];
}

std::string Capitalised(std::string sentence) {
    if (!sentence.empty() && sentence.front() >= 'a' && sentence.front() <= 'z')
        sentence.front() = static_cast<char>(sentence.front() - 'a' + 'A');
    return sentence;
}

std::string Percent(double part) {
    return fmt::format("{:.6g} %", part * 100);
}

std::string Probability(double probability) {
    return probability < 1e-16 ? "below 1e-16" : fmt::format("{:.3g}", probability);
}

const char* TailsName(Tails tails) {
    return tails == Tails::One ? "one-tailed" : "two-tailed";
}

int NameWidth(const Network& network) {
    std::size_t longest = 9;
    for (const Point& point : network.points)
        longest = std::max(longest, std::min<std::size_t>(point.name.size(), 24));
    return static_cast<int>(longest) + 1;
}

}  // namespace Krenn
