// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PointEvidence.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace Krenn {
namespace {

constexpr std::size_t kMostNames = 4;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// The kinds of sights that tell about a point, in the order of the words.
enum Tells { kDirectionTo, kDirectionOn, kZenith, kDistance, kRise, kTells };
constexpr std::array kOne{"one direction, from", "one direction read on it, to", "one zenith angle, with",
                          "one distance, to", "one height difference, to"};
constexpr std::array kMany{"directions, from", "directions read on it, to", "zenith angles, with",
                           "distances, to", "height differences, to"};

struct Known {
    std::array<std::vector<int>, kTells> others;  // the other end of each observation
};

std::string Others(const Network& network, const std::vector<int>& others) {
    std::vector<int> distinct = others;
    std::sort(distinct.begin(), distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    const bool isOne = distinct.size() == 1 && others.size() > 1;
    return (isOne ? "all the same, " : "") + NameList(network, distinct, kMostNames);
}

std::string InWords(const Network& network, const Known& known) {
    std::string words;
    for (std::size_t tells = 0; tells < kTells; ++tells) {
        const auto& others = known.others[tells];
        if (others.empty())
            continue;
        words += words.empty() ? "" : "; ";
        words +=
            others.size() == 1 ? std::string(kOne[tells]) : fmt::format("{} {}", others.size(), kMany[tells]);
        words += " " + Others(network, others);
    }
    std::vector<int> centres = known.others[kDistance];
    std::sort(centres.begin(), centres.end());
    centres.erase(std::unique(centres.begin(), centres.end()), centres.end());
    const bool isArc =
        centres.size() == 2 && known.others[kDirectionTo].empty() && known.others[kDirectionOn].size() < 2;
    return words + (isArc ? ": two places are possible" : "");
}

Tells TellsOf(const Measure& measure, bool isTo) {
    switch (measure.kind) {
        case MeasureKind::Direction: return isTo ? kDirectionTo : kDirectionOn;
        case MeasureKind::ZenithAngle: return kZenith;
        case MeasureKind::HeightDifference: return kRise;
        default: return kDistance;
    }
}

}  // namespace

std::vector<std::string> EvidenceInWords(const Network& network, const Structure& structure,
                                         const std::vector<int>& points) {
    std::vector<int> place(network.points.size(), -1);
    for (std::size_t i = 0; i < points.size(); ++i)
        place[At(points[i])] = static_cast<int>(i);
    std::vector<Known> known(points.size());
    for (const Measure& measure : structure.measures) {
        for (const bool isTo : {false, true}) {
            const int at = place[At(isTo ? measure.to : measure.from)];
            if (at >= 0)
                known[At(at)].others[TellsOf(measure, isTo)].push_back(isTo ? measure.from : measure.to);
        }
    }
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < points.size(); ++i)
        lines.push_back(network.points[At(points[i])].name + ": " + InWords(network, known[i]));
    return lines;
}

}  // namespace Krenn
