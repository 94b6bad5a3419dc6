// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "input/ObservationModel.h"

// A priori standard errors: how they are read and how an observation gets its own.
namespace Dorvane {

/// Fills the weights of each kind from the profile, one record per input type of the kind. A kind without
/// types leaves its array alone. An absent value is 0. A text that is not a number, an empty one too, is
/// error 13, reported once as "basRead-ReadIniWeights" for the first of them; all other weights are read.
void ReadIniWeights(List1<DistanceWeight>& distanceWeights, List1<AngleWeight>& angleWeights,
                    List1<TotalWeight>& totalWeights, List1<TrackerWeight>& trackerWeights,
                    List1<HeightWeight>& heightWeights);

/// Gives an observation its standard errors. The distance's is SDist. With LinAngle 1 an angle's is the
/// angle, in gons, under which the linear error appears at the observation's own slope distance, atan(L /
/// SDist) * 200 / 3.141592654; a slope distance of 0 is then error 11. Otherwise it is HAngle or ZAngle.
/// Error 13 when a weight that is needed was no number.
void WeightAssignment(TrackerObs& observation, const TrackerWeight& weight);
void WeightAssignment(TotalObs& observation, const TotalWeight& weight);
void WeightAssignment(AngleObs& observation, const AngleWeight& weight);
void WeightAssignment(DistanceObs& observation, const DistanceWeight& weight);
void WeightAssignment(HeightObs& observation, const HeightWeight& weight);

/// The menu entry for observation weights. `showDialog` shows the dialog until it is closed and returns what
/// it left in the input screen's Tag: "0" after Cancel, and then nothing more happens. Otherwise the weights
/// are read again and every observation gets its errors anew. Reports as "frmInput-mnuObservationWeights".
void ChangeObservationWeights(ObservationModel& model, const std::function<std::string()>& showDialog);

}  // namespace Dorvane
