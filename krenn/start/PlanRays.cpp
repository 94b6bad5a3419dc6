// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanRays.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace Krenn {
namespace {

constexpr int kMostPoints = 120;          // the system is solved dense
constexpr double kUnfelt = 1e-4;          // a singular value below this part of the largest is a solution
constexpr double kProportional = 0.9999;  // cosine of the lengths of two rays over all solutions
constexpr double kFrameSize = 100;        // meters, of a frame without scale

std::size_t At(Eigen::Index index) {
    return static_cast<std::size_t>(index);
}

struct Ray {
    int from, to;
    double azimuth;
};

// Groups of set-ups turned against the first of each by sights both ways.
struct Turns {
    std::vector<int> group;  // per set-up, -1 before it is reached
    std::vector<double> zero;
    int groups = 0;
};

void Spread(const PlanSights& sights, int first, Turns& turns) {
    std::vector<int> waiting{first};
    turns.group[At(first)] = turns.groups;
    while (!waiting.empty()) {
        const int setup = waiting.back();
        waiting.pop_back();
        const int station = sights.station[At(setup)];
        for (const PlanSights::Sight& sight : sights.out[At(setup)]) {
            for (const PlanSights::Sight& back : sights.in[At(station)]) {
                if (back.other != sight.other || turns.group[At(back.setup)] >= 0)
                    continue;
                turns.group[At(back.setup)] = turns.groups;
                turns.zero[At(back.setup)] =
                    turns.zero[At(setup)] + sight.reading + std::numbers::pi - back.reading;
                waiting.push_back(back.setup);
            }
        }
    }
    ++turns.groups;
}

Turns TurnsOf(const PlanSights& sights) {
    Turns turns{std::vector<int>(At(sights.Setups()), -1), std::vector<double>(At(sights.Setups()), 0.0)};
    for (int setup = 0; setup < sights.Setups(); ++setup) {
        if (turns.group[At(setup)] < 0)
            Spread(sights, setup, turns);
    }
    return turns;
}

std::vector<Ray> RaysOf(const PlanSights& sights, const Turns& turns, const std::vector<int>& setups) {
    std::vector<Ray> rays;
    for (const int setup : setups) {
        for (const PlanSights::Sight& sight : sights.out[At(setup)])
            rays.push_back({sights.station[At(setup)], sight.other, turns.zero[At(setup)] + sight.reading});
    }
    return rays;
}

// The lengths of all rays (rows) in the solutions (columns), shifts aside. Empty when there are too many
// points.
struct RaySolutions {
    std::vector<int> column;  // per point: of its x; -1 without a ray
    Eigen::MatrixXd places;   // rows x, y of each point in turn
    Eigen::MatrixXd lengths;
};

RaySolutions SolveRays(const std::vector<Ray>& rays, int points) {
    RaySolutions solved{std::vector<int>(At(points), -1), {}, {}};
    int size = 0;
    for (const Ray& ray : rays) {
        for (const int point : {ray.from, ray.to}) {
            if (solved.column[At(point)] < 0)
                solved.column[At(point)] = 2 * size++;
        }
    }
    if (size < 3 || size > kMostPoints)
        return {};
    // The last two rows hold the mean at zero: shifts are no solutions then.
    const auto rows = static_cast<Eigen::Index>(rays.size());
    Eigen::MatrixXd system = Eigen::MatrixXd::Zero(rows + 2, 2 * size);
    for (Eigen::Index row = 0; row < rows; ++row) {
        const Ray& ray = rays[At(row)];
        const int from = solved.column[At(ray.from)];
        const int to = solved.column[At(ray.to)];
        system(row, to) += std::cos(ray.azimuth);
        system(row, from) -= std::cos(ray.azimuth);
        system(row, to + 1) -= std::sin(ray.azimuth);
        system(row, from + 1) += std::sin(ray.azimuth);
    }
    for (Eigen::Index point = 0; point < size; ++point)
        system(rows, 2 * point) = system(rows + 1, 2 * point + 1) = 1;
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(system.transpose() * system);
    const double largest = eigen.eigenvalues().maxCoeff();
    Eigen::Index open = 0;
    while (open < 2 * size && eigen.eigenvalues()(open) < kUnfelt * kUnfelt * largest)
        ++open;
    solved.places = eigen.eigenvectors().leftCols(open);
    solved.lengths.resize(rows, open);
    for (Eigen::Index row = 0; row < rows; ++row) {
        const Ray& ray = rays[At(row)];
        const int from = solved.column[At(ray.from)];
        const int to = solved.column[At(ray.to)];
        solved.lengths.row(row) =
            std::sin(ray.azimuth) * (solved.places.row(to) - solved.places.row(from)) +
            std::cos(ray.azimuth) * (solved.places.row(to + 1) - solved.places.row(from + 1));
    }
    return solved;
}

// The rays that stay in proportion to the one that most others do.
std::vector<Eigen::Index> LargestRigidPart(const Eigen::MatrixXd& lengths) {
    std::vector<Eigen::Index> best;
    for (Eigen::Index i = 0; i < lengths.rows(); ++i) {
        std::vector<Eigen::Index> with;
        for (Eigen::Index k = 0; k < lengths.rows(); ++k) {
            const double scale = lengths.row(i).norm() * lengths.row(k).norm();
            if (scale > 0 && std::abs(lengths.row(i).dot(lengths.row(k))) > kProportional * scale)
                with.push_back(k);
        }
        if (with.size() > best.size())
            best = std::move(with);
    }
    return best;
}

PlanFrame FrameOf(const PlanSights& sights, const Turns& turns, const std::vector<int>& setups,
                  const std::vector<Ray>& rays, const RaySolutions& solved) {
    PlanFrame frame(sights.Points(), sights.Setups());
    frame.isMetric = false;
    frame.isFree = true;
    const std::vector<Eigen::Index> rigid = LargestRigidPart(solved.lengths);
    if (rigid.size() < 3)
        return frame;
    // The solution in which the part is largest, with its rays ahead of their stations.
    const Eigen::VectorXd chosen = solved.lengths.row(rigid.front()).transpose().normalized();
    const Eigen::VectorXd places = solved.places * chosen;
    double sum = 0;
    double largest = 0;
    for (const Eigen::Index row : rigid) {
        const double length = solved.lengths.row(row).dot(chosen);
        sum += length > 0 ? 1 : -1;
        largest = std::max(largest, std::abs(length));
    }
    const double scale = (sum < 0 ? -1 : 1) * kFrameSize / largest;
    // One connected piece of the rigid rays, from the first on.
    std::vector<char> isReached(At(sights.Points()), 0);
    isReached[At(rays[At(rigid.front())].from)] = 1;
    for (bool any = true; any;) {
        any = false;
        for (const Eigen::Index row : rigid) {
            const Ray& ray = rays[At(row)];
            if (isReached[At(ray.from)] == isReached[At(ray.to)])
                continue;
            isReached[At(ray.from)] = isReached[At(ray.to)] = 1;
            any = true;
        }
    }
    for (const int setup : setups) {
        if (isReached[At(sights.station[At(setup)])])
            OrientSetup(frame, sights, setup, turns.zero[At(setup)]);
    }
    for (int point = 0; point < sights.Points(); ++point) {
        const int column = solved.column[At(point)];
        if (isReached[At(point)])
            PlacePoint(frame, sights, point, {scale * places(column), scale * places(column + 1)});
    }
    GrowFrame(frame, sights, Strictness::Weak);
    return frame;
}

}  // namespace

std::vector<PlanFrame> FramesOfRays(const PlanSights& sights) {
    std::vector<PlanFrame> frames;
    const Turns turns = TurnsOf(sights);
    std::vector<std::vector<int>> groups(At(turns.groups));
    for (int setup = 0; setup < sights.Setups(); ++setup)
        groups[At(turns.group[At(setup)])].push_back(setup);
    for (const std::vector<int>& setups : groups) {
        if (setups.size() < 2)
            continue;
        const std::vector<Ray> rays = RaysOf(sights, turns, setups);
        const RaySolutions solved = SolveRays(rays, sights.Points());
        if (solved.lengths.cols() == 0)
            continue;
        PlanFrame frame = FrameOf(sights, turns, setups, rays, solved);
        if (frame.placed.size() >= 3)
            frames.push_back(std::move(frame));
    }
    return frames;
}

}  // namespace Krenn
