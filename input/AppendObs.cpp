// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/AppendObs.h"

#include <limits>
#include <unordered_map>

#include "core/ReportError.h"
#include "input/Weights.h"

namespace Dorvane {

namespace {

void TakeValues(TrackerObs& observation, const ResRecord& record) {
    observation.HAngle = record.Value1;
    observation.ZAngle = record.Value2;
    observation.SDist = record.Value3;
    observation.UseH = observation.UseZ = observation.UseD = SwitchOn;
}

void TakeValues(TotalObs& observation, const ResRecord& record) {
    observation.HAngle = record.Value1;
    observation.ZAngle = record.Value2;
    observation.SDist = record.Value3;
    observation.UseH = observation.UseZ = observation.UseD = SwitchOn;
}

void TakeValues(AngleObs& observation, const ResRecord& record) {
    observation.HAngle = record.Value1;
    observation.ZAngle = record.Value2;
    observation.UseH = observation.UseZ = SwitchOn;
}

void TakeValues(DistanceObs& observation, const ResRecord& record) {
    observation.Dist = record.Value1;
    observation.Use = SwitchOn;
}

void TakeValues(HeightObs& observation, const ResRecord& record) {
    observation.HDiff = record.Value1;
    observation.Use = SwitchOn;
}

template <class Observation, class Weight>
void AppendToSet(ObsSet<Observation>& set, const List1<ResRecord>& records, int recordCount,
                 const Weight& weight) {
    const int former = set.Count();
    set.Resize(former + recordCount);
    try {
        for (int i = 1; i <= recordCount; ++i) {
            Observation& observation = set[former + i];
            observation.Station = records[i].Station;
            observation.Target = records[i].Target;
            TakeValues(observation, records[i]);
            WeightAssignment(observation, weight);
        }
    } catch (const RunTimeError&) {
        set.Resize(former);
        throw;
    }
}

// The places of a table's names. Names are unique in the tables, since a name is only added when it is
// missing, so one place a name says as much as a comparison with every entry.
template <class Entry>
std::unordered_map<std::string, int> PlacesOf(const List1<Entry>& table) {
    std::unordered_map<std::string, int> places;
    places.reserve(static_cast<std::size_t>(table.Count()));
    for (int i = 1; i <= table.Count(); ++i)
        places.emplace(table[i].Name, i);
    return places;
}

void CountOne(std::int16_t& count) {
    if (count == std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(Overflow);
    ++count;
}

void CountSight(ObsPoint& point) {
    CountOne(point.HangCount);
    CountOne(point.ZangCount);
    CountOne(point.SdstCount);
}

void CountHeight(ObsPoint& point) {
    CountOne(point.LhgtCount);
}

// The point table while it is being counted into.
class PointPass {
  public:
    PointPass(List1<ObsPoint>& points, List1<std::string>& newNames, void (*count)(ObsPoint&))
        : Points(points), NewNames(newNames), Count(count), Places(PlacesOf(points)) {}

    void Observe(const std::string& name) {
        const auto [place, isNew] = Places.try_emplace(name, Points.Count() + 1);
        if (isNew) {
            Points.Add({}).Name = name;
            NewNames.Add(name);
        }
        ObsPoint& point = Points[place->second];
        Count(point);
        point.Switch1 = point.Switch2 = point.Switch3 = SwitchOn;
    }

  private:
    List1<ObsPoint>& Points;
    List1<std::string>& NewNames;
    void (*Count)(ObsPoint&);
    std::unordered_map<std::string, int> Places;
};

void AddStations(List1<ObsStation>& stations, const List1<ResRecord>& records, int recordCount) {
    auto places = PlacesOf(stations);
    for (int i = 1; i <= recordCount; ++i) {
        if (!places.emplace(records[i].Station, 0).second)
            continue;
        ObsStation& station = stations.Add({});
        station.Name = records[i].Station;
        station.Use = SwitchOn;
    }
}

template <class Observation, class Weight>
void AppendSights(const char* procedure, ObsSet<Observation>& set, List1<ObsPoint>& points,
                  List1<ObsStation>& stations, const List1<ResRecord>& records, std::int16_t recordCount,
                  const Weight& weight, List1<std::string>& newNames) {
    newNames.Clear();
    Guarded(procedure, [&](Guard&) {
        AppendToSet(set, records, recordCount, weight);
        // Angles and distances alone count in all three columns too: the summary counts sights.
        PointPass pass(points, newNames, CountSight);
        for (int i = 1; i <= recordCount; ++i)
            pass.Observe(records[i].Target);
        AddStations(stations, records, recordCount);
    });
}

}  // namespace

void AppendTrackerObs(ObsSet<TrackerObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                      const List1<ResRecord>& records, std::int16_t recordCount, const TrackerWeight& weight,
                      List1<std::string>& newNames) {
    AppendSights("basInput-AppendTrackerObs", set, points, stations, records, recordCount, weight, newNames);
}

void AppendTotalObs(ObsSet<TotalObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                    const List1<ResRecord>& records, std::int16_t recordCount, const TotalWeight& weight,
                    List1<std::string>& newNames) {
    AppendSights("basInput-AppendTotalObs", set, points, stations, records, recordCount, weight, newNames);
}

void AppendAngleObs(ObsSet<AngleObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                    const List1<ResRecord>& records, std::int16_t recordCount, const AngleWeight& weight,
                    List1<std::string>& newNames) {
    AppendSights("basInput-AppendAngleObs", set, points, stations, records, recordCount, weight, newNames);
}

void AppendDistanceObs(ObsSet<DistanceObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                       const List1<ResRecord>& records, std::int16_t recordCount,
                       const DistanceWeight& weight, List1<std::string>& newNames) {
    AppendSights("basInput-AppendDistanceObs", set, points, stations, records, recordCount, weight, newNames);
}

void AppendHeightObs(ObsSet<HeightObs>& set, List1<ObsPoint>& points, const List1<ResRecord>& records,
                     std::int16_t recordCount, const HeightWeight& weight, List1<std::string>& newNames) {
    newNames.Clear();
    Guarded("basInput-AppendHeightObs", [&](Guard&) {
        AppendToSet(set, records, recordCount, weight);
        PointPass pass(points, newNames, CountHeight);
        for (int i = 1; i <= recordCount; ++i)
            pass.Observe(records[i].Station);
        for (int i = 1; i <= recordCount; ++i)
            pass.Observe(records[i].Target);
    });
}

}  // namespace Dorvane
