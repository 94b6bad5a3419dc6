// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/Judgement.h"

#include <algorithm>
#include <cmath>

#include "krenn/adjust/Distributions.h"
#include "krenn/listing/ListingWords.h"
#include "krenn/listing/Page.h"

namespace Krenn {
namespace {

constexpr std::size_t kNamesShown = 12;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

const char* Plural(std::size_t number) {
    return number == 1 ? "" : "s";
}

// The median of the values above 0, and which point has the largest.
double Median(const std::vector<double>& values, int& largest) {
    std::vector<double> known;
    double most = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i] <= 0)
            continue;
        known.push_back(values[i]);
        if (values[i] > most) {
            most = values[i];
            largest = static_cast<int>(i);
        }
    }
    if (known.empty())
        return 0;
    const auto middle = known.begin() + static_cast<std::ptrdiff_t>(known.size() / 2);
    std::nth_element(known.begin(), middle, known.end());
    return *middle;
}

void FindPoorlyHeld(const Statistics& statistics, Judgement& judgement) {
    std::vector<double> major(statistics.ellipse.size());
    std::vector<double> height(statistics.ellipse.size());
    for (std::size_t i = 0; i < major.size(); ++i) {
        major[i] = statistics.ellipse[i].major;
        height[i] = statistics.deviation[i][2];
    }
    judgement.medianMajor = Median(major, judgement.largestMajor);
    judgement.medianHeight = Median(height, judgement.largestHeight);
    std::vector<std::pair<double, int>> poor;
    for (std::size_t i = 0; i < major.size(); ++i) {
        const double times = std::max(judgement.medianMajor > 0 ? major[i] / judgement.medianMajor : 0,
                                      judgement.medianHeight > 0 ? height[i] / judgement.medianHeight : 0);
        if (times > kPoorlyHeld)
            poor.emplace_back(-times, static_cast<int>(i));
    }
    std::sort(poor.begin(), poor.end());
    for (const auto& [times, point] : poor)
        judgement.poorlyHeld.push_back(point);
}

// A long thin ellipse of a point that is as well held as the others is no trouble to anyone.
void FindCorrelations(const Adjustment& adjustment, const Statistics& statistics, Judgement& judgement) {
    for (const Correlation& correlation : adjustment.cofactors.strong) {
        const UnknownOf& first = adjustment.unknowns.of[At(correlation.first)];
        const UnknownOf& second = adjustment.unknowns.of[At(correlation.second)];
        const auto isPoor = [&](const UnknownOf& of) {
            return of.point >= 0 &&
                   (statistics.ellipse[At(of.point)].major > kPoorlyHeld / 3 * judgement.medianMajor ||
                    statistics.deviation[At(of.point)][2] > kPoorlyHeld / 3 * judgement.medianHeight);
        };
        const bool isOfAll = first.point < 0 && second.point < 0;
        if (isOfAll || isPoor(first) || isPoor(second))
            judgement.correlations.push_back(correlation);
    }
}

// What the worst observation is suspected of, as a part of a sentence.
std::string Suspicion(const Network& network, const Adjustment& adjustment, const Statistics& statistics) {
    if (!adjustment.snooping.suspects.empty()) {
        const Suspect& suspect = adjustment.snooping.suspects.front();
        const Measure& measure = adjustment.structure.measures[At(suspect.measure)];
        return fmt::format("{}, is suspected of a gross error of {} {} (w = {})", Describe(network, measure),
                           Fixed(suspect.size * ResidualUnit(measure.kind), 0, 2),
                           ResidualUnitName(measure.kind), Fixed(suspect.w, 0, 2));
    }
    const Measure& measure = adjustment.structure.measures[At(statistics.worst)];
    const double error = SuspectedError(adjustment, statistics, At(statistics.worst));
    return fmt::format("{}, is suspected of a gross error of {} {} ({} = {})", Describe(network, measure),
                       Fixed(error * ResidualUnit(measure.kind), 0, 2), ResidualUnitName(measure.kind),
                       statistics.isStandardised ? "w" : "v/sigma",
                       Fixed(statistics.standardised[At(statistics.worst)], 0, 2));
}

