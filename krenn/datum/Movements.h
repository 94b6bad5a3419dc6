// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <string>
#include <vector>

#include "krenn/model/Model.h"

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

// What a part may do without an observation feeling it, alone or with others: the shifts, the turn about Z
// and the scale in plan of a plan group, the shift and the scale of a height group, the rotations about X and
// Y of a part with instruments that are not levelled, and an unknown of the whole network.
enum class Movement { ShiftX, ShiftY, Turn, PlanScale, ShiftZ, HeightScale, TiltX, TiltY, Global };

struct MovementCandidate {
    Movement movement;
    int group;  // plan or height group, or part, or the unknown of the whole network
    int globalAxis = -1;
};

// The movements of a part that no observation feels and that move no fixed coordinate.
struct FreeMovements {
    Eigen::MatrixXd movement;        // one column each, rows in the order of NetworkPart::unknowns
    std::vector<std::string> words;  // what they are made of: "shift in X", "rotation about Z", "scale" ...
    std::vector<MovementCandidate> candidates;
    Eigen::MatrixXd combinations;  // of the candidates, one column per movement
};

// With the candidates as columns of B, the combinations c with J B c = 0 are the right singular vectors of J
// B that belong to zero singular values. J B is scaled so that without any cancellation its columns would
// have length 1; what is left below 1e-9 is rounding. `rowOf` is, per unknown, its row in the part.
FreeMovements FindFreeMovements(const NetworkPart& part, const Structure& structure, const Unknowns& unknowns,
                                const State& state, const GroupFrames& frames, const std::vector<int>& rowOf);

// The same movements at another state: the same combinations of the same candidates in the same frames.
Eigen::MatrixXd MovementsAt(const std::vector<MovementCandidate>& candidates,
                            const Eigen::MatrixXd& combinations, const NetworkPart& part,
                            const Structure& structure, const Unknowns& unknowns, const State& state,
                            const GroupFrames& frames);

// How much of the movements the observations feel: the largest |J g| over what it would be without any
// cancellation.
double MostFelt(const Eigen::MatrixXd& movement, const NetworkPart& part, const Structure& structure,
                const Unknowns& unknowns, const State& state, const std::vector<int>& rowOf);

}  // namespace Krenn
