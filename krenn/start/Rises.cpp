// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/Rises.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>

namespace Krenn {
namespace {

constexpr std::size_t kMostEstimates = 25;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

struct Rise {
    int other;
    double rise;       // height of this point above the other one
    double tolerance;  // meters; two rises that differ by less agree
};

struct Carrier {
    std::vector<std::vector<Rise>> to;       // per point
    std::array<std::deque<int>, 2> waiting;  // for two rises that agree, for any
    State& state;
    KnownPlaces& known;
};

std::vector<std::vector<Rise>> GatherRises(const Structure& structure, const std::vector<char>& isWanted,
                                           const State& state, const KnownPlaces& known) {
    std::vector<std::vector<Rise>> rises(structure.roles.size());
    for (const Measure& measure : structure.measures) {
        if (!isWanted[At(structure.roles[At(measure.from)].part)])
            continue;
        double rise = 0;
        double tolerance = 0;
        if (measure.kind == MeasureKind::HeightDifference) {
            rise = measure.value;
            tolerance = 0.01 + 10 * measure.sigma;
        } else if (measure.kind == MeasureKind::ZenithAngle && !measure.isTilted &&
                   known.plan[At(measure.from)] && known.plan[At(measure.to)]) {
            const auto& from = state.at[At(measure.from)];
            const auto& to = state.at[At(measure.to)];
            const double sine = std::sin(measure.value);
            if (std::abs(sine) < 1e-9)
                continue;
            const double horizontal = std::hypot(to[0] - from[0], to[1] - from[1]);
            rise = horizontal * std::cos(measure.value) / sine;
            tolerance = 0.01 + 0.01 * std::hypot(horizontal, rise);
        } else {
            continue;
        }
        rises[At(measure.to)].push_back({measure.from, rise, tolerance});
        rises[At(measure.from)].push_back({measure.to, -rise, tolerance});
    }
    return rises;
}

struct Estimate {
    double height;
    double tolerance;
};

// Sets the height of a point if its rises are good enough: two that agree, or with `anyWill` the one that the
// others come nearest to.
bool SetHeight(Carrier& carrier, int point, bool anyWill) {
    std::vector<Estimate> estimates;
    for (const Rise& rise : carrier.to[At(point)]) {
        if (carrier.known.height[At(rise.other)] && estimates.size() < kMostEstimates)
            estimates.push_back({carrier.state.at[At(rise.other)][2] + rise.rise, rise.tolerance});
    }
    double bestSum = INFINITY;
    std::ptrdiff_t agreeing = 0;
    for (const Estimate& estimate : estimates) {
        double sum = 0;
        for (const Estimate& other : estimates)
            sum += std::abs(other.height - estimate.height);
        if (sum >= bestSum)
            continue;
        bestSum = sum;
        carrier.state.at[At(point)][2] = estimate.height;
        agreeing = std::count_if(estimates.begin(), estimates.end(), [&](const Estimate& other) {
            return std::abs(other.height - estimate.height) <= std::max(estimate.tolerance, other.tolerance);
        });
    }
    return agreeing >= (anyWill ? 1 : 2);
}

void WaitForNeighbours(Carrier& carrier, int point) {
    for (const Rise& rise : carrier.to[At(point)]) {
        if (!carrier.known.height[At(rise.other)])
            carrier.waiting[0].push_back(rise.other);
    }
}

void Carry(Carrier& carrier) {
    while (!carrier.waiting[0].empty() || !carrier.waiting[1].empty()) {
        const bool anyWill = carrier.waiting[0].empty();
        auto& waiting = carrier.waiting[anyWill ? 1 : 0];
        const int point = waiting.front();
        waiting.pop_front();
        if (carrier.known.height[At(point)])
            continue;
        if (SetHeight(carrier, point, anyWill)) {
            carrier.known.height[At(point)] = 1;
            WaitForNeighbours(carrier, point);
        } else if (!anyWill) {
            carrier.waiting[1].push_back(point);
        }
    }
}

}  // namespace

void CarryHeights(const Structure& structure, const std::vector<char>& isWanted, bool mayStart, State& state,
                  KnownPlaces& known) {
    Carrier carrier{GatherRises(structure, isWanted, state, known), {}, state, known};
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        if (known.height[i])
            WaitForNeighbours(carrier, static_cast<int>(i));
    }
    Carry(carrier);
    for (std::size_t i = 0; i < structure.roles.size() && mayStart; ++i) {
        const PointRole& role = structure.roles[i];
        if (role.heightGroup < 0 || known.height[i] || !isWanted[At(role.part)] || carrier.to[i].empty())
            continue;
        known.height[i] = 1;
        WaitForNeighbours(carrier, static_cast<int>(i));
        Carry(carrier);
    }
}

}  // namespace Krenn
