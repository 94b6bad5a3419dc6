// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/model/Setups.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

bool IsAngle(const Observation& observation) {
    return observation.kind == Kind::Direction || observation.kind == Kind::ZenithAngle;
}

std::uint64_t PairKey(int from, int to) {
    return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(from)) << 32) |
           static_cast<std::uint32_t>(to);
}

// A row of the input file with one or two angles.
struct AngleRow {
    int from, to, line;
    std::size_t first, last;  // its observations
    bool isTracker = false;
};

std::vector<AngleRow> RowsOfAngles(const Network& network) {
    std::vector<AngleRow> rows;
    for (std::size_t i = 0; i < network.observations.size(); ++i) {
        const Observation& observation = network.observations[i];
        if (!IsAngle(observation))
            continue;
        const bool isSame =
            !rows.empty() && rows.back().line == observation.line && rows.back().last + 1 == i;
        if (isSame)
            rows.back().last = i;
        else
            rows.push_back({observation.from, observation.to, observation.line, i, i});
    }
    return rows;
}

// The distances of one station, or of one station and target, in the order of the file.
struct Marks {
    std::vector<bool> inOrder;
    int marked = 0;
    int rows = 0;     // of angles
    int rowsMet = 0;  // while these are told apart

    void Add(bool isMarked) {
        inOrder.push_back(isMarked);
        marked += isMarked ? 1 : 0;
    }
    int Count() const { return static_cast<int>(inOrder.size()); }
};

bool IsTrackerRow(Marks& pair, const Marks& station) {
    if (pair.Count() == 0)
        return station.Count() > 0 && station.marked == station.Count();
    if (pair.marked == 0 || pair.marked == pair.Count())
        return pair.marked > 0;
    if (pair.marked == pair.rows)
        return true;
    if (pair.Count() - pair.marked == pair.rows)
        return false;
    const int place = std::min(pair.rowsMet++, pair.Count() - 1);
    return pair.inOrder[At(place)];
}

void MarkTrackers(const Network& network, std::vector<AngleRow>& rows) {
    std::unordered_map<std::uint64_t, Marks> pairs;
    std::vector<Marks> stations(network.points.size());
    for (const Observation& observation : network.observations) {
        if (observation.kind != Kind::Distance)
            continue;
        pairs[PairKey(observation.from, observation.to)].Add(observation.isTracker);
        stations[At(observation.from)].Add(observation.isTracker);
    }
    for (const AngleRow& row : rows)
        ++pairs[PairKey(row.from, row.to)].rows;
    for (AngleRow& row : rows)
        row.isTracker = IsTrackerRow(pairs[PairKey(row.from, row.to)], stations[At(row.from)]);
}

// Tells for each row in turn whether it opens a set-up of its own, or which one it goes on with.
struct SetupFinder {
    SetupRule rule;
    std::vector<Setup> setups;
    std::unordered_map<std::uint64_t, int> ofStation;  // with SetupRule::Station, by point and tilt
    std::unordered_set<int> targets;                   // of the block at hand
    int current = -1;

    int Of(const AngleRow& row) {
        if (rule == SetupRule::Station) {
            const auto [found, isNew] = ofStation.try_emplace(PairKey(row.from, row.isTracker ? 1 : 0),
                                                              static_cast<int>(setups.size()));
            return isNew ? Open(row) : found->second;
        }
        const bool isSame = current >= 0 && setups[At(current)].point == row.from &&
                            setups[At(current)].isTilted == row.isTracker;
        if (isSame && (rule == SetupRule::Block || targets.insert(row.to).second))
            return current;
        targets = {row.to};
        current = Open(row);
        return current;
    }

    int Open(const AngleRow& row) {
        setups.push_back({row.from, row.line, row.isTracker});
        return static_cast<int>(setups.size()) - 1;
    }
};

// Sorts the set-ups by point; `number` is told the new number of each.
void SortByPoint(std::vector<Setup>& setups, std::vector<int>& number) {
    std::vector<int> order(setups.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return setups[At(a)].point < setups[At(b)].point; });
    std::vector<Setup> sorted;
    number.resize(setups.size());
    for (const int old : order) {
        number[At(old)] = static_cast<int>(sorted.size());
        sorted.push_back(setups[At(old)]);
    }
    setups = std::move(sorted);
}

}  // namespace

std::vector<int> FindSetups(const Network& network, const Parameters& parameters, Structure& structure) {
    std::vector<AngleRow> rows = RowsOfAngles(network);
    if (parameters.tracker == TrackerModel::Rotations)
        MarkTrackers(network, rows);
    SetupFinder finder{parameters.setups, {}, {}, {}};
    std::vector<int> setupOf(network.observations.size(), -1);
    for (const AngleRow& row : rows) {
        const int setup = finder.Of(row);
        for (std::size_t i = row.first; i <= row.last; ++i) {
            setupOf[i] = setup;
            if (network.observations[i].kind == Kind::Direction)
                finder.setups[At(setup)].hasDirections = true;
        }
    }
    structure.setups = std::move(finder.setups);
    std::vector<int> number;
    SortByPoint(structure.setups, number);
    for (int& setup : setupOf)
        setup = setup < 0 ? -1 : number[At(setup)];
    structure.setupStart.assign(network.points.size() + 1, 0);
    for (const Setup& setup : structure.setups)
        ++structure.setupStart[At(setup.point) + 1];
    std::partial_sum(structure.setupStart.begin(), structure.setupStart.end(), structure.setupStart.begin());
    return setupOf;
}

}  // namespace Krenn
