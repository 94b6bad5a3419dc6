// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <string>
#include <vector>

#include "krenn/Model.h"

namespace Krenn {

// One part of the network that hangs together, by numbers.
struct NetworkPart {
    std::vector<int> unknowns;
    std::vector<int> measures;     // numbers of Structure::measures
    std::vector<int> fixedPoints;  // numbers of points
};

// Centre and size of every plan and height group, and of every part, so that each candidate movement moves
// points by about a meter.
struct GroupFrame {
    std::array<double, 3> centre{};
    double size = 1;
};

struct GroupFrames {
    std::vector<GroupFrame> plan;
    std::vector<GroupFrame> height;
    std::vector<GroupFrame> part;
};

GroupFrames FitFrames(const Structure& structure, const State& state);

// The movements of a part that no observation feels and that move no fixed coordinate.
struct FreeMovements {
    Eigen::MatrixXd movement;        // one column each, rows in the order of NetworkPart::unknowns
    std::vector<std::string> words;  // what they are made of: "shift in X", "rotation about Z", "scale" ...
};

// Candidates are, per group that hangs together in plan, the shifts in X and Y, the turn about Z and the
// scale in plan, per group that hangs together in height the shift and the scale in Z, per part with
// instruments that are not levelled the rotations about X and Y, and each unknown of the whole network. With
// the candidates as columns of B, the combinations c with J B c = 0 are the right singular vectors of J B
// that belong to zero singular values. J B is scaled so that without any cancellation its columns would have
// length 1; what is left below 1e-9 is rounding. `rowOf` is, per unknown, its row in the part; `wanted` the
// number of movements known from an earlier state, or -1 to find it.
FreeMovements FindFreeMovements(const NetworkPart& part, const Structure& structure, const Unknowns& unknowns,
                                const State& state, const GroupFrames& frames, const std::vector<int>& rowOf,
                                int wanted);

}  // namespace Krenn
