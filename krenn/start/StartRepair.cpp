// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/StartRepair.h"

#include <fmt/format.h>

#include <algorithm>

#include "krenn/start/Approximate.h"
#include "krenn/start/Contradictions.h"
#include "krenn/start/StartCheck.h"

namespace Krenn {
namespace {

constexpr unsigned kMostTrialsGiven = 5;
constexpr double kMostContradicted =
    0.4;  // of the given points of a part; more, and nobody knows who is right

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// A start together with how good it is, part by part.
struct Candidate {
    StartPlaces places;
    std::vector<StartFit> fits;
    std::vector<int> unplaced;  // points, per part
};

struct Bench {
    const Network& network;
    const Structure& structure;
    std::vector<char> isWanted;  // the parts to mend
    double lengthScale = 0;
};

std::vector<char> PlacedPoints(const Structure& structure, const KnownPlaces& known) {
    std::vector<char> isPlaced(structure.roles.size());
    for (std::size_t i = 0; i < isPlaced.size(); ++i)
        isPlaced[i] = IsPlaced(structure, known, i) ? 1 : 0;
    return isPlaced;
}

Candidate Judged(const Bench& bench, StartPlaces places) {
    OrientAll(bench.structure, places.state);
    const std::vector<char> isPlaced = PlacedPoints(bench.structure, places.known);
    Candidate candidate;
    candidate.fits = FitOf(bench.structure, places.state, isPlaced, bench.lengthScale);
    candidate.unplaced.assign(At(bench.structure.parts), 0);
    for (std::size_t i = 0; i < isPlaced.size(); ++i) {
        if (!isPlaced[i])
            ++candidate.unplaced[At(bench.structure.roles[i].part)];
    }
    candidate.places = std::move(places);
    return candidate;
}

bool IsBetter(const Candidate& candidate, const Candidate& than, std::size_t part) {
    if (candidate.unplaced[part] != than.unplaced[part])
        return candidate.unplaced[part] < than.unplaced[part];
    return candidate.fits[part].cost < than.fits[part].cost;
}

void TakePart(const Bench& bench, Candidate& into, const Candidate& from, std::size_t part) {
    for (std::size_t i = 0; i < bench.structure.roles.size(); ++i) {
        if (bench.structure.roles[i].part != static_cast<int>(part))
            continue;
        into.places.state.at[i] = from.places.state.at[i];
        into.places.known.plan[i] = from.places.known.plan[i];
        into.places.known.height[i] = from.places.known.height[i];
    }
    into.places.usedGuess[part] = from.places.usedGuess[part];
    into.places.isMetric[part] = from.places.isMetric[part];
    into.fits[part] = from.fits[part];
    into.unplaced[part] = from.unplaced[part];
}

// Keeps of each part the better one.
void TakeBetter(const Bench& bench, Candidate& best, const Candidate& other) {
    for (std::size_t part = 0; part < bench.isWanted.size(); ++part) {
        if (bench.isWanted[part] && IsBetter(other, best, part))
            TakePart(bench, best, other, part);
    }
}

// How often another choice of observations is worth a try.
unsigned TrialsFor(const Bench& bench, const Candidate& first) {
    int measures = 0;
    for (std::size_t part = 0; part < bench.isWanted.size(); ++part)
        measures += bench.isWanted[part] ? first.fits[part].measures : 0;
    if (measures < 2000)
        return 16;
    if (measures < 20000)
        return 6;
    return measures < 300000 ? 2 : 0;
}

// The start places with the points of the parts to mend forgotten that `forget` names.
template <typename Forget>
StartPlaces Without(const Bench& bench, const StartPlaces& start, Forget forget) {
    StartPlaces places = start;
    for (std::size_t i = 0; i < bench.structure.roles.size(); ++i) {
        const int part = bench.structure.roles[i].part;
        if (part < 0 || !bench.isWanted[At(part)] || !forget(i))
            continue;
        places.known.plan[i] = places.known.height[i] = 0;
        // Only a height may be observed: the plan position is then no unknown, and stays.
        if (bench.structure.roles[i].planGroup >= 0)
            places.state.at[i] = {};
    }
    for (std::size_t part = 0; part < bench.isWanted.size(); ++part) {
        if (bench.isWanted[part])
            places.usedGuess[part] = 0;
    }
    return places;
}

Candidate BestOf(const Bench& bench, const StartPlaces& known, unsigned trials) {
    Candidate best;
    for (unsigned variant = 0; variant <= trials; ++variant) {
        StartPlaces places = known;
        SolveStart(bench.structure, bench.isWanted, variant, places);
        Candidate candidate = Judged(bench, std::move(places));
        if (variant == 0)
            best = std::move(candidate);
        else
            TakeBetter(bench, best, candidate);
    }
    return best;
}

// Where too many points are contradicted none is.
void SpareDisputedParts(const Bench& bench, Comparison& comparison) {
    std::vector<int> given(bench.isWanted.size(), 0);
    std::vector<int> contradicted(bench.isWanted.size(), 0);
    for (std::size_t i = 0; i < bench.network.points.size(); ++i) {
        const int part = bench.structure.roles[i].part;
        if (part < 0 || !bench.network.points[i].hasGiven)
            continue;
        ++given[At(part)];
        contradicted[At(part)] += comparison.isContradicted[i];
    }
    for (std::size_t i = 0; i < bench.network.points.size(); ++i) {
        const int part = bench.structure.roles[i].part;
        if (part >= 0 && contradicted[At(part)] > kMostContradicted * given[At(part)])
            comparison.isContradicted[i] = 0;
    }
}

std::string Meters(double meters) {
    return meters < 10 ? fmt::format("{:.3f} m", meters) : fmt::format("{:.0f} m", meters);
}

// The contradicted point whose given coordinates are where this one lies; -1 if there is none.
int ExchangedWith(const Bench& bench, const Comparison& comparison, std::size_t point) {
    const auto& at = comparison.fitted.at[point];
    for (std::size_t i = 0; i < bench.network.points.size(); ++i) {
        const auto& given = bench.network.points[i].given;
        if (i == point || !comparison.isContradicted[i] ||
            bench.structure.roles[i].part != bench.structure.roles[point].part)
            continue;
        if (std::hypot(given[0] - at[0], given[1] - at[1]) < 0.1 * comparison.away[point])
            return static_cast<int>(i);
    }
    return -1;
}

void TellContradicted(const Bench& bench, const Comparison& comparison, const Candidate& best,
                      StartRepair& repair) {
    for (std::size_t i = 0; i < bench.network.points.size(); ++i) {
        if (!comparison.isContradicted[i])
            continue;
        const Point& point = bench.network.points[i];
        const int other = ExchangedWith(bench, comparison, i);
        const std::string exchanged =
            other < 0 ? ""
                      : fmt::format(" It lies where {} is given: are their names exchanged?",
                                    bench.network.points[At(other)].name);
        if (point.isFixed) {
            repair.notes.push_back(
                fmt::format("The fixed coordinates of {} contradict the observations by {}; they are held, "
                            "and what is computed from them is doubtful.",
                            point.name, Meters(comparison.away[i])) +
                exchanged);
        } else if (best.places.state.at[i] != point.given) {
            repair.contradicted.push_back(static_cast<int>(i));
            repair.notes.push_back(
                fmt::format("The given coordinates of {} contradict the observations by {}; it starts from "
                            "the observations.",
                            point.name, Meters(comparison.away[i])) +
                exchanged);
        }
    }
}

// Starts a part from the observations alone where that leaves far fewer gross misses.
void StartRoughParts(const Bench& bench, const Comparison& comparison, Candidate& best, StartRepair& repair) {
    StartPlaces places = best.places;
    for (std::size_t i = 0; i < bench.network.points.size(); ++i) {
        if (comparison.isFitted[i] && !bench.network.points[i].isFixed)
            places.state.at[i] = comparison.fitted.at[i];
    }
    const Candidate fitted = Judged(bench, std::move(places));
    std::vector<char> isTaken(bench.isWanted.size(), 0);
    for (std::size_t part = 0; part < isTaken.size(); ++part) {
        if (!bench.isWanted[part] || 3 * fitted.fits[part].gross + 3 >= best.fits[part].gross)
            continue;
        isTaken[part] = 1;
        TakePart(bench, best, fitted, part);
    }
    double worst = 0;
    for (std::size_t i = 0; i < bench.network.points.size(); ++i) {
        const int part = bench.structure.roles[i].part;
        if (part >= 0 && isTaken[At(part)] && !comparison.isContradicted[i])
            worst = std::max(worst, comparison.away[i]);
    }
    if (worst > 0)
        repair.notes.push_back(
            fmt::format("The given coordinates are rough, up to {} from what the observations say; the "
                        "iterations start from the observations.",
                        Meters(worst)));
}

// The parts that have gross misses or unplaced points.
std::vector<char> PartsToMend(const Candidate& candidate) {
    std::vector<char> parts(candidate.fits.size(), 0);
    for (std::size_t part = 0; part < parts.size(); ++part)
        parts[part] = candidate.fits[part].gross > 0 || candidate.unplaced[part] > 0 ? 1 : 0;
    return parts;
}

std::vector<char> PartsWithGiven(const Network& network, const Structure& structure) {
    std::vector<char> parts(At(structure.parts), 0);
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (network.points[i].hasGiven && structure.roles[i].part >= 0)
            parts[At(structure.roles[i].part)] = 1;
    }
    return parts;
}

}  // namespace

