// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/datum/Movements.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr double kNullRatio = 1e-9;  // a singular value below this is zero; no cancellation would give 1
constexpr Eigen::Index kBatch = 256;

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

// Read row by row, so kept row by row.
using Moves = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

const char* NameOf(Movement movement) {
    switch (movement) {
        case Movement::ShiftX: return "shift in X";
        case Movement::ShiftY: return "shift in Y";
        case Movement::Turn: return "rotation about Z";
        case Movement::PlanScale: return "scale in plan";
        case Movement::ShiftZ: return "shift in Z";
        case Movement::HeightScale: return "scale in height";
        case Movement::TiltX: return "rotation about X";
        default: return "rotation about Y";
    }
}

const char* NameOf(const MovementCandidate& candidate) {
    switch (candidate.globalAxis) {
        case kScaleAxis: return "scale of the distance meter";
        case kZeroPointAxis: return "zero point of the distance meter";
        case kRefractionAxis: return "refraction";
        default: return NameOf(candidate.movement);
    }
}

int GroupOf(const PointRole& role, Movement movement) {
    switch (movement) {
        case Movement::ShiftX:
        case Movement::ShiftY:
        case Movement::Turn:
        case Movement::PlanScale: return role.planGroup;
        case Movement::ShiftZ:
        case Movement::HeightScale: return role.heightGroup;
        default: return role.part;
    }
}

const GroupFrame& FrameOf(const GroupFrames& frames, const MovementCandidate& candidate) {
    switch (candidate.movement) {
        case Movement::ShiftZ:
        case Movement::HeightScale: return frames.height[At(candidate.group)];
        case Movement::TiltX:
        case Movement::TiltY: return frames.part[At(candidate.group)];
        default: return frames.plan[At(candidate.group)];
    }
}

// The size is taken over the axes from the first to the last.
void FitGroups(const Structure& structure, const State& state, Movement member, std::size_t firstAxis,
               std::size_t lastAxis, std::vector<GroupFrame>& groups) {
    std::vector<double> count(groups.size(), 0);
    std::vector<double> square(groups.size(), 0);
    for (const bool isSecond : {false, true}) {
        for (std::size_t i = 0; i < structure.roles.size(); ++i) {
            const int number = GroupOf(structure.roles[i], member);
            if (number < 0)
                continue;
            GroupFrame& group = groups[At(number)];
            if (!isSecond) {
                count[At(number)] += 1;
                for (std::size_t axis = 0; axis < 3; ++axis)
                    group.centre[axis] += (state.at[i][axis] - group.centre[axis]) / count[At(number)];
                continue;
            }
            for (std::size_t axis = firstAxis; axis <= lastAxis; ++axis)
                square[At(number)] += std::pow(state.at[i][axis] - group.centre[axis], 2);
        }
    }
    for (std::size_t group = 0; group < groups.size(); ++group)
        groups[group].size = std::max(std::sqrt(square[group] / std::max(count[group], 1.0)), 1e-6);
}

// How much a candidate moves a point, or a set-up that stands on it.
double MoveOf(const MovementCandidate& candidate, const Structure& structure, const GroupFrames& frames,
              const State& state, int point, int axis) {
    if (candidate.globalAxis >= 0 ||
        GroupOf(structure.roles[At(point)], candidate.movement) != candidate.group)
        return 0;
    const GroupFrame& frame = FrameOf(frames, candidate);
    const auto from = [&](int along) {
        return (state.at[At(point)][At(along)] - frame.centre[At(along)]) / frame.size;
    };
    const auto rotation = [&](int about) { return axis == kRotationAxis + about ? 1 / frame.size : 0.0; };
    switch (candidate.movement) {
        case Movement::ShiftX: return axis == 0 ? 1 : 0;
        case Movement::ShiftY: return axis == 1 ? 1 : 0;
        case Movement::ShiftZ: return axis == 2 ? 1 : 0;
        case Movement::PlanScale: return axis <= 1 ? from(axis) : 0;
        case Movement::HeightScale: return axis == 2 ? from(2) : 0;
        case Movement::Turn: return axis == 0 ? from(1) : axis == 1 ? -from(0) : rotation(2);
        case Movement::TiltX: return axis == 1 ? -from(2) : axis == 2 ? from(1) : rotation(0);
        case Movement::TiltY: return axis == 0 ? from(2) : axis == 2 ? -from(0) : rotation(1);
        default: return 0;
    }
}

