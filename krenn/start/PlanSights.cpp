// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanSights.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

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
    PairValues tilted;  // sights of tilted instruments
};

Reductions FindReductions(const Structure& structure, const std::vector<char>& isWanted) {
    Reductions reductions;
    for (const Measure& measure : structure.measures) {
        if (!isWanted[At(structure.roles[At(measure.from)].part)])
            continue;
        if (measure.isTilted)
            reductions.tilted.Add(measure.from, measure.to, measure.value);
        else if (measure.kind == MeasureKind::ZenithAngle)
            reductions.zeniths.Add(measure.from, measure.to, measure.value);
        else if (measure.kind == MeasureKind::HeightDifference)
            reductions.rises.Add(measure.from, measure.to, measure.value);
    }
    reductions.zeniths.Sort();
    reductions.rises.Sort();
    reductions.tilted.Sort();
    return reductions;
}

std::optional<double> HorizontalOf(const Reductions& reductions, const Measure& measure, const State& state,
                                   const std::vector<char>& isKnown) {
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
    if (!rise && isKnown[At(measure.from)] && isKnown[At(measure.to)])
        rise = state.at[At(measure.to)][2] - state.at[At(measure.from)][2];
    if (!rise && (reductions.tilted.Find(measure.from, measure.to) ||
                  reductions.tilted.Find(measure.to, measure.from)))
        return std::nullopt;
    const double square = measure.value * measure.value - (rise ? *rise * *rise : 0.0);
    return square > 0 ? std::sqrt(square) : measure.value;
}

// Local numbers of points and levelled set-ups.
struct LocalNumbers {
    std::vector<int> point, setup;
};

LocalNumbers NumberLocally(const Structure& structure, const std::vector<char>& isWanted,
                           std::vector<PartSights>& parts) {
    LocalNumbers local{std::vector<int>(structure.roles.size(), -1),
                       std::vector<int>(structure.setups.size(), -1)};
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        const PointRole& role = structure.roles[i];
        if (role.planGroup < 0 || !isWanted[At(role.part)])
            continue;
        PartSights& part = parts[At(role.part)];
        local.point[i] = static_cast<int>(part.points.size());
        part.points.push_back(static_cast<int>(i));
        part.sights.setupStart.push_back(static_cast<int>(part.setups.size()));
        for (int s = structure.setupStart[i]; s < structure.setupStart[i + 1]; ++s) {
            if (structure.setups[At(s)].isTilted || !structure.setups[At(s)].hasDirections)
                continue;
            local.setup[At(s)] = static_cast<int>(part.setups.size());
            part.setups.push_back(s);
            part.sights.station.push_back(local.point[i]);
        }
    }
    for (PartSights& part : parts) {
        part.sights.setupStart.push_back(static_cast<int>(part.setups.size()));
        part.sights.out.resize(part.setups.size());
        part.sights.in.resize(part.points.size());
        part.sights.legs.resize(part.points.size());
    }
    return local;
}

}  // namespace

std::optional<double> LengthBetween(const PlanSights& sights, int from, int to) {
    const bool isShorter = sights.legs[At(from)].size() < sights.legs[At(to)].size();
    const auto& legs = sights.legs[At(isShorter ? from : to)];
    const int other = isShorter ? to : from;
    std::vector<double> lengths;
    for (const PlanSights::Leg& leg : legs) {
        if (leg.other == other)
            lengths.push_back(leg.length);
    }
    if (lengths.empty())
        return std::nullopt;
    const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
    std::nth_element(lengths.begin(), middle, lengths.end());
    return *middle;
}

std::vector<PartSights> GatherSights(const Structure& structure, const std::vector<char>& isWanted,
                                     const State& state, const std::vector<char>& isKnown) {
    std::vector<PartSights> parts(At(structure.parts));
    const LocalNumbers local = NumberLocally(structure, isWanted, parts);
    const Reductions reductions = FindReductions(structure, isWanted);
    for (const Measure& measure : structure.measures) {
        const int from = local.point[At(measure.from)];
        const int to = local.point[At(measure.to)];
        if (from < 0 || to < 0)
            continue;
        PlanSights& sights = parts[At(structure.roles[At(measure.from)].part)].sights;
        if (measure.kind == MeasureKind::Direction && !measure.isTilted) {
            const int setup = local.setup[At(measure.setup)];
            sights.out[At(setup)].push_back({to, setup, measure.value});
            sights.in[At(to)].push_back({from, setup, measure.value});
        } else if (measure.kind == MeasureKind::SlopeDistance ||
                   measure.kind == MeasureKind::HorizontalDistance) {
            const auto length = HorizontalOf(reductions, measure, state, isKnown);
            if (!length)
                continue;
            sights.legs[At(from)].push_back({to, *length});
            sights.legs[At(to)].push_back({from, *length});
        }
    }
    return parts;
}

}  // namespace Krenn
