// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/InputText.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

// Networks whose data and results are printed in textbooks. Each result is met to its last printed digit:
// half a unit of it is the bound.
//
// [Ghilani] C. D. Ghilani, P. R. Wolf: Adjustment Computations. Spatial Data Analysis. 4th edition, Wiley
// 2006. [Mikhail] E. M. Mikhail, F. Ackermann: Observations and Least Squares. Crowell 1976. [Awange]  J. L.
// Awange, E. W. Grafarend: Solving Algebraic Computational Problems in Geodesy and
//           Geoinformatics. Springer 2005.
constexpr double kFoot = 0.3048;
constexpr double kGons = 200 / std::numbers::pi;
constexpr double kSecondsPerGon = 3240;

constexpr Type kTypes[] = {Type::SparseInverse, Type::Dense};

double Gons(double degrees, double minutes, double seconds) {
    return (degrees + minutes / 60 + seconds / 3600) / 0.9;
}

// Rows with more digits than the system writes, so that feet and seconds lose nothing.
std::string Row(const std::string& from, const std::string& to, double value, double sigma) {
    return fmt::format("{} {} {:.10f} {:.10f}\r\n", from, to, value, sigma);
}

std::string AngleRow(const std::string& from, const std::string& to, double direction, double zenith,
                     double sigma) {
    return fmt::format("{} {} {:.10f} {:.10f} {:.10f} {:.10f}\r\n", from, to, direction, zenith, sigma,
                       sigma);
}

std::string GivenRow(const std::string& name, double x, double y, double z) {
    return fmt::format("{} {:.6f} {:.6f} {:.6f}\r\n", name, x, y, z);
}

struct Result {
    Network network;
    Adjustment adjustment;
    Statistics statistics;

    std::size_t NumberOf(const std::string& name) const {
        for (std::size_t i = 0; i < network.points.size(); ++i) {
            if (network.points[i].name == name)
                return i;
        }
        ADD_FAILURE() << name;
        return 0;
    }
    double At(const std::string& name, std::size_t axis) const {
        return adjustment.state.at[NumberOf(name)][axis] + adjustment.state.origin[axis];
    }
    double Deviation(const std::string& name, std::size_t axis) const {
        return statistics.deviation[NumberOf(name)][axis];
    }
    // Of the adjusted observation, a posteriori.
    double DeviationOf(std::size_t measure) const {
        return statistics.scale * std::sqrt(adjustment.cofactors.measure[measure]);
    }
};

Result Compute(const InputText& text, Type type, const Parameters& parameters = {}) {
    Result result;
    result.network = ReadInput(text.Text());
    result.adjustment = Adjust(result.network, type, parameters);
    result.statistics = Evaluate(result.network, result.adjustment, parameters);
    return result;
}

// [Ghilani] chapter 12, unweighted and weighted example: bench marks X 100.00 ft and Y 107.50 ft.
struct Line {
    const char *from, *to;
    double difference;  // feet
    double length;      // miles
};
constexpr Line kLines[] = {{"X", "A", 5.10, 4},  {"A", "Y", 2.34, 3},  {"Y", "C", -1.25, 2},
                           {"C", "X", -6.13, 3}, {"A", "B", -0.68, 2}, {"Y", "B", -3.00, 2},
                           {"B", "C", 1.70, 2}};

InputText LevelNet(bool isWeighted) {
    InputText text;
    text.points = {GivenRow("X", 0, 0, 100.00 * kFoot), GivenRow("Y", 0, 0, 107.50 * kFoot)};
    text.fixed = {"X", "Y"};
    for (const Line& line : kLines)
        text.heights.push_back(Row(line.from, line.to, line.difference * kFoot,
                                   kFoot * (isWeighted ? std::sqrt(line.length / 12) : 1)));
    return text;
}

TEST(PublishedNetworks, LevelNetOfSevenLinesByGhilaniAndWolf) {
    for (const Type type : kTypes) {
        const Result result = Compute(LevelNet(false), type);
        EXPECT_NEAR(result.At("A", 2) / kFoot, 105.141, 5e-4);
        EXPECT_NEAR(result.At("B", 2) / kFoot, 104.483, 5e-4);
        EXPECT_NEAR(result.At("C", 2) / kFoot, 106.188, 5e-4);
        constexpr double kResiduals[] = {0.041, 0.019, -0.062, -0.058, 0.022, -0.017, 0.005};
        for (std::size_t i = 0; i < 7; ++i)
            EXPECT_NEAR(result.adjustment.residual[i] / kFoot, kResiduals[i], 5e-4);
        EXPECT_NEAR(result.statistics.m0, 0.050, 5e-4);
        EXPECT_NEAR(result.Deviation("A", 2) / kFoot, 0.031, 5e-4);
        EXPECT_NEAR(result.Deviation("B", 2) / kFoot, 0.033, 5e-4);
        EXPECT_NEAR(result.Deviation("C", 2) / kFoot, 0.031, 5e-4);
    }
}

