// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/Weights.h"

#include <cmath>
#include <functional>
#include <limits>
#include <optional>

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "input/InputTypes.h"

namespace Dorvane {

namespace {

// The constant that the system has always used, so that weights come out the same to the last digit.
constexpr double Pi = 3.141592654;

// The value of a weight that the profile does not hold. No observation may take it.
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

// Reads numbers of the profile. A text that is none gives NoNumber, and its error waits until all are read,
// so that it keeps none of the other weights from being read.
class NumberReader {
  public:
    /// The number of an entry from now on.
    void Enter(const char* kind, int number) {
        Kind = kind;
        Ending = std::to_string(number);
    }

    double Value(const std::string& key) { return Read(key, StrictNumber); }

    /// A whole number of 16 bits.
    double Flag(const std::string& key) {
        return Read(key, [](std::string_view text) {
            StrictNumber(text);
            return static_cast<double>(LeadingInteger(text));
        });
    }

    void RaiseTheFirst() const {
        if (First)
            throw RunTimeError(*First);
    }

  private:
    double Read(const std::string& key, const std::function<double(std::string_view)>& convert) {
        const std::optional<std::string> text = IniFindString(InputProfile, Kind, key + Ending);
        try {
            return text ? convert(*text) : 0;
        } catch (const RunTimeError& error) {
            if (!First)
                First = RunTimeError(error.Number, "[" + Kind + "] " + key + Ending + "=" + *text);
            return NoNumber;
        }
    }

    std::string Kind;
    std::string Ending;
    std::optional<RunTimeError> First;
};

void ReadWeight(DistanceWeight& weight, NumberReader& reader) {
    weight.SDist = reader.Value("SDist");
    weight.HDist = reader.Value("HDist");
}

void ReadWeight(AngleWeight& weight, NumberReader& reader) {
    weight.HAngle = reader.Value("HAngle");
    weight.ZAngle = reader.Value("ZAngle");
}

// A flag that is no number leaves the angles without a weight: nobody knows which of the two is meant.
template <class Weight>
void ReadLinAngle(Weight& weight, NumberReader& reader) {
    const double flag = reader.Flag("LinAngle");
    weight.LinAngle = flag == 1 ? 1 : 0;
    if (std::isnan(flag))
        weight.HAngle = weight.ZAngle = NoNumber;
}

template <class Weight>
void ReadPolarWeight(Weight& weight, NumberReader& reader) {
    weight.HAngle = reader.Value("HAngle");
    weight.ZAngle = reader.Value("ZAngle");
    weight.SDist = reader.Value("SDist");
    weight.LHAngle = reader.Value("LHAngle");
    weight.LZAngle = reader.Value("LZAngle");
    ReadLinAngle(weight, reader);
}

void ReadWeight(TrackerWeight& weight, NumberReader& reader) {
    ReadPolarWeight(weight, reader);
}

void ReadWeight(TotalWeight& weight, NumberReader& reader) {
    ReadPolarWeight(weight, reader);
    weight.HDist = reader.Value("HDist");
}

void ReadWeight(HeightWeight& weight, NumberReader& reader) {
    weight.HDiff = reader.Value("HDiff");
}

template <class Weight>
void ReadKind(List1<Weight>& weights, const char* kind, NumberReader& reader) {
    const std::int16_t count = InputTypeCount(kind);
    if (count < 1)
        return;
    weights.Resize(count);
    for (int i = 1; i <= count; ++i) {
        reader.Enter(kind, i);
        ReadWeight(weights[i], reader);
    }
}

double Usable(double weight) {
    if (std::isnan(weight))
        throw RunTimeError(TypeMismatch, "the weight in the profile is no number");
    return weight;
}

double AngleOfLinearError(double linearError, double distance) {
    if (distance == 0)
        throw RunTimeError(DivisionByZero);
    return std::atan(linearError / distance) * 200 / Pi;
}

template <class Observation, class Weight>
void AssignPolar(Observation& observation, const Weight& weight) {
    observation.SDistError = Usable(weight.SDist);
    const bool linear = weight.LinAngle == 1;
    const double h = Usable(linear ? weight.LHAngle : weight.HAngle);
    const double z = Usable(linear ? weight.LZAngle : weight.ZAngle);
    observation.HAngleError = linear ? AngleOfLinearError(h, observation.SDist) : h;
    observation.ZAngleError = linear ? AngleOfLinearError(z, observation.SDist) : z;
}

}  // namespace

void ReadIniWeights(List1<DistanceWeight>& distanceWeights, List1<AngleWeight>& angleWeights,
                    List1<TotalWeight>& totalWeights, List1<TrackerWeight>& trackerWeights,
                    List1<HeightWeight>& heightWeights) {
    Guarded("basRead-ReadIniWeights", [&](Guard&) {
        NumberReader reader;
        ReadKind(distanceWeights, "Distance", reader);
        ReadKind(angleWeights, "Angle", reader);
        ReadKind(totalWeights, "Total", reader);
        ReadKind(trackerWeights, "Tracker", reader);
        ReadKind(heightWeights, "Height", reader);
        reader.RaiseTheFirst();
    });
}

void WeightAssignment(TrackerObs& observation, const TrackerWeight& weight) {
    AssignPolar(observation, weight);
}

void WeightAssignment(TotalObs& observation, const TotalWeight& weight) {
    AssignPolar(observation, weight);
}

void WeightAssignment(AngleObs& observation, const AngleWeight& weight) {
    observation.HAngleError = Usable(weight.HAngle);
    observation.ZAngleError = Usable(weight.ZAngle);
}

void WeightAssignment(DistanceObs& observation, const DistanceWeight& weight) {
    observation.DistError = Usable(weight.SDist);
}

void WeightAssignment(HeightObs& observation, const HeightWeight& weight) {
    observation.HDiffError = Usable(weight.HDiff);
}

void ChangeObservationWeights(ObservationModel& model, const std::function<std::string()>& showDialog) {
    Guarded("frmInput-mnuObservationWeights", [&](Guard&) {
        if (showDialog() == "0")
            return;
        ReadIniWeights(model.DistanceWeights, model.AngleWeights, model.TotalWeights, model.TrackerWeights,
                       model.HeightWeights);
        for (const InputType& type : model.Types)
            VisitWeightedSet(model, type, [](auto& set, const auto& weight) {
                for (auto& observation : set)
                    WeightAssignment(observation, weight);
            });
    });
}

}  // namespace Dorvane
