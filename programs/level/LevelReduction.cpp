// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/level/LevelReduction.h"

#include <fmt/format.h>

#include <cmath>
#include <map>

namespace Dorvane {

namespace {

/// The way from the last mark to the present backsight point.
struct Way {
    const StaffMean* Mark = nullptr;
    LevelRun Run;
    double Length = 0;
    bool LengthKnown = true;

    void Add(const StaffMean& back, const StaffMean& fore) {
        Run.Difference += back.Mean() - fore.Mean();
        ++Run.SetUps;
        for (const StaffMean* const sight : {&back, &fore}) {
            if (sight->Distance)
                Length += *sight->Distance;
            else
                LengthKnown = false;
        }
        if (back.Distance && fore.Distance)
            Run.Imbalance += *back.Distance - *fore.Distance;
    }

    LevelRun To(const std::string& point, std::size_t line) const {
        LevelRun run = Run;
        run.From = Mark->Point;
        run.To = point;
        run.Line = line;
        if (LengthKnown)
            run.Length = Length;
        return run;
    }
};

class LevelReducer {
  public:
    LevelResult Reduce(const LevelBook& book) {
        for (std::size_t i = 0; i < book.Lines.size(); ++i)
            ReduceLine(book.Lines[i], i);
        for (LevelSection& section : Result.Sections)
            MeanOf(section);
        Result.KilometerDeviation = Kilometer();
        return std::move(Result);
    }

  private:
    void ReduceLine(const LevelLine& line, std::size_t index) {
        Way way;
        Way whole;
        const StaffMean& start = line.SetUps.front().Back;
        if (start.TurningPoint)
            Warn(line, start, "the line begins on the turning point " + start.Point);
        else
            way.Mark = &start;
        for (const LevelSetUp& setUp : line.SetUps) {
            AddIntersights(way, line, setUp, index);
            way.Add(setUp.Back, setUp.Fore);
            whole.Add(setUp.Back, setUp.Fore);
            if (setUp.Fore.TurningPoint)
                continue;
            if (way.Mark)
                Add(way.To(setUp.Fore.Point, index), line, setUp.Fore);
            way = {};
            way.Mark = &setUp.Fore;
        }
        const StaffMean& end = line.SetUps.back().Fore;
        if (end.TurningPoint)
            Warn(line, end,
                 "the line ends on the turning point " + end.Point + ", what leads there is left out");
        LevelLineSum sum{line.Name, line.File, start.Point, end.Point, whole.Run.SetUps, whole.Run.Difference,
                         {}};
        if (whole.LengthKnown)
            sum.Length = whole.Length;
        Result.Lines.push_back(sum);
    }

    void AddIntersights(const Way& way, const LevelLine& line, const LevelSetUp& setUp, std::size_t index) {
        for (const StaffMean& inter : setUp.Inter) {
            if (!way.Mark) {
                Warn(line, inter, "no mark in front of the intersight to " + inter.Point);
                continue;
            }
            Way toInter = way;
            toInter.Add(setUp.Back, inter);
            LevelRun run = toInter.To(inter.Point, index);
            run.Inter = true;
            Add(run, line, inter);
        }
    }

    void Add(const LevelRun& run, const LevelLine& line, const StaffMean& at) {
        if (run.From == run.To) {
            Warn(line, at,
                 fmt::format("a run from {} to itself, left out (it closes with {} mm)", run.From,
                             Fixed(run.Difference * 1000, 2, 0)));
            return;
        }
        const auto key = run.From < run.To ? std::pair(run.From, run.To) : std::pair(run.To, run.From);
        const auto place = Places.try_emplace(key, Result.Sections.size()).first;
        if (place->second == Result.Sections.size())
            Result.Sections.push_back({run.From, run.To, {}, 0, {}, {}});
        Result.Sections[place->second].Runs.push_back(run);
    }

    static void MeanOf(LevelSection& section) {
        double sums[2] = {0, 0};
        int counts[2] = {0, 0};
        double length = 0;
        int lengths = 0;
        for (const LevelRun& run : section.Runs) {
            const int direction = run.From == section.From ? 0 : 1;
            sums[direction] += run.Difference;
            ++counts[direction];
            if (run.Length) {
                length += *run.Length;
                ++lengths;
            }
        }
        section.Mean = (sums[0] - sums[1]) / (counts[0] + counts[1]);
        if (counts[0] > 0 && counts[1] > 0)
            section.Discrepancy = sums[0] / counts[0] + sums[1] / counts[1];
        if (lengths > 0)
            section.Length = length / lengths;
    }

    std::optional<double> Kilometer() const {
        double sum = 0;
        long count = 0;
        for (const LevelSection& section : Result.Sections) {
            if (!section.Discrepancy || !section.Length || *section.Length <= 0)
                continue;
            sum += *section.Discrepancy * *section.Discrepancy / (*section.Length / 1000);
            ++count;
        }
        return Spread(sum / 4, count);
    }

    void Warn(const LevelLine& line, const StaffMean& at, const std::string& text) {
        Result.Warnings.push_back({line.File, at.Line, text});
    }

    LevelResult Result;
    std::map<std::pair<std::string, std::string>, std::size_t> Places;  // of the sections, by their two marks
};

}  // namespace

LevelResult ReduceLevelBook(const LevelBook& book) {
    return LevelReducer().Reduce(book);
}

std::vector<std::string> LevelResLines(const LevelResult& result) {
    std::vector<std::string> lines;
    for (const LevelSection& section : result.Sections)
        lines.push_back(
            fmt::format("{:<16} {:<16} {}", section.From, section.To, Fixed(section.Mean, 5, 12)));
    return lines;
}

}  // namespace Dorvane