void SortOut(std::vector<int>& numbers) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

std::vector<MovementCandidate> CandidatesOf(const Structure& structure, const NetworkPart& part,
                                            const Unknowns& unknowns) {
    std::vector<int> plan;
    std::vector<int> height;
    std::vector<int> tilted;
    std::vector<MovementCandidate> globals;
    for (const int unknown : part.unknowns) {
        const UnknownOf& of = unknowns.of[At(unknown)];
        if (of.point < 0) {
            globals.push_back({Movement::Global, unknown, of.axis});
            continue;
        }
        const PointRole& role = structure.roles[At(of.point)];
        if (of.axis <= 1)
            plan.push_back(role.planGroup);
        else if (of.axis == 2)
            height.push_back(role.heightGroup);
        else if (of.axis == kRotationAxis)
            tilted.push_back(role.part);
    }
    for (std::vector<int>* groups : {&plan, &height, &tilted})
        SortOut(*groups);
    std::vector<MovementCandidate> candidates;
    for (const int group : plan) {
        for (const Movement movement :
             {Movement::ShiftX, Movement::ShiftY, Movement::Turn, Movement::PlanScale})
            candidates.push_back({movement, group});
    }
    for (const int group : height) {
        for (const Movement movement : {Movement::ShiftZ, Movement::HeightScale})
            candidates.push_back({movement, group});
    }
    for (const int group : tilted) {
        for (const Movement movement : {Movement::TiltX, Movement::TiltY})
            candidates.push_back({movement, group});
    }
    candidates.insert(candidates.end(), globals.begin(), globals.end());
    return candidates;
}

Moves MovesOf(const std::vector<MovementCandidate>& candidates, const Structure& structure,
              const GroupFrames& frames, const NetworkPart& part, const Unknowns& unknowns,
              const State& state) {
    Moves moves(static_cast<Eigen::Index>(part.unknowns.size()),
                static_cast<Eigen::Index>(candidates.size()));
    for (Eigen::Index row = 0; row < moves.rows(); ++row) {
        const int unknown = part.unknowns[At(row)];
        const UnknownOf& of = unknowns.of[At(unknown)];
        for (Eigen::Index column = 0; column < moves.cols(); ++column) {
            const MovementCandidate& candidate = candidates[At(column)];
            moves(row, column) = of.point < 0
                                     ? (candidate.globalAxis >= 0 && candidate.group == unknown ? 1.0 : 0.0)
                                     : MoveOf(candidate, structure, frames, state, of.point, of.axis);
        }
    }
    return moves;
}

// A candidate that moves no unknown, like the turn of a single point, is no movement.
void DropMotionless(std::vector<MovementCandidate>& candidates, Moves& moves) {
    Eigen::Index kept = 0;
    for (Eigen::Index column = 0; column < moves.cols(); ++column) {
        if (moves.col(column).cwiseAbs().maxCoeff() < 1e-9)
            continue;
        candidates[At(kept)] = candidates[At(column)];
        moves.col(kept) = moves.col(column);
        ++kept;
    }
    candidates.resize(At(kept));
    moves.conservativeResize(Eigen::NoChange, kept);
}

// The triangular factor of a tall matrix that is fed row by row.
struct RowReducer {
    explicit RowReducer(Eigen::Index columns)
        : rows(Eigen::MatrixXd::Zero(columns + kBatch, columns)), filled(columns) {}

    void Add(const Eigen::RowVectorXd& row) {
        rows.row(filled++) = row;
        if (filled == rows.rows())
            Reduce();
    }