// Observations an error of which would show alike: found by the search for gross errors, or with a w as
// large.
std::vector<int> Alternatives(const Adjustment& adjustment, const Statistics& statistics) {
    if (!adjustment.snooping.suspects.empty())
        return adjustment.snooping.suspects.front().alternatives;
    std::vector<int> alternatives;
    const double most = std::abs(statistics.standardised[At(statistics.worst)]);
    for (std::size_t m = 0; m < statistics.standardised.size() && statistics.isStandardised; ++m) {
        if (static_cast<int>(m) != statistics.worst && std::abs(statistics.standardised[m]) > 0.999 * most)
            alternatives.push_back(static_cast<int>(m));
    }
    return alternatives;
}

std::string LooksTheSame(const Network& network, const Adjustment& adjustment, const Statistics& statistics) {
    constexpr std::size_t kLinesShown = 10;
    const std::vector<int> alternatives = Alternatives(adjustment, statistics);
    const std::size_t count = alternatives.size();
    if (count == 0)
        return {};
    std::string lines;
    for (std::size_t i = 0; i < std::min(count, kLinesShown); ++i) {
        const Measure& measure = adjustment.structure.measures[At(alternatives[i])];
        lines += fmt::format("{}{}", i > 0 ? ", " : "", network.observations[At(measure.observation)].line);
    }
    return fmt::format(
        " The network cannot tell it from {} other observation{} whose error would look alike (line{} {}{}).",
        count, Plural(count), Plural(count), lines, count > kLinesShown ? ", ..." : "");
}

double ExpectedByChance(const Statistics& statistics) {
    const auto tested = static_cast<double>(statistics.standardised.size()) - statistics.notChecked;
    return tested * 2 * NormalExceedance(statistics.critical);
}

bool IsBeyondChance(const Statistics& statistics) {
    if (statistics.flagged == 0)
        return false;
    const double tested =
        std::max(1.0, static_cast<double>(statistics.standardised.size()) - statistics.notChecked);
    const double most = NormalQuantile(1 - statistics.parameters.globalRisk / (2 * tested));
    const double expected = ExpectedByChance(statistics);
    return std::abs(statistics.standardised[At(statistics.worst)]) > most ||
           statistics.flagged > expected + 3 * std::sqrt(expected);
}

// The kind of observation whose residuals are largest against its standard errors.
std::string LargestKind(const Statistics& statistics) {
    double most = 0;
    std::string name;
    for (std::size_t i = 0; i < statistics.kinds.size(); ++i) {
        const KindStatistics& kind = statistics.kinds[i];
        const double share = statistics.isStandardised ? kind.redundancy : kind.number;
        const double ratio = share > 1 ? std::sqrt(kind.scaledSquares / share) : 0;
        if (ratio > most) {
            most = ratio;
            name = fmt::format("{}s {:.2f}", KindName(static_cast<MeasureKind>(i)), ratio);
        }
    }
    return name;
}

// m0 if the worst observation were not there: its square of w leaves the sum of squares. 0 where it is not
// known.
double M0WithoutWorst(const Adjustment& adjustment, const Statistics& statistics) {
    if (adjustment.snooping.suspects.size() == 1 && adjustment.snooping.redundancy > 0)
        return adjustment.snooping.m0;
    if (!statistics.isStandardised || statistics.worst < 0 || statistics.redundancy < 2)
        return 0;
    const double w = statistics.standardised[At(statistics.worst)];
    return std::sqrt(std::max(adjustment.sumOfSquares - w * w, 0.0) / (statistics.redundancy - 1));
}

std::string WhatRemains(const Statistics& statistics, double without) {
    if (without <= 0)
        return {};
    if (without <= statistics.highest)
        return fmt::format(" Without it m0 would be {:.2f}.", without);
    return fmt::format(
        " Without it m0 would still be {:.2f}: there are more gross errors, or the standard errors a "
        "priori are too small (largest kind: {}).",
        without, LargestKind(statistics));
}

