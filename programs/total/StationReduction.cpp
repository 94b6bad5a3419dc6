// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/StationReduction.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace Dorvane {

namespace {

constexpr double GonToRadian = std::numbers::pi / 200;

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
class StationReducer {
  public:
    StationReducer(const std::string& name, std::vector<Remark>& warnings) : Warnings(warnings) {
        Result.Name = name;
    }

    void Add(const StationSetUp& setUp) {
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
    std::optional<double> Orientation(const StationSetUp& setUp, const SetUpFrame& frame) {
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

    void Append(const StationSetUp& setUp, const SetUpFrame& frame, double turn) {
        const std::map<std::string, double> distances = MeanDistances(frame);
        std::map<int, int> rounds;  // of the set-up to those of the station
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
            reduced.Round = rounds.try_emplace(set.Round, Result.Rounds).first->second;
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

}  // namespace

StationResult ReduceStation(const std::vector<const StationSetUp*>& setUps, std::vector<Remark>& warnings) {
    StationReducer station(setUps.front()->Station, warnings);
    for (const StationSetUp* const setUp : setUps)
        station.Add(*setUp);
    return station.Finish();
}

}  // namespace Dorvane
