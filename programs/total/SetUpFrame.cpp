// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/SetUpFrame.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <utility>

namespace Dorvane {

namespace {

constexpr double GonToRadian = std::numbers::pi / 200;

double Circle(double gons) {
    const double turned = std::fmod(gons, 400);
    return turned < 0 ? turned + 400 : turned;
}

/// A sight in the frame of the first circle position.
struct PlacedSight {
    const Sight* Of;
    double Direction;  // of face 1, or of face 2 less 200
    int Position;
    int Round;
};

/// Brings the sights of a set-up into one frame, whatever the circle did.
class CirclePlacer {
  public:
    CirclePlacer(const StationSetUp& setUp, std::vector<Remark>& warnings)
        : Book(setUp), Warnings(warnings) {}

    std::vector<PlacedSight> Place() {
        std::vector<PlacedSight> placed;
        for (std::size_t i = 0; i < Book.Sights.size(); ++i) {
            const Sight& sight = Book.Sights[i];
            const auto known = First.find(sight.Target);
            if (known == First.end()) {
                First[sight.Target] = Circle(FaceOne(sight) - Turn);
            } else if (!Fits(sight, Turn)) {
                const double turn = DirectionDifference(FaceOne(sight), known->second);
                if (!NextFits(i + 1, turn)) {
                    LeaveOut(sight, DirectionDifference(turn, Turn));
                    continue;
                }
                Turn = turn;
                ++Position;
                EndRound();
            }
            if (!InRound.insert({sight.Target, sight.Face()}).second) {
                EndRound();
                InRound.insert({sight.Target, sight.Face()});
            }
            placed.push_back({&sight, Circle(FaceOne(sight) - Turn), Position, Round});
        }
        return placed;
    }

    int Positions() const { return Position + 1; }

  private:
    static double FaceOne(const Sight& sight) {
        return sight.Face() == 1 ? sight.Direction : Circle(sight.Direction - 200);
    }

    bool Fits(const Sight& sight, double turn) const {
        const double off = DirectionDifference(FaceOne(sight) - turn, First.at(sight.Target));
        return std::abs(off) <= DirectionLimit;
    }

    // Whether the circle was moved: the next sight to a known target must agree with the new turn, not the
    // old.
    bool NextFits(std::size_t from, double turn) const {
        for (std::size_t i = from; i < Book.Sights.size(); ++i)
            if (First.contains(Book.Sights[i].Target))
                return Fits(Book.Sights[i], turn) && !Fits(Book.Sights[i], Turn);
        return false;
    }

    void EndRound() {
        ++Round;
        InRound.clear();
    }

    void LeaveOut(const Sight& sight, double off) {
        Warnings.push_back({Book.File, sight.Line,
                            fmt::format("the direction from {} to {} is off by {} gon, the sight is left out",
                                        Book.Station, sight.Target, Fixed(off, 4, 0))});
    }

    const StationSetUp& Book;
    std::vector<Remark>& Warnings;
    std::map<std::string, double> First;  // first direction of each target, in the frame of position 0
    double Turn = 0;                      // of the present position against the first
    int Position = 0;
    int Round = 0;
    std::set<std::pair<std::string, int>> InRound;  // targets and faces
};

/// One target's set in the making: one face, until its other one comes.
struct Candidate {
    const PlacedSight* First;
    const PlacedSight* Second = nullptr;
};

bool CanPair(const PlacedSight& a, const PlacedSight& b) {
    return a.Of->Target == b.Of->Target && a.Position == b.Position && a.Of->Face() != b.Of->Face() &&
           a.Of->InstrumentHeight == b.Of->InstrumentHeight && a.Of->TargetHeight == b.Of->TargetHeight;
}

std::vector<Candidate> PairFaces(const std::vector<PlacedSight>& sights) {
    std::vector<Candidate> sets;
    std::map<std::string, std::vector<std::size_t>>
        single;  // sets of each target that wait for their other face
    for (const PlacedSight& sight : sights) {
        std::vector<std::size_t>& waiting = single[sight.Of->Target];
        const auto partner = std::find_if(waiting.rbegin(), waiting.rend(),
                                          [&](std::size_t set) { return CanPair(*sets[set].First, sight); });
        if (partner == waiting.rend()) {
            waiting.push_back(sets.size());
            sets.push_back({&sight});
        } else {
            sets[*partner].Second = &sight;
            waiting.erase(std::next(partner).base());
        }
    }
    return sets;
}

/// A candidate with its faces in order; a null face is missing.
struct Faces {
    const PlacedSight* One = nullptr;
    const PlacedSight* Two = nullptr;

