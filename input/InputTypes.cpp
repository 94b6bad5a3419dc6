// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputTypes.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/ProfileStore.h"
#include "core/ReportError.h"

namespace Dorvane {

namespace {

template <class Observation>
void SizeEmpty(List1<ObsSet<Observation>>& sets, const char* kind) {
    sets.Clear();
    const std::int16_t count = InputTypeCount(kind);
    if (count > 0)
        sets.Resize(count);
}

}  // namespace

std::int16_t InputTypeCount(const std::string& kind) {
    const double number = std::nearbyint(IniReadNumber(InputProfile, kind, "Number"));
    if (number > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(Overflow);
    return static_cast<std::int16_t>(std::max(number, 0.0));
}

std::int16_t ReadIniInputTypes(List1<InputType>& types) {
    types.Clear();
    Guarded("basRead-ReadIniInputTypes", [&](Guard&) {
        for (const char* kind : InputKinds) {
            const std::int16_t count = InputTypeCount(kind);
            for (int i = 1; i <= count; ++i) {
                const std::string number = std::to_string(i);
                InputType type;
                type.Type = kind;
                type.Name = IniReadString(InputProfile, kind, "Name" + number);
                type.Icon = IniReadString(InputProfile, kind, "Icon" + number);
                type.Location = IniReadString(InputProfile, kind, "Location" + number);
                type.Number = static_cast<std::int16_t>(i);
                types.Add(std::move(type));
            }
        }
    });
    return types.Count();
}

void InitObsArrays(List1<ObsSet<DistanceObs>>& distanceSets, List1<ObsSet<AngleObs>>& angleSets,
                   List1<ObsSet<TotalObs>>& totalSets, List1<ObsSet<TrackerObs>>& trackerSets,
                   List1<ObsSet<HeightObs>>& heightSets) {
    Guarded("basInput-InitObsArrays", [&](Guard&) {
        SizeEmpty(distanceSets, "Distance");
        SizeEmpty(angleSets, "Angle");
        SizeEmpty(totalSets, "Total");
        SizeEmpty(trackerSets, "Tracker");
        SizeEmpty(heightSets, "Height");
    });
}

void EmptyModel(ObservationModel& model) {
    model.Points.Clear();
    model.Stations.Clear();
    InitObsArrays(model.DistanceSets, model.AngleSets, model.TotalSets, model.TrackerSets, model.HeightSets);
}

}  // namespace Dorvane