TEST(PublishedNetworks, LevelNetWeightedByLengthByGhilaniAndWolf) {
    for (const Type type : kTypes) {
        const Result result = Compute(LevelNet(true), type);
        EXPECT_NEAR(result.At("A", 2) / kFoot, 105.150, 5e-4);
        EXPECT_NEAR(result.At("B", 2) / kFoot, 104.489, 5e-4);
        EXPECT_NEAR(result.At("C", 2) / kFoot, 106.197, 5e-4);
        EXPECT_NEAR(result.statistics.m0, 0.107, 5e-4);
    }
}

// [Ghilani] example 12.1, in meters, A = 437.596 m.
TEST(PublishedNetworks, LevelNetWithStandardDeviationsByGhilaniAndWolf) {
    InputText text;
    text.points = {GivenRow("A", 0, 0, 437.596)};
    text.fixed = {"A"};
    text.heights = {Row("A", "B", 10.509, 0.006), Row("B", "C", 5.360, 0.004),  Row("C", "D", -8.523, 0.005),
                    Row("D", "A", -7.348, 0.003), Row("B", "D", -3.167, 0.004), Row("A", "C", 15.881, 0.012)};
    for (const Type type : kTypes) {
        const Result result = Compute(text, type);
        EXPECT_NEAR(result.At("B", 2), 448.1087, 5e-5);
        EXPECT_NEAR(result.At("C", 2), 453.4685, 5e-5);
        EXPECT_NEAR(result.At("D", 2), 444.9436, 5e-5);
    }
}

// [Ghilani] section 14.3: a point from distances to three fixed points, in feet.
TEST(PublishedNetworks, TrilateratedPointByGhilaniAndWolf) {
    InputText text;
    text.points = {GivenRow("A", 865.40 * kFoot, 4527.15 * kFoot, 0),
                   GivenRow("B", 2432.55 * kFoot, 2047.25 * kFoot, 0),
                   GivenRow("C", 2865.22 * kFoot, 27.15 * kFoot, 0)};
    text.points.push_back(GivenRow("U", 6860 * kFoot, 3720 * kFoot, 0));
    text.fixed = {"A", "B", "C"};
    text.distances = {Row("A", "U", 6049.00 * kFoot, kFoot), Row("B", "U", 4736.83 * kFoot, kFoot),
                      Row("C", "U", 5446.49 * kFoot, kFoot)};
    for (const Type type : kTypes) {
        const Result result = Compute(text, type);
        // Coordinates are printed to a hundredth of a foot; those here have their fixed points to a
        // micrometer.
        EXPECT_NEAR(result.At("U", 0) / kFoot, 6861.32, 5.1e-3);
        EXPECT_NEAR(result.At("U", 1) / kFoot, 3727.82, 5.1e-3);
        EXPECT_NEAR(result.Deviation("U", 0) / kFoot, 0.078, 5e-4);
        EXPECT_NEAR(result.Deviation("U", 1) / kFoot, 0.154, 5e-4);
        constexpr double kAdjusted[] = {6048.96, 4736.91, 5446.44};
        constexpr double kResiduals[] = {-0.037, 0.077, -0.047};
        constexpr double kDeviations[] = {0.090, 0.060, 0.085};
        for (std::size_t i = 0; i < 3; ++i) {
            const double v = result.adjustment.residual[i];
            EXPECT_NEAR((result.network.observations[i].value + v) / kFoot, kAdjusted[i], 5e-3);
            EXPECT_NEAR(v / kFoot, kResiduals[i], 5e-4);
            EXPECT_NEAR(result.DeviationOf(i) / kFoot, kDeviations[i], 5e-4);
        }
        EXPECT_NEAR(result.statistics.m0, 0.10, 5e-3);
    }
}

// A triangle in which every station sights both others, given to the meter: a free network of directions,
// which leave the place, the rotation and the size open.
InputText TriangleOfDirections(const std::array<double, 3>& angles, double sigma) {
    InputText text;
    // Clockwise A, B, C; the side AB of 1000 m lies north, the others follow from the law of sines.
    const double bc = 1000 * std::sin(angles[0] / kGons) / std::sin(angles[2] / kGons);
    const double b = std::numbers::pi - angles[1] / kGons;
    text.points = {GivenRow("A", 0, 0, 0), GivenRow("B", 0, 1000, 0),
                   GivenRow("C", std::round(bc * std::sin(b)), std::round(1000 + bc * std::cos(b)), 0)};
    const char* names[] = {"A", "B", "C"};
    for (std::size_t i = 0; i < 3; ++i) {
        // Seen from a corner of a clockwise triangle the next one stands left of the one before.
        text.angles.push_back(AngleRow(names[i], names[(i + 1) % 3], 20, 0, sigma));
        text.angles.push_back(AngleRow(names[i], names[(i + 2) % 3], 20 + angles[i], 0, sigma));
    }
    return text;
}

