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

double Circle(double gons) {
    const double turned = std::fmod(gons, 400);
    return turned < 0 ? turned + 400 : turned;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// Reduces a set to the marks; `distance` is its own slope distance or one that stands in for it.
void ReduceToMarks(const FaceSet& set, const std::optional<double>& distance, ReducedSet& reduced) {
    const double up = set.InstrumentHeight - set.TargetHeight;
    if (!distance) {
        if (up == 0)
            reduced.Zenith = set.Zenith;
        return;
    }
    const double across = *distance * std::sin(set.Zenith * GonToRadian);
    const double rise = *distance * std::cos(set.Zenith * GonToRadian) + up;
    reduced.Zenith = std::atan2(across, rise) / GonToRadian;
    if (set.Distance)
        reduced.Distance = std::hypot(across, rise);
}

MeanValue Mean(const std::vector<double>& values) {
    MeanValue mean;
    mean.Count = static_cast<long>(values.size());
    const double count = static_cast<double>(mean.Count);
    for (const double value : values)
        mean.Value += value / count;
    for (const double value : values)
        mean.Squares += (value - mean.Value) * (value - mean.Value);
    mean.SetDeviation = Spread(mean.Squares, mean.Count - 1);
    if (mean.SetDeviation)
        mean.MeanDeviation = *mean.SetDeviation / std::sqrt(count);
    return mean;
}

/// Collects the set-ups of one station and reduces them together.
class StationReduction {
  public:
    StationReduction(const std::string& name, std::vector<Remark>& warnings) : Warnings(warnings) {
        Result.Name = name;
    }

    void Add(const SetUp& setUp) {
        const SetUpFrame frame = WorkOutSetUp(setUp, Warnings);
        SetUpResult told{
            setUp.File,  setUp.Line,      {},  static_cast<long>(setUp.Sights.size()), frame.Collimation,
            frame.Index, frame.Positions, true};
        for (const Sight& sight : setUp.Sights)
            if (std::find(told.InstrumentHeights.begin(), told.InstrumentHeights.end(),
                          sight.InstrumentHeight) == told.InstrumentHeights.end())
                told.InstrumentHeights.push_back(sight.InstrumentHeight);
        const std::optional<double> turn = Orientation(setUp, frame);
        told.Used = turn.has_value();
        if (turn)
            Append(setUp, frame, *turn);
        Result.SetUps.push_back(std::move(told));
    }

    StationResult Finish() {
        AdjustDirections();
        for (TargetResult& target : Result.Targets) {
            MeanOf(target, &ReducedSet::Zenith, target.Zenith);
            MeanOf(target, &ReducedSet::Distance, target.Distance);
        }
        Result.ZenithDeviation = Pooled(&TargetResult::Zenith);
        Result.DistanceDeviation = Pooled(&TargetResult::Distance);
        return std::move(Result);
    }

  private:
    TargetResult* Find(const std::string& name) {
        const auto place = Places.find(name);
        return place == Places.end() ? nullptr : &Result.Targets[place->second];
    }

    // The turn of a set-up against those before it; 0 for the first, nothing when no common target tells it.
    std::optional<double> Orientation(const SetUp& setUp, const SetUpFrame& frame) {
        if (Result.Targets.empty())
            return 0;
        std::vector<double> turns;
        for (const FaceSet& set : frame.Sets)
            if (const TargetResult* const known = Find(set.Target))
                turns.push_back(Circle(set.Direction - known->Sets.front().Direction));
        if (turns.empty()) {
            Warnings.push_back(
                {setUp.File, setUp.Line,
                 fmt::format("this set-up on {} shares no target with those before, its {} sights "
                             "are left out: the station has one orientation",
                             setUp.Station, setUp.Sights.size())});
            return std::nullopt;
        }
        // Turns about 0 lie on both sides of the circle's joint; the median is taken from the first one.
        std::vector<double> offsets;
        for (const double turn : turns)
            offsets.push_back(DirectionDifference(turn, turns.front()));
        const double middle = Median(offsets);
        if (std::none_of(offsets.begin(), offsets.end(),
                         [&](double offset) { return std::abs(offset - middle) <= DirectionLimit; })) {
            Warnings.push_back(
                {setUp.File, setUp.Line,
                 fmt::format("this set-up on {} does not fit those before, its {} sights are left out: "
                             "its common targets tell different orientations",
                             setUp.Station, setUp.Sights.size())});
            return std::nullopt;
        }
        return turns.front() + middle;
    }

    void Append(const SetUp& setUp, const SetUpFrame& frame, double turn) {
        const std::map<std::string, double> distances = MeanDistances(frame);
        std::map<std::pair<int, int>, int>
            rounds;  // of the set-up by position and round, to those of the station
        for (const FaceSet& set : frame.Sets) {
            ReducedSet reduced;
            reduced.Direction = Circle(set.Direction - turn);
            reduced.BothFaces = set.BothFaces;
            TargetResult* target = Find(set.Target);
            if (target && std::abs(DirectionDifference(reduced.Direction, target->Sets.front().Direction)) >
                              DirectionLimit) {
                Warnings.push_back({setUp.File, set.Line,
                                    fmt::format("{} from {} does not fit the earlier set-up, left out",
                                                set.Target, setUp.Station)});
                continue;
            }
            const auto stand = distances.find(set.Target);
            ReduceToMarks(set,
                          set.Distance               ? set.Distance
                          : stand == distances.end() ? std::nullopt
                                                     : std::optional<double>(stand->second),
                          reduced);
            reduced.Round = rounds.try_emplace({set.Position, set.Round}, Result.Rounds).first->second;
            Result.Rounds = std::max(Result.Rounds, reduced.Round + 1);
            if (!target) {
                Places[set.Target] = Result.Targets.size();
                Result.Targets.push_back({set.Target, {}, 0, {}, {}, {}});
                target = &Result.Targets.back();
            }
            target->Sets.push_back(reduced);
            target->SingleFaces += set.BothFaces ? 0 : 1;
        }
    }

    static std::map<std::string, double> MeanDistances(const SetUpFrame& frame) {
        std::map<std::string, std::vector<double>> all;
        for (const FaceSet& set : frame.Sets)
            if (set.Distance)
                all[set.Target].push_back(*set.Distance);
        std::map<std::string, double> means;
        for (const auto& [target, values] : all)
            means[target] = Mean(values).Value;
        return means;
    }

    // Least squares of d(r, T) = D(T) + o(r) by alternating means. Directions are small differences from each
    // target's first one; the frame is the same for all rounds but for the drift that o(r) takes up.
    void AdjustDirections() {
        const std::size_t rounds = static_cast<std::size_t>(Result.Rounds);
        std::vector<double> drift(rounds, 0);
        std::vector<double> means(Result.Targets.size(), 0);
        constexpr int mostPasses = 1000;
        constexpr double still = 1e-12;
        for (int pass = 0; pass < mostPasses; ++pass) {
            double change = 0;
            for (std::size_t t = 0; t < means.size(); ++t) {
                double sum = 0;
                for (const ReducedSet& set : Result.Targets[t].Sets)
                    sum += Offset(t, set) - drift[static_cast<std::size_t>(set.Round)];
                const double mean = sum / static_cast<double>(Result.Targets[t].Sets.size());
                change = std::max(change, std::abs(mean - means[t]));
                means[t] = mean;
            }
            std::vector<double> sums(rounds, 0);
            std::vector<long> counts(rounds, 0);
            for (std::size_t t = 0; t < means.size(); ++t) {
                for (const ReducedSet& set : Result.Targets[t].Sets) {
                    sums[static_cast<std::size_t>(set.Round)] += Offset(t, set) - means[t];
                    ++counts[static_cast<std::size_t>(set.Round)];
                }
            }
            for (std::size_t r = 0; r < rounds; ++r)
                if (counts[r] > 0)
                    drift[r] = sums[r] / static_cast<double>(counts[r]);
            if (change < still && pass > 0)
                break;
        }
        // All rounds were free so that the passes converge fast; now the first one is held.
        const double first = rounds > 0 ? drift[0] : 0;
        for (double& value : drift)
            value -= first;
        for (double& value : means)
            value += first;
        TellDirections(drift, means);
    }

    double Offset(std::size_t target, const ReducedSet& set) const {
        return DirectionDifference(set.Direction, Result.Targets[target].Sets.front().Direction);
    }

    void TellDirections(const std::vector<double>& drift, const std::vector<double>& means) {
        const long targets = static_cast<long>(Result.Targets.size());
        double squares = 0;
        long sets = 0;
        for (std::size_t t = 0; t < means.size(); ++t) {
            TargetResult& target = Result.Targets[t];
            MeanValue& mean = target.Direction;
            mean.Count = static_cast<long>(target.Sets.size());
            mean.Value = Circle(target.Sets.front().Direction + means[t]);
            for (const ReducedSet& set : target.Sets) {
                const double left = Offset(t, set) - drift[static_cast<std::size_t>(set.Round)] - means[t];
                mean.Squares += left * left;
            }
            // The rounds' orientations take their share of each target's scatter; it is given back.
            mean.SetDeviation =
                targets > 1
                    ? Spread(mean.Squares * static_cast<double>(targets) / static_cast<double>(targets - 1),
                             mean.Count - 1)
                    : std::nullopt;
            if (mean.SetDeviation)
                mean.MeanDeviation = *mean.SetDeviation / std::sqrt(static_cast<double>(mean.Count));
            squares += mean.Squares;
            sets += mean.Count;
        }
        Result.DirectionDeviation = Spread(squares, sets - targets - (Result.Rounds - 1));
    }

    static void MeanOf(const TargetResult& target, std::optional<double> ReducedSet::*value,
                       std::optional<MeanValue>& mean) {
        std::vector<double> values;
        for (const ReducedSet& set : target.Sets)
            if (set.*value)
                values.push_back(*(set.*value));
        if (!values.empty())
            mean = Mean(values);
    }

    std::optional<double> Pooled(std::optional<MeanValue> TargetResult::*kind) const {
        double squares = 0;
        long freedom = 0;
        for (const TargetResult& target : Result.Targets) {
            if (const std::optional<MeanValue>& mean = target.*kind) {
                squares += mean->Squares;
                freedom += mean->Count - 1;
            }
        }
        return Spread(squares, freedom);
    }

    StationResult Result;
    std::map<std::string, std::size_t> Places;  // of the targets in the result
    std::vector<Remark>& Warnings;
};

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
    std::vector<std::vector<const SetUp*>> stations;  // the set-ups of each, in the order of the book
    std::map<std::string, std::size_t> places;
    for (const SetUp& setUp : book.SetUps) {
        const auto place = places.try_emplace(setUp.Station, stations.size()).first;
        if (place->second == stations.size())
            stations.emplace_back();
        stations[place->second].push_back(&setUp);
    }
    for (const std::vector<const SetUp*>& setUps : stations) {
        StationReduction station(setUps.front()->Station, result.Warnings);
        for (const SetUp* const setUp : setUps)
            station.Add(*setUp);
        result.Stations.push_back(station.Finish());
    }
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
