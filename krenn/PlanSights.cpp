// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/PlanSights.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// A value of an ordered pair of points, found by binary search.
struct PairValues {
    struct Entry {
        std::uint64_t key;
        double value;
    };
    std::vector<Entry> entries;

    static std::uint64_t Key(int from, int to) {
        return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(from)) << 32) |
               static_cast<std::uint32_t>(to);
    }

    void Add(int from, int to, double value) { entries.push_back({Key(from, to), value}); }

    void Sort() {
        std::stable_sort(entries.begin(), entries.end(),
                         [](const Entry& a, const Entry& b) { return a.key < b.key; });
    }

    std::optional<double> Find(int from, int to) const {
        const std::uint64_t key = Key(from, to);
        const auto at =
            std::lower_bound(entries.begin(), entries.end(), key,
                             [](const Entry& entry, std::uint64_t wanted) { return entry.key < wanted; });
        if (at == entries.end() || at->key != key)
            return std::nullopt;
        return at->value;
    }
};

struct Reductions {
    PairValues zeniths;
    PairValues rises;
};

Reductions FindReductions(const Structure& structure) {
    Reductions reductions;
    for (const Measure& measure : structure.measures) {
        if (measure.kind == MeasureKind::ZenithAngle && !measure.isTilted)
            reductions.zeniths.Add(measure.from, measure.to, measure.value);
        else if (measure.kind == MeasureKind::HeightDifference)
            reductions.rises.Add(measure.from, measure.to, measure.value);
    }
    reductions.zeniths.Sort();
    reductions.rises.Sort();
    return reductions;
}

double HorizontalOf(const Network& network, const Reductions& reductions, const Measure& measure) {
    if (measure.kind == MeasureKind::HorizontalDistance)
        return measure.value;
    for (const bool isBack : {false, true}) {
        const auto zenith =
            reductions.zeniths.Find(isBack ? measure.to : measure.from, isBack ? measure.from : measure.to);
        if (zenith)
            return measure.value * std::sin(*zenith);
    }
    std::optional<double> rise = reductions.rises.Find(measure.from, measure.to);
    if (!rise)
        rise = reductions.rises.Find(measure.to, measure.from);
    const Point& from = network.points[At(measure.from)];
    const Point& to = network.points[At(measure.to)];
    if (!rise && from.hasGiven && to.hasGiven)
        rise = to.given[2] - from.given[2];
    const double square = measure.value * measure.value - (rise ? *rise * *rise : 0.0);
    return square > 0 ? std::sqrt(square) : measure.value;
}

}  // namespace

std::vector<PartSights> GatherSights(const Network& network, const Structure& structure) {
    std::vector<PartSights> parts(At(structure.parts));
    std::vector<int> local(network.points.size(), -1);
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const PointRole& role = structure.roles[i];
        if (role.planGroup < 0)
            continue;
        PartSights& part = parts[At(role.part)];
        local[i] = static_cast<int>(part.points.size());
        part.points.push_back(static_cast<int>(i));
    }
    for (PartSights& part : parts) {
        part.sights.out.resize(part.points.size());
        part.sights.in.resize(part.points.size());
        part.sights.legs.resize(part.points.size());
    }
    const Reductions reductions = FindReductions(structure);
    for (const Measure& measure : structure.measures) {
        const int from = local[At(measure.from)];
        const int to = local[At(measure.to)];
        if (from < 0 || to < 0)
            continue;
        PlanSights& sights = parts[At(structure.roles[At(measure.from)].part)].sights;
        if (measure.kind == MeasureKind::Direction && !measure.isTilted) {
            sights.out[At(from)].push_back({to, measure.value});
            sights.in[At(to)].push_back({from, measure.value});
        } else if (measure.kind == MeasureKind::SlopeDistance ||
                   measure.kind == MeasureKind::HorizontalDistance) {
            const double length = HorizontalOf(network, reductions, measure);
            sights.legs[At(from)].push_back({to, length});
            sights.legs[At(to)].push_back({from, length});
        }
    }
    return parts;
}

}  // namespace Krenn
