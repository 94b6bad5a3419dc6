// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/WeakPoints.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/solve/RankCheck.h"

namespace Krenn {
namespace {

constexpr std::size_t kMostTold = 6;    // observations of a point
constexpr std::size_t kMostNamed = 20;  // points in detail
constexpr double kSmallPivot = 1e-5;    // no movement is weak while all pivots are larger
constexpr double kFarMoved = 1;         // meters from the start that make a look at the pivots worth while
constexpr int kMostWeakMovements = 12;

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

template <typename Member>
void SortOut(std::vector<Member>& members) {
    std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
}

// Rotations and values of the whole network that a null vector moves.
std::vector<std::string> OthersMovedBy(const Network& network, const Adjustment& adjustment,
                                       const Eigen::VectorXd& nullVector) {
    std::vector<std::string> words;
    const double bound = 1e-3 * nullVector.cwiseAbs().maxCoeff();
    for (int unknown = 0; unknown < adjustment.unknowns.Count(); ++unknown) {
        const UnknownOf& of = adjustment.unknowns.of[At(unknown)];
        if (IsCoordinate(of) || std::abs(nullVector(unknown)) <= bound)
            continue;
        words.push_back(UnknownInWords(network, adjustment.structure, of));
        if (of.point >= 0)
            words.back() += "; " + HeldByInWords(network, adjustment.structure, of.point);
    }
    return words;
}

Eigen::VectorXd OverAllUnknowns(const NormalMatrix& normals, const Eigen::VectorXd& rows, int count) {
    Eigen::VectorXd vector = Eigen::VectorXd::Zero(count);
    for (int row = 0; row < normals.size; ++row)
        vector(normals.unknownOf[At(row)]) = rows(row);
    return vector;
}

std::vector<std::string> HoldingsOf(const Network& network, const Structure& structure,
                                    const std::vector<int>& points) {
    std::vector<std::string> holdings;
    for (std::size_t i = 0; i < std::min(points.size(), kMostNamed); ++i)
        holdings.push_back(HeldByInWords(network, structure, points[i]));
    return holdings;
}

// The standard deviation that a coordinate of the better quarter has when all others are known.
double TypicalDeviation(const Adjustment& adjustment, const NormalMatrix& normals) {
    std::vector<double> deviations;
    for (int row = 0; row < normals.size; ++row) {
        const double diagonal = normals.value[At(normals.columnStart[At(row)])];
        if (diagonal > 0 && IsCoordinate(adjustment.unknowns.of[At(normals.unknownOf[At(row)])]))
            deviations.push_back(1 / std::sqrt(diagonal));
    }
    if (deviations.empty())
        return 0;
    const auto quarter = deviations.begin() + static_cast<std::ptrdiff_t>(deviations.size() / 4);
    std::nth_element(deviations.begin(), quarter, deviations.end());
    return *quarter;
}

double BoundOfWeakness(const Adjustment& adjustment, const NormalMatrix& normals) {
    return std::max(kWeakDeviation, kWeakRatio * TypicalDeviation(adjustment, normals));
}

// The rows of coordinates that are weak even with all others known.
std::vector<int> WeakRows(const Adjustment& adjustment, const NormalMatrix& normals, double bound) {
    std::vector<int> rows;
    for (int row = 0; row < normals.size; ++row) {
        const double diagonal = normals.value[At(normals.columnStart[At(row)])];
        if (diagonal * bound * bound < 1 &&
            IsCoordinate(adjustment.unknowns.of[At(normals.unknownOf[At(row)])]))
            rows.push_back(row);
    }
    return rows;
}

bool MayBeWeak(const Adjustment& adjustment, const NormalMatrix& normals, double leastPivot) {
    if (leastPivot < kSmallPivot ||
        !WeakRows(adjustment, normals, BoundOfWeakness(adjustment, normals)).empty())
        return true;
    for (const auto& q : adjustment.cofactors.point) {
        if (std::max({q[0], q[2], q[5]}) > kWeakDeviation * kWeakDeviation)
            return true;
    }
    for (std::size_t point = 0; point < adjustment.state.at.size() && !adjustment.hasCofactors; ++point) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (std::abs(adjustment.state.at[point][axis] - adjustment.start.at[point][axis]) > kFarMoved)
                return true;
        }
    }
    return false;
}

