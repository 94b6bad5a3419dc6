// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanGeometry.h"

#include <algorithm>
#include <cmath>

namespace Krenn {
namespace {

constexpr double kFlattestAngle =
    0.01;  // radians; inscribed angles nearer to 0 or a half circle bear nothing

Place Along(double azimuth) {
    return {std::sin(azimuth), std::cos(azimuth)};
}

double Cross(const Place& a, const Place& b) {
    return a[0] * b[1] - a[1] * b[0];
}

std::vector<Crossing> RayWithRay(const Locus& first, const Locus& second) {
    const Place u = Along(first.azimuth);
    const Place v = Along(second.azimuth);
    const double sine = Cross(u, v);
    if (std::abs(sine) < 1e-6)
        return {};
    const Place base{second.at[0] - first.at[0], second.at[1] - first.at[1]};
    const double alongFirst = Cross(base, v) / sine;
    const double alongSecond = Cross(base, u) / sine;
    if (alongFirst <= 0 || alongSecond <= 0)
        return {};
    return {{{first.at[0] + alongFirst * u[0], first.at[1] + alongFirst * u[1]}, std::abs(sine)}};
}

std::vector<Crossing> RayWithCircle(const Locus& ray, const Locus& circle) {
    const Place u = Along(ray.azimuth);
    const Place base{circle.at[0] - ray.at[0], circle.at[1] - ray.at[1]};
    const double foot = base[0] * u[0] + base[1] * u[1];
    const double off = Cross(base, u);
    const double half = circle.radius * circle.radius - off * off;
    // A grazing ray misses by its own error; its foot is then the best that there is.
    if (half < -0.02 * circle.radius * circle.radius)
        return {};
    const double reach = std::sqrt(std::max(half, 0.0));
    const double sine = std::min(1.0, reach / circle.radius);
    std::vector<Crossing> crossings;
    for (const double along : {foot - reach, foot + reach}) {
        if (along > 1e-6 * circle.radius)
            crossings.push_back({{ray.at[0] + along * u[0], ray.at[1] + along * u[1]}, sine});
    }
    return crossings;
}

std::vector<Crossing> CircleWithCircle(const Locus& first, const Locus& second) {
    const double base = DistanceTo(first.at, second.at);
    if (base < 1e-9 * (first.radius + second.radius))
        return {};
    const double foot =
        (base * base + first.radius * first.radius - second.radius * second.radius) / (2 * base);
    const double square = first.radius * first.radius - foot * foot;
    if (square < -0.02 * first.radius * first.radius)
        return {};
    const double off = std::sqrt(std::max(square, 0.0));
    const double sine = std::min(1.0, off * base / (first.radius * second.radius));
    const Place u{(second.at[0] - first.at[0]) / base, (second.at[1] - first.at[1]) / base};
    std::vector<Crossing> crossings;
    for (const double side : {off, -off})
        crossings.push_back(
            {{first.at[0] + foot * u[0] - side * u[1], first.at[1] + foot * u[1] + side * u[0]}, sine});
    return crossings;
}

}  // namespace

double AzimuthTo(const Place& from, const Place& to) {
    return std::atan2(to[0] - from[0], to[1] - from[1]);
}

double DistanceTo(const Place& from, const Place& to) {
    return std::hypot(to[0] - from[0], to[1] - from[1]);
}

Place PolarFrom(const Place& from, double azimuth, double distance) {
    return {from[0] + distance * std::sin(azimuth), from[1] + distance * std::cos(azimuth)};
}

std::optional<Locus> InscribedAngle(const Place& left, const Place& right, double angle) {
    const double sine = std::sin(angle);
    if (std::abs(sine) < kFlattestAngle)
        return std::nullopt;
    // Theorem of the inscribed angle: the centre lies on the perpendicular bisector, half the base times the
    // cotangent of the angle off the middle.
    const double half = 0.5 * std::cos(angle) / sine;
    const double x = right[0] - left[0];
    const double y = right[1] - left[1];
    Locus locus{Locus::Shape::InscribedAngle,
                {(left[0] + right[0]) / 2 + y * half, (left[1] + right[1]) / 2 - x * half}};
    locus.radius = std::hypot(x, y) / (2 * std::abs(sine));
    return locus;
}

std::vector<Crossing> Crossings(const Locus& first, const Locus& second) {
    const bool firstIsRay = first.shape == Locus::Shape::Ray;
    const bool secondIsRay = second.shape == Locus::Shape::Ray;
    if (firstIsRay && secondIsRay)
        return RayWithRay(first, second);
    if (firstIsRay)
        return RayWithCircle(first, second);
    return secondIsRay ? RayWithCircle(second, first) : CircleWithCircle(first, second);
}

double Misfit(const Locus& locus, const Place& place) {
    const double distance = DistanceTo(locus.at, place);
    if (locus.shape != Locus::Shape::Ray)
        return std::abs(distance - locus.radius);
    const Place u = Along(locus.azimuth);
    const Place base{place[0] - locus.at[0], place[1] - locus.at[1]};
    const bool isAhead = base[0] * u[0] + base[1] * u[1] > 0;
    return isAhead ? std::abs(Cross(base, u)) : distance;
}

}  // namespace Krenn
