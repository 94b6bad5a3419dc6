// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/TotalReduction.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr double GonToRadian = std::numbers::pi / 200;
constexpr std::size_t LongestDatabaseName = 8;

// Whether a target has all that a kind of result file takes of it.
bool Has(const TargetResult& target, ResultKind kind) {
    return target.Zenith && (kind == ResultKind::Angle || target.Distance);
}

void NameUnreduced(TotalResult& result, ResultKind kind) {
    for (const StationResult& station : result.Stations) {
        for (const TargetResult& target : station.Targets) {
            if (Has(target, kind))
                continue;
            const char* const reason =
                target.Zenith ? "no distance, not in the result file"
                              : "no distance and unequal heights, cannot be reduced to the marks";
            result.Warnings.push_back(
                {"", 0, fmt::format("{} to {}: {}", station.Name, target.Name, reason)});
        }
    }
}

void NameLongNames(TotalResult& result) {
    std::vector<std::string> told;
    const auto tell = [&](const std::string& name) {
        if (name.size() <= LongestDatabaseName || std::find(told.begin(), told.end(), name) != told.end())
            return;
        told.push_back(name);
        result.Warnings.push_back(
            {"", 0,
             fmt::format("the name {} is longer than the 8 characters that the database holds", name)});
    };
    for (const StationResult& station : result.Stations) {
        tell(station.Name);
        for (const TargetResult& target : station.Targets)
            tell(target.Name);
    }
}

std::string DirectionText(double direction) {
    const std::string text = Fixed(direction, 6, 12);
    return Trim(text) == "400.000000" ? Fixed(0, 6, 12) : text;
}

void CompareBothEnds(TotalResult& result) {
    std::map<std::pair<std::string, std::string>, const TargetResult*> seen;
    for (const StationResult& station : result.Stations) {
        for (const TargetResult& target : station.Targets) {
            if (!target.Distance || !target.Zenith)
                continue;
            seen[{station.Name, target.Name}] = &target;
            const auto other = seen.find({target.Name, station.Name});
            if (other == seen.end())
                continue;
            const auto height = [](const TargetResult& sight) {
                return sight.Distance->Value * std::cos(sight.Zenith->Value * GonToRadian);
            };
            const TargetResult& forward = *other->second;
            result.Lines.push_back(
                {target.Name, station.Name, (forward.Distance->Value + target.Distance->Value) / 2,
                 forward.Distance->Value - target.Distance->Value, height(forward) + height(target)});
        }
    }
    double distances = 0;
    double heights = 0;
    for (const BothEnds& line : result.Lines) {
        distances += line.DistanceDifference * line.DistanceDifference;
        heights += line.HeightSum * line.HeightSum;
    }
    const long count = static_cast<long>(result.Lines.size());
    result.LineDeviation = Spread(distances / 2, count);
    result.HeightDeviation = Spread(heights / 2, count);
}

class SpreadSum {
  public:
    void Add(const MeanValue& mean) {
        if (!mean.SetDeviation)
            return;
        Sets += *mean.SetDeviation * *mean.SetDeviation * static_cast<double>(mean.Count - 1);
        Freedom += mean.Count - 1;
        Means += *mean.MeanDeviation * *mean.MeanDeviation;
        ++Count;
    }
    BookSpread Pooled() const { return {Spread(Sets, Freedom), Spread(Means, Count)}; }

  private:
    double Sets = 0;
    double Means = 0;
    long Freedom = 0;
    long Count = 0;
};

void PoolSpreads(TotalResult& result) {
    SpreadSum direction;
    SpreadSum zenith;
    SpreadSum distance;
    for (const StationResult& station : result.Stations) {
        for (const TargetResult& target : station.Targets) {
            direction.Add(target.Direction);
            if (target.Zenith)
                zenith.Add(*target.Zenith);
            if (target.Distance)
                distance.Add(*target.Distance);
        }
    }
    result.Direction = direction.Pooled();
    result.Zenith = zenith.Pooled();
    result.Distance = distance.Pooled();
}

}  // namespace

TotalResult ReduceBook(const FieldBook& book, ResultKind kind) {
    TotalResult result;
    std::vector<std::vector<const StationSetUp*>> stations;  // the set-ups of each, in the order of the book
    std::map<std::string, std::size_t> places;
    for (const StationSetUp& setUp : book.SetUps) {
        const auto place = places.try_emplace(setUp.Station, stations.size()).first;
        if (place->second == stations.size())
            stations.emplace_back();
        stations[place->second].push_back(&setUp);
    }
    for (const std::vector<const StationSetUp*>& setUps : stations)
        result.Stations.push_back(ReduceStation(setUps, result.Warnings));
    NameUnreduced(result, kind);
    NameLongNames(result);
    CompareBothEnds(result);
    PoolSpreads(result);
    return result;
}

std::vector<std::string> ResultLines(const TotalResult& result, ResultKind kind) {
    std::vector<std::string> lines;
    for (const StationResult& station : result.Stations) {
        for (const TargetResult& target : station.Targets) {
            if (!Has(target, kind))
                continue;
            std::string line = fmt::format("{:<16} {:<16}", station.Name, target.Name);
            if (kind != ResultKind::Distance)
                line +=
                    " " + DirectionText(target.Direction.Value) + " " + Fixed(target.Zenith->Value, 6, 12);
            if (kind != ResultKind::Angle)
                line += " " + Fixed(target.Distance->Value, 5, 12);
            lines.push_back(line);
        }
    }
    return lines;
}

}  // namespace Dorvane