// Per point the longest movement that one standard deviation of a weak movement gives it, in meters; 0 where
// there is none.
std::vector<double> WeakMovements(const Adjustment& adjustment, SparseCholesky& cholesky,
                                  NormalMatrix& normals) {
    std::vector<double> longest(adjustment.state.at.size(), 0.0);
    FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    const double bound = BoundOfWeakness(adjustment, normals);
    for (const int row : WeakRows(adjustment, normals, bound)) {
        const UnknownOf& of = adjustment.unknowns.of[At(normals.unknownOf[At(row)])];
        const double deviation = 1 / std::sqrt(normals.value[At(normals.columnStart[At(row)])]);
        longest[At(of.point)] = std::max(longest[At(of.point)], deviation);
    }
    if (Factorise(cholesky, normals).least > kSmallPivot)
        return longest;
    const SmallVectors small = FindSmallVectors(cholesky, normals, kMostWeakMovements);
    for (Eigen::Index i = 0; i < small.quotient.size(); ++i) {
        const double root = std::sqrt(std::max(small.quotient(i), 1e-16));
        const Eigen::VectorXd deviation =
            OverAllUnknowns(normals, small.column.col(i) / root, adjustment.unknowns.Count());
        if (deviation.cwiseAbs().maxCoeff() < bound)
            continue;
        const Eigen::VectorXd moved = WithoutMovement(deviation, adjustment.datum, adjustment.unknowns);
        for (std::size_t point = 0; point < longest.size(); ++point) {
            double square = 0;
            for (const int unknown : adjustment.unknowns.number[point])
                square += unknown >= 0 ? moved(unknown) * moved(unknown) : 0.0;
            if (std::sqrt(square) > bound)
                longest[point] = std::max(longest[point], std::sqrt(square));
        }
    }
    return longest;
}

// Per point, whether no observation of it is checked by others: by the redundancy numbers, or without them by
// as many observations as coordinates.
std::vector<char> FindUnchecked(const Adjustment& adjustment) {
    const auto& measures = adjustment.structure.measures;
    std::vector<char> isUnchecked(adjustment.state.at.size(), 1);
    std::vector<int> count(adjustment.state.at.size(), 0);
    for (std::size_t m = 0; m < measures.size(); ++m) {
        const Measure& measure = measures[m];
        for (const int point : {measure.from, measure.to}) {
            ++count[At(point)];
            if (adjustment.hasCofactors &&
                1 - adjustment.cofactors.measure[m] / (measure.sigma * measure.sigma) > kNotChecked)
                isUnchecked[At(point)] = 0;
        }
    }
    for (std::size_t point = 0; point < count.size() && !adjustment.hasCofactors; ++point) {
        const auto& number = adjustment.unknowns.number[point];
        if (count[point] > std::count_if(number.begin(), number.end(), [](int n) { return n >= 0; }))
            isUnchecked[point] = 0;
    }
    return isUnchecked;
}

// Per point, how far it is from its given coordinates once the network as a whole is laid upon them.
std::vector<double> DistancesFromGiven(const Network& network, const Adjustment& adjustment) {
    std::vector<double> distances(network.points.size(), 0.0);
    Eigen::VectorXd offset = Eigen::VectorXd::Zero(adjustment.unknowns.Count());
    for (std::size_t point = 0; point < distances.size(); ++point) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (const int number = adjustment.unknowns.number[point][axis];
                number >= 0 && network.points[point].hasGiven)
                offset(number) = adjustment.state.at[point][axis] + adjustment.state.origin[axis] -
                                 network.points[point].given[axis];
        }
    }
    if (offset.size() == 0 || offset.cwiseAbs().maxCoeff() < kFarFromGiven / 2)
        return distances;
    const Eigen::VectorXd rest = WithoutMovement(offset, adjustment.datum, adjustment.unknowns);
    for (std::size_t point = 0; point < distances.size(); ++point) {
        for (const int number : adjustment.unknowns.number[point]) {
            if (number >= 0 && network.points[point].hasGiven)
                distances[point] = std::hypot(distances[point], rest(number));
        }
    }
    return distances;
}

}  // namespace