bool IsPlaced(const Structure& structure, const KnownPlaces& known, std::size_t point) {
    const PointRole& role = structure.roles[point];
    if (role.part < 0)
        return true;
    return (role.planGroup < 0 || known.plan[point]) && (role.heightGroup < 0 || known.height[point]);
}

StartRepair RepairStart(const Network& network, const Structure& structure, StartPlaces& start) {
    StartRepair repair;
    Bench bench{network, structure, {}, 0};
    Candidate best;
    {
        const std::vector<char> isPlaced = PlacedPoints(structure, start.known);
        bench.lengthScale = MedianSight(structure, start.state, isPlaced);
        best = Judged(bench, std::move(start));
    }
    bench.isWanted = PartsToMend(best);
    if (std::find(bench.isWanted.begin(), bench.isWanted.end(), 1) == bench.isWanted.end()) {
        start = std::move(best.places);
        return repair;
    }
    const unsigned trials = TrialsFor(bench, best);
    const auto isComputed = [&](std::size_t i) { return !network.points[i].hasGiven; };
    const std::vector<char> withGiven = PartsWithGiven(network, structure);
    Bench compared = bench;
    for (std::size_t part = 0; part < withGiven.size(); ++part)
        compared.isWanted[part] = bench.isWanted[part] && withGiven[part];
    if (std::find(compared.isWanted.begin(), compared.isWanted.end(), 1) != compared.isWanted.end()) {
        const StartPlaces nothing = Without(compared, best.places, [](std::size_t) { return true; });
        const Candidate free = BestOf(compared, nothing, std::min(trials, kMostTrialsGiven));
        Comparison comparison =
            CompareGiven(network, structure, compared.isWanted, free.places, bench.lengthScale);
        SpareDisputedParts(compared, comparison);
        const auto isForgotten = [&](std::size_t i) {
            return isComputed(i) || (comparison.isContradicted[i] && !network.points[i].isFixed);
        };
        TakeBetter(compared, best,
                   BestOf(compared, Without(compared, best.places, isForgotten),
                          std::min(trials, kMostTrialsGiven)));
        TellContradicted(compared, comparison, best, repair);
        FitOntoDatum(network, structure, compared.isWanted, free.places, comparison);
        StartRoughParts(compared, comparison, best, repair);
    }
    for (std::size_t part = 0; part < withGiven.size(); ++part)
        bench.isWanted[part] = bench.isWanted[part] && !withGiven[part];
    if (std::find(bench.isWanted.begin(), bench.isWanted.end(), 1) != bench.isWanted.end())
        TakeBetter(bench, best, BestOf(bench, Without(bench, best.places, isComputed), trials));
    start = std::move(best.places);
    OrientAll(structure, start.state);
    return repair;
}

}  // namespace Krenn