void JudgeLeastSquares(const Network& network, const Adjustment& adjustment, const Statistics& statistics,
                       Judgement& judgement) {
    const bool isTooLarge = statistics.hasM0 && statistics.m0 > statistics.highest;
    const double without = M0WithoutWorst(adjustment, statistics);
    const double largest =
        statistics.worst >= 0 ? std::abs(statistics.standardised[At(statistics.worst)]) : 0;
    const std::size_t suspects = adjustment.snooping.suspects.size();
    judgement.hasSuspect =
        suspects > 0 ||
        (IsBeyondChance(statistics) && (largest > statistics.critical * std::max(1.0, statistics.typicalW) ||
                                        (isTooLarge && without <= statistics.highest)));
    if (judgement.hasSuspect) {
        judgement.doubts.push_back(fmt::format("{}. Check it, or take it out and adjust again.{}{}",
                                               Capitalised(Suspicion(network, adjustment, statistics)),
                                               LooksTheSame(network, adjustment, statistics),
                                               suspects > 1 ? "" : WhatRemains(statistics, without)));
        if (suspects > 1)
            judgement.doubts.push_back(fmt::format(
                "{} observations are flagged; errors of {} of them explain it, and m0 without those would be "
                "{:.2f}: see Suspected gross errors.",
                statistics.flagged, suspects, adjustment.snooping.m0));
        else if (statistics.flagged > 1)
            judgement.doubts.push_back(fmt::format(
                "{} observations are flagged. Take out the largest first and adjust again: one gross "
                "error smears into the residuals of others. Type -1 leaves gross errors whole.",
                statistics.flagged));
    } else if (isTooLarge) {
        judgement.doubts.push_back(fmt::format(
            "No single observation stands out. The standard errors a priori may be too small, by a factor of "
            "{:.2f} (largest kind: {}), or the network does not fit its fixed coordinates or its model "
            "(scale, "
            "refraction).",
            statistics.m0, LargestKind(statistics)));
    } else if (statistics.flagged > 0) {
        judgement.remarks.push_back(fmt::format(
            "{} observation{} exceed{} the critical value {:.2f}; by chance about {:.1f} of so many "
            "do. The largest: {}.",
            statistics.flagged, Plural(At(statistics.flagged)), statistics.flagged == 1 ? "s" : "",
            statistics.critical, ExpectedByChance(statistics), Suspicion(network, adjustment, statistics)));
    }
    if (statistics.hasM0 && statistics.m0 < statistics.lowest)
        judgement.doubts.push_back(fmt::format(
            "m0 is too small: the observations are better than their standard errors a priori say, which may "
            "be "
            "too large by a factor of {:.2f}. The coordinates are in no doubt, the deviations are.",
            1 / std::max(statistics.m0, 1e-6)));
}

void JudgeLeastSum(const Network& network, const Adjustment& adjustment, const Statistics& statistics,
                   Judgement& judgement) {
    judgement.hasSuspect = statistics.flagged > 0;
    if (!judgement.hasSuspect)
        return;
    const std::string others =
        statistics.flagged == 1
            ? fmt::format("No other observation has a v/sigma above {:.2f}.", statistics.critical)
            : fmt::format("{} observations have a v/sigma above {:.2f}.", statistics.flagged,
                          statistics.critical);
    judgement.doubts.push_back(fmt::format(
        "{}. {} The L1 norm leaves gross errors whole: take them out, the largest first, and adjust with "
        "type 1.",
        Capitalised(Suspicion(network, adjustment, statistics)), others));
}