    void Reduce() {
        const Eigen::Index columns = rows.cols();
        const Eigen::HouseholderQR<Eigen::MatrixXd> qr(rows);
        const Eigen::MatrixXd triangle = qr.matrixQR().topRows(columns).triangularView<Eigen::Upper>();
        rows.setZero();
        rows.topRows(columns) = triangle;
        filled = columns;
    }

    Eigen::MatrixXd rows;
    Eigen::Index filled;
};

// Coefficients of the combinations of candidates that nothing feels, one column each: right singular vectors
// of J times the candidates, and of the moves of fixed coordinates, which must be zero as well.
Eigen::MatrixXd UnfeltCombinations(const std::vector<MovementCandidate>& candidates,
                                   const Structure& structure, const GroupFrames& frames,
                                   const NetworkPart& part, const Unknowns& unknowns, const State& state,
                                   const std::vector<int>& rowOf, const Moves& moves) {
    const auto columns = static_cast<Eigen::Index>(candidates.size());
    RowReducer reducer(columns);
    Eigen::RowVectorXd size = Eigen::RowVectorXd::Zero(columns);
    Eigen::RowVectorXd row(columns);
    Eigen::RowVectorXd bound(columns);
    for (const int number : part.measures) {
        const Measure& measure = structure.measures[At(number)];
        const Partials partials = ComputePartials(measure, state);
        const auto numbers = UnknownsOf(measure, unknowns);
        row.setZero();
        bound.setZero();
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (numbers[i] < 0)
                continue;
            const double by = partials.by[i] / measure.sigma;
            row += by * moves.row(rowOf[At(numbers[i])]);
            bound += std::abs(by) * moves.row(rowOf[At(numbers[i])]).cwiseAbs();
        }
        reducer.Add(row);
        size += bound.cwiseAbs2();
    }
    const double weight = std::sqrt(std::max(size.maxCoeff(), 1.0));
    for (const int point : part.fixedPoints) {
        for (int axis = 0; axis < 3; ++axis) {
            for (Eigen::Index column = 0; column < columns; ++column)
                row(column) = weight * MoveOf(candidates[At(column)], structure, frames, state, point, axis);
            reducer.Add(row);
            size += row.cwiseAbs2();
        }
    }
    reducer.Reduce();
    const Eigen::RowVectorXd scale =
        size.unaryExpr([](double square) { return square > 0 ? 1 / std::sqrt(square) : 1.0; });
    const Eigen::MatrixXd scaled = reducer.rows.topRows(columns) * scale.asDiagonal();
    const Eigen::JacobiSVD<Eigen::MatrixXd> svd(scaled, Eigen::ComputeFullV);
    const Eigen::VectorXd& values = svd.singularValues();
    const Eigen::Index unfelt =
        std::count_if(values.begin(), values.end(), [](double value) { return value < kNullRatio; });
    Eigen::MatrixXd combinations = scale.transpose().asDiagonal() * svd.matrixV().rightCols(unfelt);
    combinations.colwise().normalize();
    return combinations;
}

// Columns made independent of one another; a combination that moves nothing drops out.
Eigen::MatrixXd IndependentColumns(const Eigen::MatrixXd& columns) {
    if (columns.cols() == 0)
        return columns;
    const double rootOfRows = std::sqrt(static_cast<double>(columns.rows()));
    Eigen::MatrixXd unit(columns.rows(), columns.cols());
    Eigen::Index moving = 0;
    for (Eigen::Index i = 0; i < columns.cols(); ++i) {
        const double norm = columns.col(i).norm();
        if (norm > 1e-7 * rootOfRows)
            unit.col(moving++) = columns.col(i) / norm;
    }
    unit.conservativeResize(Eigen::NoChange, moving);
    if (moving == 0)
        return unit;
    Eigen::ColPivHouseholderQR<Eigen::MatrixXd> qr(unit);
    qr.setThreshold(1e-7);
    const Eigen::MatrixXd basis = qr.householderQ() * Eigen::MatrixXd::Identity(unit.rows(), qr.rank());
    return basis * rootOfRows;
}

