// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "input/ObservationModel.h"
#include "input/ResultFiles.h"

// How result lines become observations, points and stations. Each routine appends the first `recordCount`
// records behind the observations of a set, weighted, with every Use switch on; counts each Target (and, for
// heights, each Station too) in the point table or adds it there, at the end, in order of appearance; and
// adds each Station to the station table (heights: not). `newNames` takes the points that were added. More
// than 32767 observations, points or stations are error 6; an observation without a weight (a linear one at
// distance 0) is error 11, and then nothing is appended. Reports as "basInput-AppendTrackerObs" and so on.
namespace Dorvane {

/// Value1 is the horizontal angle, Value2 the zenith angle, Value3 the slope distance.
void AppendTrackerObs(ObsSet<TrackerObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                      const List1<ResRecord>& records, std::int16_t recordCount, const TrackerWeight& weight,
                      List1<std::string>& newNames);

/// As AppendTrackerObs.
void AppendTotalObs(ObsSet<TotalObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                    const List1<ResRecord>& records, std::int16_t recordCount, const TotalWeight& weight,
                    List1<std::string>& newNames);

/// Value1 is the horizontal direction, Value2 the zenith angle. Counts as an observation of all three kinds.
void AppendAngleObs(ObsSet<AngleObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                    const List1<ResRecord>& records, std::int16_t recordCount, const AngleWeight& weight,
                    List1<std::string>& newNames);

/// Value1 is the distance. Counts as an observation of all three kinds.
void AppendDistanceObs(ObsSet<DistanceObs>& set, List1<ObsPoint>& points, List1<ObsStation>& stations,
                       const List1<ResRecord>& records, std::int16_t recordCount,
                       const DistanceWeight& weight, List1<std::string>& newNames);

/// Value1 is the height difference from Station to Target; both ends are points, first all Stations, then all
/// Targets.
void AppendHeightObs(ObsSet<HeightObs>& set, List1<ObsPoint>& points, const List1<ResRecord>& records,
                     std::int16_t recordCount, const HeightWeight& weight, List1<std::string>& newNames);

}  // namespace Dorvane