void RemarkOnPoints(const Network& network, const Adjustment& adjustment, const Statistics& statistics,
                    Judgement& judgement) {
    if (!judgement.uncheckedPoints.empty()) {
        std::string names;
        for (std::size_t i = 0; i < std::min(kNamesShown, judgement.uncheckedPoints.size()); ++i) {
            const UncheckedPoint& point = judgement.uncheckedPoints[i];
            names += fmt::format("{}{} ({})", i > 0 ? ", " : "", network.points[At(point.point)].name,
                                 InWords(point.what));
        }
        if (judgement.uncheckedPoints.size() > kNamesShown)
            names += fmt::format(" and {} more", judgement.uncheckedPoints.size() - kNamesShown);
        const std::size_t count = judgement.uncheckedPoints.size();
        judgement.remarks.push_back(fmt::format(
            "{} point{} {} on observations that no other checks; an error of theirs does not show: {}.",
            count, Plural(count), count == 1 ? "rests" : "rest", names));
    }
    if (!adjustment.weakPoints.empty())
        judgement.remarks.push_back(fmt::format("Notes under Datum tell how badly held {} {}.",
                                                NameList(network, adjustment.weakPoints, kNamesShown),
                                                adjustment.weakPoints.size() == 1 ? "is" : "are"));
    if (!judgement.poorlyHeld.empty())
        judgement.remarks.push_back(
            fmt::format("{} point{} {} poorly held, with deviations more than {:.0f} times the median: {}.",
                        judgement.poorlyHeld.size(), Plural(judgement.poorlyHeld.size()),
                        judgement.poorlyHeld.size() == 1 ? "is" : "are", kPoorlyHeld,
                        NameList(network, judgement.poorlyHeld, kNamesShown)));
    if (!judgement.correlations.empty())
        judgement.remarks.push_back(
            fmt::format("{} pair{} of unknowns can hardly be told apart (correlation above {:.3g}); see "
                        "Correlations.",
                        judgement.correlations.size(), Plural(judgement.correlations.size()),
                        statistics.parameters.correlationWarning));
    const auto count = [&](auto test) {
        return std::count_if(statistics.relative.begin(), statistics.relative.end(), test);
    };
    const auto beyond = count([](const RelativeEllipse& r) { return r.isKnown && r.actual > r.allowed; });
    if (beyond > 0)
        judgement.remarks.push_back(fmt::format("{} of {} relative error ellipses are larger than allowed.",
                                                beyond,
                                                count([](const RelativeEllipse& r) { return r.isKnown; })));
    if (adjustment.datum.parts.size() > 1)
        judgement.remarks.push_back(
            fmt::format("The network falls into {} parts that nothing connects; their positions to each "
                        "other say nothing.",
                        adjustment.datum.parts.size()));
}

}  // namespace

const char* InWords(Unchecked what) {
    switch (what) {
        case Unchecked::Position: return "position";
        case Unchecked::Plan: return "plan";
        case Unchecked::Height: return "height";
        default: return "in one direction";
    }
}

Judgement Judge(const Network& network, const Adjustment& adjustment, const Statistics& statistics) {
    Judgement judgement;
    judgement.uncheckedPoints = FindUncheckedPoints(adjustment, statistics);
    if (adjustment.hasCofactors) {
        FindPoorlyHeld(statistics, judgement);
        FindCorrelations(adjustment, statistics, judgement);
    }
    if (!statistics.hasM0)
        judgement.doubts.push_back(
            "There are only as many observations as unknowns: nothing is checked, and an error of any of "
            "them "
            "does not show. Observe more.");
    else if (adjustment.type == Type::L1Norm)
        JudgeLeastSum(network, adjustment, statistics, judgement);
    else
        JudgeLeastSquares(network, adjustment, statistics, judgement);
    RemarkOnPoints(network, adjustment, statistics, judgement);
    judgement.level = !statistics.hasM0            ? Judgement::Level::NotChecked
                      : !judgement.doubts.empty()  ? Judgement::Level::Doubtful
                      : !judgement.remarks.empty() ? Judgement::Level::Remarks
                                                   : Judgement::Level::Good;
    if (!adjustment.hasCofactors)
        judgement.remarks.push_back(fmt::format(
            "Type {} computes no standard deviations, no redundancy numbers and no reliability, so "
            "that points that nothing checks are not found; w stands for v/sigma. Type 1 computes "
            "them.",
            static_cast<int>(adjustment.type)));
    return judgement;
}

}  // namespace Krenn