    explicit Faces(const Candidate& set) {
        for (const PlacedSight* sight : {set.First, set.Second})
            if (sight)
                (sight->Of->Face() == 1 ? One : Two) = sight;
    }
    bool Both() const { return One && Two; }
    double SinZenith() const { return std::sin(One->Of->Zenith * GonToRadian); }
    double HalfDifference() const { return DirectionDifference(One->Direction, Two->Direction) / 2; }
    double Collimation() const { return HalfDifference() * SinZenith(); }
    double Index() const { return (One->Of->Zenith + Two->Of->Zenith - 400) / 2; }
};

InstrumentError MeanError(const std::vector<double>& values) {
    InstrumentError error;
    error.Pairs = static_cast<long>(values.size());
    for (const double value : values)
        error.Mean += value / static_cast<double>(values.size());
    double squares = 0;
    for (const double value : values)
        squares += (value - error.Mean) * (value - error.Mean);
    error.Deviation = Spread(squares, error.Pairs - 1);
    return error;
}

std::optional<double> MeanDistance(const Faces& faces) {
    double sum = 0;
    int count = 0;
    for (const PlacedSight* sight : {faces.One, faces.Two}) {
        if (sight && sight->Of->Distance) {
            sum += *sight->Of->Distance;
            ++count;
        }
    }
    if (count == 0)
        return std::nullopt;
    return sum / count;
}

FaceSet BothFacesSet(const Faces& faces) {
    FaceSet set;
    set.BothFaces = true;
    set.Direction = Circle(faces.One->Direction - faces.HalfDifference());
    set.Zenith = faces.One->Of->Zenith - faces.Index();
    return set;
}

FaceSet SingleFaceSet(const PlacedSight& sight, const SetUpFrame& frame) {
    FaceSet set;
    set.Face = sight.Of->Face();
    const double sine = std::abs(std::sin(sight.Of->Zenith * GonToRadian));
    const double collimation = sine > 1e-6 ? frame.Collimation.Mean / sine : 0;
    const bool first = set.Face == 1;
    set.Direction = Circle(sight.Direction + (first ? -collimation : collimation));
    set.Zenith = first ? sight.Of->Zenith - frame.Index.Mean : 400 - sight.Of->Zenith + frame.Index.Mean;
    return set;
}

void CheckFaces(const StationSetUp& setUp, const Faces& faces, const SetUpFrame& frame,
                std::vector<Remark>& warnings) {
    const double zenithOff = faces.Index() - frame.Index.Mean;
    const double directionOff = (faces.Collimation() - frame.Collimation.Mean);
    const Sight& second = *faces.Two->Of;
    const auto warn = [&](const std::string& what) {
        warnings.push_back(
            {setUp.File, std::max(second.Line, faces.One->Of->Line),
             fmt::format("the faces from {} to {} disagree {}", setUp.Station, second.Target, what)});
    };
    if (std::abs(directionOff) > FaceLimit)
        warn("in direction by " + Fixed(2 * directionOff, 4, 0) + " gon");
    if (std::abs(zenithOff) > FaceLimit)
        warn("in zenith angle by " + Fixed(2 * zenithOff, 4, 0) + " gon");
    const std::optional<double>& one = faces.One->Of->Distance;
    if (one && second.Distance && std::abs(*one - *second.Distance) > FaceDistanceLimit)
        warn("in distance by " + Fixed((*one - *second.Distance) * 1000, 1, 0) + " mm");
}

void WarnSingle(const StationSetUp& setUp, const FaceSet& set, const SetUpFrame& frame,
                std::vector<Remark>& warnings) {
    const bool corrected = frame.Index.Pairs > 0;
    warnings.push_back({setUp.File, set.Line,
                        fmt::format("{} from {} in face {} only, {}", set.Target, setUp.Station, set.Face,
                                    corrected ? "corrected by the set-up's collimation and index error"
                                              : "uncorrected: the set-up has no pair of faces")});
}

}  // namespace

double DirectionDifference(double a, double b) {
    const double difference = Circle(a - b);
    return difference > 200 ? difference - 400 : difference;
}

SetUpFrame WorkOutSetUp(const StationSetUp& setUp, std::vector<Remark>& warnings) {
    SetUpFrame frame;
    CirclePlacer placer(setUp, warnings);
    const std::vector<PlacedSight> sights = placer.Place();
    frame.Positions = placer.Positions();
    const std::vector<Candidate> candidates = PairFaces(sights);

    std::vector<double> collimations;
    std::vector<double> indices;
    for (const Candidate& candidate : candidates) {
        if (const Faces faces(candidate); faces.Both()) {
            collimations.push_back(faces.Collimation());
            indices.push_back(faces.Index());
        }
    }
    frame.Collimation = MeanError(collimations);
    frame.Index = MeanError(indices);

    for (const Candidate& candidate : candidates) {
        const Faces faces(candidate);
        FaceSet set = faces.Both() ? BothFacesSet(faces) : SingleFaceSet(*candidate.First, frame);
        const Sight& first = *candidate.First->Of;
        set.Target = first.Target;
        set.Line = first.Line;
        set.Position = candidate.First->Position;
        set.Round = candidate.First->Round;
        set.Distance = MeanDistance(faces);
        set.InstrumentHeight = first.InstrumentHeight;
        set.TargetHeight = first.TargetHeight;
        if (faces.Both())
            CheckFaces(setUp, faces, frame, warnings);
        else
            WarnSingle(setUp, set, frame, warnings);
        frame.Sets.push_back(std::move(set));
    }
    return frame;
}

}  // namespace Dorvane
