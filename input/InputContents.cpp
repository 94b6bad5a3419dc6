// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputContents.h"

#include <utility>
#include <vector>

#include "core/Text.h"

namespace Dorvane {

namespace {

using Counts = std::vector<std::pair<std::string, int>>;  // what, and how many

// "3 tracker, 2 height": what there is none of is left out.
std::string InWords(const Counts& counts) {
    std::string text;
    for (const auto& [name, count] : counts)
        if (count > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + name;
    return text;
}

template <class Observation>
int CountAll(const List1<ObsSet<Observation>>& sets) {
    int count = 0;
    for (const ObsSet<Observation>& set : sets)
        count += set.Count();
    return count;
}

int CountPoints(const ObservationModel& model, int source) {
    int count = 0;
    for (const ObsPoint& point : model.Points)
        if (point.CoordSource == source)
            ++count;
    return count;
}

std::string ObservationLine(const ObservationModel& model) {
    const std::string observations = InWords({{"tracker", CountAll(model.TrackerSets)},
                                              {"total", CountAll(model.TotalSets)},
                                              {"height", CountAll(model.HeightSets)},
                                              {"angle", CountAll(model.AngleSets)},
                                              {"distance", CountAll(model.DistanceSets)}});
    return "Observations : " + (observations.empty() ? "none" : observations);
}

std::string PointLine(const ObservationModel& model) {
    const int without = CountPoints(model, 0);
    const int with = model.Points.Count() - without;
    std::string text = "Points : " + std::to_string(with) + " with coordinates";
    if (with > 0)
        text += " (" +
                InWords({{"from ideals or a BDD file", CountPoints(model, 4)},
                         {"three-dimensional or from a file of points", CountPoints(model, 3)},
                         {"from monuments", CountPoints(model, 2)},
                         {"from benchmarks", CountPoints(model, 1)}}) +
                ")";
    return text + ", " + std::to_string(without) + " without";
}

}  // namespace

std::string DescribeInput(const ObservationModel& model, const std::string& folder,
                          const std::string& inputName) {
    const std::string name = BeforeFirstPoint(inputName);
    return name + ".INP, " + name + ".ORG, " + name + ".SUM and " + name + ".VER in " + folder + "\r\n" +
           ObservationLine(model) + "\r\n" + PointLine(model);
}

}  // namespace Dorvane
