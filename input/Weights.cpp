// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/Weights.h"

#include <cmath>

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "input/InputTypes.h"

namespace Dorvane {

namespace {

// The constant that the system has always used, so that weights come out the same to the last digit.
constexpr double Pi = 3.141592654;

double ReadValue(const char* kind, const char* key, int number) {
    const std::string text = IniReadString(InputProfile, kind, key + std::to_string(number));
    return text.empty() ? 0 : StrictNumber(text);
}

std::int16_t ReadFlag(const char* kind, const char* key, int number) {
    const std::string text = IniReadString(InputProfile, kind, key + std::to_string(number));
    if (!text.empty())
        StrictNumber(text);
    return LeadingInteger(text);
}

void ReadWeight(DistanceWeight& weight, const char* kind, int number) {
    weight.SDist = ReadValue(kind, "SDist", number);
    weight.HDist = ReadValue(kind, "HDist", number);
}

void ReadWeight(AngleWeight& weight, const char* kind, int number) {
    weight.HAngle = ReadValue(kind, "HAngle", number);
    weight.ZAngle = ReadValue(kind, "ZAngle", number);
}

template <class Weight>
void ReadPolarWeight(Weight& weight, const char* kind, int number) {
    weight.HAngle = ReadValue(kind, "HAngle", number);
    weight.ZAngle = ReadValue(kind, "ZAngle", number);
    weight.SDist = ReadValue(kind, "SDist", number);
    weight.LHAngle = ReadValue(kind, "LHAngle", number);
    weight.LZAngle = ReadValue(kind, "LZAngle", number);
    weight.LinAngle = ReadFlag(kind, "LinAngle", number);
}

void ReadWeight(TrackerWeight& weight, const char* kind, int number) {
    ReadPolarWeight(weight, kind, number);
}

void ReadWeight(TotalWeight& weight, const char* kind, int number) {
    ReadPolarWeight(weight, kind, number);
    weight.HDist = ReadValue(kind, "HDist", number);
}

void ReadWeight(HeightWeight& weight, const char* kind, int number) {
    weight.HDiff = ReadValue(kind, "HDiff", number);
}

template <class Weight>
void ReadKind(List1<Weight>& weights, const char* kind) {
    const std::int16_t count = InputTypeCount(kind);
    if (count < 1)
        return;
    weights.Resize(count);
    for (int i = 1; i <= count; ++i)
        ReadWeight(weights[i], kind, i);
}

double AngleOfLinearError(double linearError, double distance) {
    if (distance == 0)
        throw RunTimeError(DivisionByZero);
    return std::atan(linearError / distance) * 200 / Pi;
}

template <class Observation, class Weight>
void AssignPolar(Observation& observation, const Weight& weight) {
    observation.SDistError = weight.SDist;
    const bool linear = weight.LinAngle == 1;
    observation.HAngleError = linear ? AngleOfLinearError(weight.LHAngle, observation.SDist) : weight.HAngle;
    observation.ZAngleError = linear ? AngleOfLinearError(weight.LZAngle, observation.SDist) : weight.ZAngle;
}

}  // namespace

void ReadIniWeights(List1<DistanceWeight>& distanceWeights, List1<AngleWeight>& angleWeights,
                    List1<TotalWeight>& totalWeights, List1<TrackerWeight>& trackerWeights,
                    List1<HeightWeight>& heightWeights) {
    Guarded("basRead-ReadIniWeights", [&](Guard&) {
        ReadKind(distanceWeights, "Distance");
        ReadKind(angleWeights, "Angle");
        ReadKind(totalWeights, "Total");
        ReadKind(trackerWeights, "Tracker");
        ReadKind(heightWeights, "Height");
    });
}

void WeightAssignment(TrackerObs& observation, const TrackerWeight& weight) {
    AssignPolar(observation, weight);
}

void WeightAssignment(TotalObs& observation, const TotalWeight& weight) {
    AssignPolar(observation, weight);
}

void WeightAssignment(AngleObs& observation, const AngleWeight& weight) {
    observation.HAngleError = weight.HAngle;
    observation.ZAngleError = weight.ZAngle;
}

void WeightAssignment(DistanceObs& observation, const DistanceWeight& weight) {
    observation.DistError = weight.SDist;
}

void WeightAssignment(HeightObs& observation, const HeightWeight& weight) {
    observation.HDiffError = weight.HDiff;
}

void ChangeObservationWeights(ObservationModel& model, const std::function<std::string()>& showDialog) {
    Guarded("frmInput-mnuObservationWeights", [&](Guard&) {
        if (showDialog() == "0")
            return;
        ReadIniWeights(model.DistanceWeights, model.AngleWeights, model.TotalWeights, model.TrackerWeights,
                       model.HeightWeights);
        for (const InputType& type : model.Types)
            VisitObsSet(model, type, [](auto& set, const auto& weight) {
                for (auto& observation : set)
                    WeightAssignment(observation, weight);
            });
    });
}

}  // namespace Dorvane