// [Mikhail] example 10.1: six directions of a triangle, each with the same weight, take a sixth of the
// misclosure each, with alternating signs, and a sixth of their variance shows in the residuals.
TEST(PublishedNetworks, TriangleOfSixDirectionsByMikhailAndAckermann) {
    const double misclosure = 0.0012;  // gons
    const InputText text = TriangleOfDirections({70, 60 + misclosure, 70}, 0.001);
    for (const Type type : kTypes) {
        const Result result = Compute(text, type);
        EXPECT_EQ(result.adjustment.Redundancy(), 1);
        EXPECT_EQ(result.adjustment.datum.Defect(), 4);
        for (std::size_t i = 0; i < 6; ++i) {
            EXPECT_NEAR(result.adjustment.residual[i] * kGons, (i % 2 ? -1 : 1) * misclosure / 6, 1e-9);
            EXPECT_NEAR(result.statistics.redundancyNumber[i], 1.0 / 6, 1e-9);
        }
    }
}

// [Mikhail] example 7.1: the angles 40-19-02, 70-30-01, 69-11-00 of a triangle are adjusted to 40-19-01,
// 70-30-00, 69-10-59.
TEST(PublishedNetworks, AnglesOfATriangleByMikhailAndAckermann) {
    const std::array<double, 3> observed{Gons(40, 19, 2), Gons(70, 30, 1), Gons(69, 11, 0)};
    const std::array<double, 3> adjusted{Gons(40, 19, 1), Gons(70, 30, 0), Gons(69, 10, 59)};
    const InputText text = TriangleOfDirections(observed, 1 / kSecondsPerGon);
    for (const Type type : kTypes) {
        const Result result = Compute(text, type);
        for (std::size_t i = 0; i < 3; ++i) {
            const auto& v = result.adjustment.residual;
            const double angle = observed[i] + (v[2 * i + 1] - v[2 * i]) * kGons;
            EXPECT_NEAR(angle, adjusted[i], 0.001 / kSecondsPerGon);
        }
    }
}

// [Awange] test network "Stuttgart Central": GPS coordinates of control points in the frame of the earth's
// centre, and what a theodolite on the pillar K1 reads, whose plumb line lies anywhere in that frame:
// horizontal directions (counted counterclockwise), vertical directions, distances. The resection in space
// has to give K1 as it is printed.
struct Control {
    const char* name;
    double x, y, z, horizontal, vertical, distance;
};
constexpr Control kStuttgart[] = {
    {"SCHLOSS", 4157246.5346, 671877.0281, 4774581.6314, 52.320062, -6.705164, 566.8635},
    {"HAUSSM", 4156749.5977, 672711.4554, 4774981.5459, 107.160333, 0.271038, 1324.2380},
    {"EDUARD", 4156748.6829, 671171.9385, 4775235.5483, 224.582723, 4.036011, 542.2609},
    {"LIEDER", 4157266.6181, 671099.1577, 4774689.8536, 336.851237, -6.941728, 430.5286},
    {"LVM", 4157307.5147, 671171.7006, 4774690.5691, 347.702846, -1.921509, 400.5837},
    {"FH", 4157244.9515, 671338.5915, 4774699.9070, 370.832476, -6.686951, 269.2309}};

InputText Stuttgart(std::initializer_list<std::size_t> used) {
    InputText text;
    text.stations = {GivenRow("K1", 4157060, 671440, 4774870)};
    for (const std::size_t i : used) {
        const Control& c = kStuttgart[i];
        text.points.push_back(GivenRow(c.name, c.x, c.y, c.z));
        text.fixed.push_back(c.name);
        text.angles.push_back(AngleRow("K1", c.name, 400 - c.horizontal, 100 - c.vertical, 1e-6));
        // The mark tells that the instrument is not levelled; a weight of nearly nothing leaves the
        // place to the directions.
        text.distances.push_back(fmt::format("K1 {} {:.4f} 1000.0 T\r\n", c.name, c.distance));
    }
    return text;
}

void ExpectK1(const Result& result) {
    EXPECT_NEAR(result.At("K1", 0), 4157066.1116, 1e-4);
    EXPECT_NEAR(result.At("K1", 1), 671429.6655, 1e-4);
    EXPECT_NEAR(result.At("K1", 2), 4774879.3704, 1e-4);
}

TEST(PublishedNetworks, ResectionInSpaceFromThreePointsByAwangeAndGrafarend) {
    Parameters parameters;
    parameters.tracker = TrackerModel::Rotations;
    for (const Type type : kTypes)
        ExpectK1(Compute(Stuttgart({1, 2, 3}), type, parameters));
}

TEST(PublishedNetworks, ResectionInSpaceFromSixPointsByAwangeAndGrafarend) {
    Parameters parameters;
    parameters.tracker = TrackerModel::Rotations;
    for (const Type type : kTypes) {
        const Result result = Compute(Stuttgart({0, 1, 2, 3, 4, 5}), type, parameters);
        ExpectK1(result);
        for (std::size_t m = 0; m < result.network.observations.size(); ++m) {
            if (result.network.observations[m].kind == Kind::Distance) {
                EXPECT_NEAR(result.adjustment.residual[m], 0, 2e-4) << m;
            }
        }
    }
}

}  // namespace
