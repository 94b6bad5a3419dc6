// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "input/ObservationModel.h"

namespace Dorvane {

/// The profile file of the input types, their weights and the user coordinate files.
inline constexpr const char* InputProfile = "dv_input.ini";

/// The number of input types of a kind, key "Number" of its section; 0 when absent or negative. Error 6 past
/// 16 bits.
std::int16_t InputTypeCount(const std::string& kind);

/// Reads the table of input types, kind by kind in the order of InputKinds, and returns their number. Reports
/// as "basRead-ReadIniInputTypes".
std::int16_t ReadIniInputTypes(List1<InputType>& types);

/// Sizes each kind's array of sets to the number of its input types, all sets empty. Reports as
/// "basInput-InitObsArrays".
void InitObsArrays(List1<ObsSet<DistanceObs>>& distanceSets, List1<ObsSet<AngleObs>>& angleSets,
                   List1<ObsSet<TotalObs>>& totalSets, List1<ObsSet<TrackerObs>>& trackerSets,
                   List1<ObsSet<HeightObs>>& heightSets);

/// Empties the sets, the point table and the station table, and sets the arrays up anew. Types and weights
/// stay.
void EmptyModel(ObservationModel& model);

}  // namespace Dorvane
