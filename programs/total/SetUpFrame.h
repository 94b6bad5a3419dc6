// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/total/FieldBook.h"

// One set-up on its own: its circle positions, the pairs of faces, and the instrument's errors from them.
namespace Dorvane {

/// A sight in both faces, or in one, of a target: not yet reduced to the marks. Angles in gons.
struct FaceSet {
    std::string Target;
    long Line = 0;     // of its first sight
    int Position = 0;  // circle position, from 0
    int Round = 0;     // of the set-up, from 0; that of its first sight
    bool BothFaces = false;
    int Face = 0;  // of a single face; 0 for both
    double Direction =
        0;              // in the frame of the set-up's first circle position, 0 to 400, free of collimation
    double Zenith = 0;  // free of the index error, 0 to 200
    std::optional<double> Distance;  // slope as measured, mean of the faces
    double InstrumentHeight = 0;
    double TargetHeight = 0;
};

/// An instrument error from the pairs of faces of a set-up, in gons: its mean and the standard deviation of
/// one.
struct InstrumentError {
    double Mean = 0;
    std::optional<double> Deviation;
    long Pairs = 0;
};

struct SetUpFrame {
    std::vector<FaceSet> Sets;  // in the order of their first sights
    InstrumentError Collimation;
    InstrumentError Index;
    int Positions = 1;
};

/// How far two directions to one target may differ, brought to one circle position, before they count as a
/// moved circle or a false target: 0.2 gon, three millimeters at one meter.
inline constexpr double DirectionLimit = 0.2;

/// How far the two faces may disagree with the instrument's own errors before the protocol says so, in gons
/// and in meters.
inline constexpr double FaceLimit = 0.02;
inline constexpr double FaceDistanceLimit = 0.005;

/// The difference of two directions, brought to -200 to 200 gons.
double DirectionDifference(double a, double b);

/// Works one set-up out.
///
/// The circle may be moved between rounds: when a target's direction differs from its first one by more than
/// DirectionLimit and the next sight to a known target agrees with the same turn, a new circle position
/// begins there, turned back by that difference; when nothing behind it agrees, the sight is left out with a
/// warning.
///
/// A round ends where a target is sighted in the same face again, and where the circle was moved.
///
/// Within a position a sight pairs with the nearest earlier one to the target in the other face, with the
/// same heights. With u1 the direction of face 1, u2 that of face 2 less 200, z1 and z2 the zenith angles:
///   collimation c = (u1 - u2) / 2 sin z,  index i = (z1 + z2 - 400) / 2,
///   direction = u1 - c / sin z,           zenith = z1 - i.
/// A sight left alone is corrected by the means of c and i of the set-up, and named in the warnings; a set-up
/// without any pair leaves its sights uncorrected, which is said too.
SetUpFrame WorkOutSetUp(const StationSetUp& setUp, std::vector<Remark>& warnings);

}  // namespace Dorvane