std::vector<std::string> MovementsInWords(const std::vector<MovementCandidate>& candidates,
                                          const Eigen::MatrixXd& combinations) {
    std::vector<std::string> words;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const auto row = static_cast<Eigen::Index>(i);
        if (combinations.row(row).norm() < 1e-6 * combinations.norm())
            continue;
        const std::string name = NameOf(candidates[i]);
        if (std::find(words.begin(), words.end(), name) == words.end())
            words.push_back(name);
    }
    const auto plan = std::find(words.begin(), words.end(), "scale in plan");
    const auto height = std::find(words.begin(), words.end(), "scale in height");
    if (plan != words.end() && height != words.end()) {
        *plan = "scale";
        words.erase(height);
    }
    return words;
}

}  // namespace

GroupFrames FitFrames(const Structure& structure, const State& state) {
    GroupFrames frames;
    frames.plan.resize(At(structure.planGroups));
    frames.height.resize(At(structure.heightGroups));
    frames.part.resize(At(structure.parts));
    FitGroups(structure, state, Movement::Turn, 0, 1, frames.plan);
    FitGroups(structure, state, Movement::ShiftZ, 2, 2, frames.height);
    FitGroups(structure, state, Movement::TiltX, 0, 2, frames.part);
    return frames;
}

FreeMovements FindFreeMovements(const NetworkPart& part, const Structure& structure, const Unknowns& unknowns,
                                const State& state, const GroupFrames& frames,
                                const std::vector<int>& rowOf) {
    FreeMovements free;
    free.candidates = CandidatesOf(structure, part, unknowns);
    Moves moves = MovesOf(free.candidates, structure, frames, part, unknowns, state);
    DropMotionless(free.candidates, moves);
    if (free.candidates.empty()) {
        free.movement.resize(moves.rows(), 0);
        return free;
    }
    free.combinations =
        UnfeltCombinations(free.candidates, structure, frames, part, unknowns, state, rowOf, moves);
    free.movement = IndependentColumns(moves * free.combinations);
    if (free.movement.cols() > 0)
        free.words = MovementsInWords(free.candidates, free.combinations);
    return free;
}

Eigen::MatrixXd MovementsAt(const std::vector<MovementCandidate>& candidates,
                            const Eigen::MatrixXd& combinations, const NetworkPart& part,
                            const Structure& structure, const Unknowns& unknowns, const State& state,
                            const GroupFrames& frames) {
    return IndependentColumns(MovesOf(candidates, structure, frames, part, unknowns, state) * combinations);
}

double MostFelt(const Eigen::MatrixXd& movement, const NetworkPart& part, const Structure& structure,
                const Unknowns& unknowns, const State& state, const std::vector<int>& rowOf) {
    const Moves moves = movement;
    Eigen::RowVectorXd sum = Eigen::RowVectorXd::Zero(moves.cols());
    Eigen::RowVectorXd bound = sum;
    Eigen::RowVectorXd row = sum;
    Eigen::RowVectorXd uncancelled = sum;
    for (const int number : part.measures) {
        const Measure& measure = structure.measures[At(number)];
        const Partials partials = ComputePartials(measure, state);
        const auto numbers = UnknownsOf(measure, unknowns);
        row.setZero();
        uncancelled.setZero();
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (numbers[i] < 0)
                continue;
            const double by = partials.by[i] / measure.sigma;
            row += by * moves.row(rowOf[At(numbers[i])]);
            uncancelled += std::abs(by) * moves.row(rowOf[At(numbers[i])]).cwiseAbs();
        }
        sum += row.cwiseAbs2();
        bound += uncancelled.cwiseAbs2();
    }
    double most = 0;
    for (Eigen::Index i = 0; i < sum.size(); ++i)
        most = std::max(most, bound(i) > 0 ? std::sqrt(sum(i) / bound(i)) : 0.0);
    return most;
}

}  // namespace Krenn