std::string HeldByInWords(const Network& network, const Structure& structure, int point) {
    constexpr std::array kNames{"direction", "zenith angle", "slope distance", "horizontal distance",
                                "height difference"};
    std::string words = network.points[At(point)].name + ":";
    std::size_t told = 0;
    for (const Measure& measure : structure.measures) {
        if (measure.from != point && measure.to != point)
            continue;
        if (++told > kMostTold)
            continue;
        const bool isFrom = measure.from == point;
        words += fmt::format("{} {} {} {} (line {})", told > 1 ? "," : "",
                             kNames[static_cast<std::size_t>(measure.kind)], isFrom ? "to" : "from",
                             network.points[At(isFrom ? measure.to : measure.from)].name,
                             network.observations[At(measure.observation)].line);
    }
    if (told > kMostTold)
        words += fmt::format(", and {} more", told - kMostTold);
    return told > 0 ? words : words + " no observation";
}

double CheckRank(const Network& network, const Adjustment& adjustment, SparseCholesky& cholesky,
                 const NormalMatrix& normals) {
    const Pivot pivot = Factorise(cholesky, normals);
    if (pivot.least > kDoubtfulPivot)
        return pivot.least;
    const Eigen::MatrixXd vectors = NullVectors(cholesky, normals);
    std::vector<int> points;
    std::vector<std::string> others;
    for (Eigen::Index i = 0; i < vectors.cols(); ++i) {
        const Eigen::VectorXd nullVector =
            OverAllUnknowns(normals, vectors.col(i), adjustment.unknowns.Count());
        const std::vector<int> moved = PointsMovedBy(nullVector, adjustment.datum, adjustment.unknowns);
        points.insert(points.end(), moved.begin(), moved.end());
        if (moved.empty()) {
            const auto words = OthersMovedBy(network, adjustment, nullVector);
            others.insert(others.end(), words.begin(), words.end());
        }
    }
    SortOut(points);
    SortOut(others);
    if (!points.empty()) {
        std::vector<std::string> details{NameList(network, points, 1000), "They are held by these alone:"};
        for (std::string& holding : HoldingsOf(network, adjustment.structure, points))
            details.push_back(std::move(holding));
        throw Failure(ErrorNumber::UndeterminedPoints,
                      "The observations leave points free to move; the normal equations are singular.",
                      details);
    }
    if (!others.empty())
        throw Failure(ErrorNumber::Singular, "The observations do not determine these unknowns:", others);
    if (pivot.least > 1e-14) {
        // The search for null vectors has left another factor.
        return Factorise(cholesky, normals).least;
    }
    const UnknownOf& of = adjustment.unknowns.of[At(normals.unknownOf[At(pivot.row)])];
    std::vector<std::string> details{"unknown: " + UnknownInWords(network, adjustment.structure, of)};
    if (of.point >= 0)
        details.push_back(HeldByInWords(network, adjustment.structure, of.point));
    throw Failure(ErrorNumber::Singular, "The normal equations cannot be solved.", details);
}

void NoteWeakPoints(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                    NormalMatrix& normals, double leastPivot) {
    std::vector<double> weak(network.points.size(), 0.0);
    if (adjustment.type == Type::L1Norm)
        FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    if (MayBeWeak(adjustment, normals, leastPivot))
        weak = WeakMovements(adjustment, cholesky, normals);
    const std::vector<double> far = DistancesFromGiven(network, adjustment);
    const auto isSomething = [](double length) { return length > 0; };
    if (std::none_of(weak.begin(), weak.end(), isSomething) &&
        std::none_of(far.begin(), far.end(), isSomething))
        return;
    const std::vector<char> isUnchecked = FindUnchecked(adjustment);
    std::size_t named = 0;
    std::vector<int> others;
    for (std::size_t point = 0; point < weak.size(); ++point) {
        const bool isFar = far[point] > kFarFromGiven && isUnchecked[point];
        if (weak[point] == 0 && !isFar)
            continue;
        adjustment.weakPoints.push_back(static_cast<int>(point));
        if (++named > kMostNamed) {
            others.push_back(static_cast<int>(point));
            continue;
        }
        std::string note = network.points[point].name;
        if (weak[point] > 0)
            note +=
                fmt::format(" is ill-determined: a standard deviation a priori of {:.3g} m.", weak[point]);
        if (isFar)
            note += fmt::format(
                "{} is {:.1f} m from its given coordinates, and nothing checks its "
                "observations.",
                weak[point] > 0 ? " It" : "", far[point]);
        adjustment.notes.push_back(note + " It is held by " +
                                   HeldByInWords(network, adjustment.structure, static_cast<int>(point))
                                       .substr(network.points[point].name.size() + 2) +
                                   ".");
    }
    if (!others.empty())
        adjustment.notes.push_back("Held as badly: " + NameList(network, others));
}

}  // namespace Krenn
