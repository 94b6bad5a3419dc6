// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/StartSolve.h"

#include <algorithm>

#include "krenn/start/SpaceFrame.h"

namespace Krenn {
namespace {

constexpr int kMostRounds = 30;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

PlanTask TaskFor(const PartSights& part, const StartPlaces& start, bool mayGuess, unsigned variant) {
    PlanTask task{{}, mayGuess, variant};
    for (const int point : part.points) {
        const auto& at = start.state.at[At(point)];
        task.known.push_back(start.known.plan[At(point)] ? std::optional<Place>({at[0], at[1]})
                                                         : std::nullopt);
    }
    return task;
}

bool HasKnown(const PlanTask& task) {
    return std::any_of(task.known.begin(), task.known.end(),
                       [](const auto& known) { return known.has_value(); });
}

// Takes over what a frame placed; returns how many points.
std::size_t TakeOver(const PartSights& part, const PlanSolution& solution, StartPlaces& start) {
    std::size_t taken = 0;
    for (const int local : solution.frame.placed) {
        const int point = part.points[At(local)];
        if (start.known.plan[At(point)])
            continue;
        start.known.plan[At(point)] = 1;
        start.state.at[At(point)][0] = solution.frame.at[At(local)][0];
        start.state.at[At(point)][1] = solution.frame.at[At(local)][1];
        ++taken;
    }
    return taken;
}

std::size_t SolveInPlan(const Structure& structure, const std::vector<char>& isWanted,
                        const std::vector<char>& mayGuess, unsigned variant, StartPlaces& start) {
    std::vector<char> isKnown(start.known.plan);
    for (std::size_t i = 0; i < isKnown.size(); ++i)
        isKnown[i] = isKnown[i] && start.known.height[i];
    std::size_t taken = 0;
    const auto parts = GatherSights(structure, isWanted, start.state, isKnown);
    for (std::size_t number = 0; number < parts.size(); ++number) {
        const PartSights& part = parts[number];
        const PlanTask task = TaskFor(part, start, mayGuess[number] != 0, variant);
        // Distances alone do not say how a part of tilted instruments lies in plan.
        if (part.points.empty() || (!task.mayGuess && !HasKnown(task) && part.setups.empty()))
            continue;
        const PlanSolution solution = SolvePlan(part.sights, task);
        taken += TakeOver(part, solution, start);
        start.usedGuess[number] |= solution.usedGuess ? 1 : 0;
        start.isMetric[number] = solution.frame.isMetric ? 1 : 0;
    }
    return taken;
}

// The parts among the wanted ones where nothing is known in height yet.
std::vector<char> PartsWithoutHeight(const Structure& structure, const std::vector<char>& isWanted,
                                     const KnownPlaces& known) {
    std::vector<char> parts = isWanted;
    for (std::size_t i = 0; i < structure.roles.size(); ++i) {
        if (structure.roles[i].part >= 0 && known.height[i])
            parts[At(structure.roles[i].part)] = 0;
    }
    return parts;
}

void SolveTilted(const Structure& structure, const std::vector<char>& isWanted, unsigned variant,
                 StartPlaces& start) {
    const std::vector<char> no(isWanted.size(), 0);
    for (int round = 0; round < kMostRounds; ++round) {
        std::size_t placed = SolveInPlan(structure, isWanted, no, variant, start);
        CarryHeights(structure, isWanted, false, start.state, start.known);
        const auto open = PartsWithoutHeight(structure, isWanted, start.known);
        CarryHeights(structure, open, true, start.state, start.known);
        placed += PlaceInSpace(structure, isWanted, false, start.state, start.known) ? 1 : 0;
        if (placed == 0 && !PlaceInSpace(structure, isWanted, true, start.state, start.known))
            break;
    }
}

}  // namespace

std::vector<char> PartsWithTilted(const Structure& structure) {
    std::vector<char> parts(At(structure.parts), 0);
    for (const Setup& setup : structure.setups) {
        if (setup.isTilted)
            parts[At(structure.roles[At(setup.point)].part)] = 1;
    }
    return parts;
}

void SolveStart(const Structure& structure, const std::vector<char>& isWanted, unsigned variant,
                StartPlaces& start) {
    std::vector<char> tilted = PartsWithTilted(structure);
    for (std::size_t part = 0; part < tilted.size(); ++part)
        tilted[part] = tilted[part] && isWanted[part];
    if (std::find(tilted.begin(), tilted.end(), 1) != tilted.end())
        SolveTilted(structure, tilted, variant, start);
    if (structure.dimension != Dimension::Heights)
        SolveInPlan(structure, isWanted, isWanted, variant, start);
    if (structure.dimension != Dimension::Plan)
        CarryHeights(structure, isWanted, true, start.state, start.known);
}

}  // namespace Krenn
