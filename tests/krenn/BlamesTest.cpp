// SPDX-License-Identifier: GPL-3.0-or-later
// What engines of this kind are blamed for, each as the surveyor meets it: by a file and its listing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cmath>
#include <numbers>
#include <random>

#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/InputText.h"
#include "tests/krenn/RandomNetwork.h"
#include "tests/krenn/RunText.h"
#include "tests/krenn/Square.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::AnyOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

constexpr double kGons = 200 / std::numbers::pi;

TEST(Blames, AFailedFactorisationNamesStationAndMeasurement) {
    Square square;
    const Place station{40, 30, 1};
    square.text.points.push_back(InputText::Given("ST1", 40, 30, 1));
    square.text.fixed.push_back("ST1");
    square.text.points.push_back(InputText::Given("Q", 60, 60, 1));
    for (std::size_t i = 0; i < 3; ++i)
        square.Polar("Q", {60, 60, 1}, Square::Corner(i), square.corners[i]);
    square.text.distances.push_back("ST1 A 50.00990 0.001   T\r\n");
    square.text.Angles("ST1", "A", AzimuthGons(station, square.corners[0]),
                       ZenithGons(station, square.corners[0]), 0.001);
    for (const int type : kTypes) {
        const TextRun run = RunText(square.text.Text(), type, "TRACKER = ROTATIONS\r\n");
        EXPECT_EQ(run.number, ErrorNumber::Singular) << type;
        EXPECT_THAT(run.unbroken, ContainsRegex("rotation about [XYZ] of ST1 \\(set-up of line [0-9]+\\)"));
        EXPECT_THAT(run.unbroken, ContainsRegex("ST1: .*direction to A \\(line [0-9]+\\)"));
    }
}

TEST(Blames, AStandardErrorOfZeroNeverSurfacesAsAMatrix) {
    const auto expectLine = [](InputText text, const std::string& row, ErrorNumber wanted, int line) {
        text.distances.push_back(row + "\r\n");
        const TextRun run = RunText(text.Text());
        EXPECT_EQ(run.number, wanted) << row;
        EXPECT_THAT(run.unbroken, ContainsRegex("[Ll]ine " + std::to_string(line) + "\\b")) << row;
        EXPECT_THAT(run.unbroken, Not(ContainsRegex("definite|ingular")));
    };
    Square square;
    square.Station("ST1", {40, 30, 1});
    const std::string all = square.text.Text();
    const auto at = all.find("END", all.find("Distances"));
    const int line = 1 + static_cast<int>(std::count(all.begin(), all.begin() + static_cast<int>(at), '\n'));
    expectLine(square.text, "ST1       C             92.20629   0.00000", ErrorNumber::BadStandardError,
               line);
    expectLine(square.text, "ST1       C             92.20629  -0.00100", ErrorNumber::BadStandardError,
               line);
    expectLine(square.text, "ST1       C             92.20629", ErrorNumber::BadRow, line);
    expectLine(square.text, "ST1       C             92.2O629   0.00100", ErrorNumber::BadNumber, line);
    expectLine(square.text, "ST1       C             ninety     0.00100", ErrorNumber::BadNumber, line);
    expectLine(square.text, "ST1       C             0.00100 92.20629 T 5", ErrorNumber::BadRow, line);
}

TEST(Blames, AFieldOneColumnOffIsReadOrRefusedNeverAnotherValue) {
    Square square;
    square.Station("ST1", {40, 30, 1});
    const TextRun good = RunText(square.text.Text());
    ASSERT_EQ(good.number, ErrorNumber::Good);
    const ReadPoint wanted = *ReadListingText(good.listing).Find("ST1");
    for (std::size_t row = 0; row < square.text.distances.size(); ++row) {
        for (const std::size_t column : {10U, 20U, 33U}) {
            for (const bool isLeft : {false, true}) {
                InputText text = square.text;
                std::string& shifted = text.distances[row];
                if (isLeft)
                    shifted.erase(shifted.find_first_of(' ', column), 1);
                else
                    shifted.insert(column, " ");
                const TextRun run = RunText(text.Text());
                if (run.number != ErrorNumber::Good) {
                    EXPECT_THAT(run.unbroken, ContainsRegex("[Ll]ine [0-9]+"));
                    continue;
                }
                const ReadPoint found = *ReadListingText(run.listing).Find("ST1");
                EXPECT_NEAR(found.x, wanted.x, 1e-5) << shifted;
                EXPECT_NEAR(found.y, wanted.y, 1e-5) << shifted;
            }
        }
    }
}

TEST(Blames, AnUnderObservedPointIsNamedWithWhatHoldsIt) {
    Square square;
    square.Station("ST1", {40, 30, 1});
    square.text.points.push_back(InputText::Given("P7", 70, 40, 1));
    square.text.Angles("ST1", "P7", AzimuthGons({40, 30, 1}, {70, 40, 1}), 0, 0.001);
    for (const int type : kTypes) {
        const TextRun run = RunText(square.text.Text(), type);
        EXPECT_EQ(run.number, ErrorNumber::UndeterminedPoints);
        EXPECT_THAT(run.unbroken, ContainsRegex("P7: direction from ST1 \\(line [0-9]+\\)"));
        EXPECT_THAT(run.unbroken, Not(HasSubstr("ST1: ")));
    }
    // Without coordinates there is no place to start from either.
    square.text.points.back() = InputText::Named("P7");
    const TextRun run = RunText(square.text.Text());
    EXPECT_THAT(run.number, AnyOf(ErrorNumber::UndeterminedPoints, ErrorNumber::UndeterminedHeights));
    EXPECT_THAT(run.unbroken, HasSubstr("P7"));
}

// The derivatives of half the sum of squares by every free coordinate and rotation, by central differences of
// functions of its own, over what they would be without any cancellation.
double LargestSlope(const Network& network, const Adjustment& adjustment) {
    const auto residual = [&](const Observation& observation, const Place& from, const Place& to,
                              double zero) {
        const double sight[]{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
        const double plan = std::hypot(sight[0], sight[1]);
        switch (observation.kind) {
            case Kind::Direction:
                return std::remainder(std::atan2(sight[0], sight[1]) * kGons - zero - observation.value,
                                      400.0);
            case Kind::ZenithAngle: return std::atan2(plan, sight[2]) * kGons - observation.value;
            case Kind::Distance: return std::hypot(plan, sight[2]) - observation.value;
            default: return sight[2] - observation.value;
        }
    };
    std::map<std::pair<int, int>, std::array<double, 3>> sums;  // slope, squares of v, squares of derivatives
    for (const Observation& observation : network.observations) {
        std::array<Place, 2> at{adjustment.state.at[static_cast<std::size_t>(observation.from)],
                                adjustment.state.at[static_cast<std::size_t>(observation.to)]};
        const int setup = adjustment.structure.setupStart[static_cast<std::size_t>(observation.from)];
        double zero = adjustment.state.orientation[static_cast<std::size_t>(setup)] * kGons;
        const double v = residual(observation, at[0], at[1], zero) / observation.sigma;
        const auto add = [&](int point, int axis, double& value, double step) {
            const double kept = value;
            value = kept + step;
            const double above = residual(observation, at[0], at[1], zero);
            value = kept - step;
            const double below = residual(observation, at[0], at[1], zero);
            value = kept;
            const double derivative = (above - below) / (2 * step) / observation.sigma;
            auto& sum = sums[{point, axis}];
            sum[0] += derivative * v;
            sum[1] += v * v;
            sum[2] += derivative * derivative;
        };
        for (const int end : {0, 1}) {
            const int point = end == 0 ? observation.from : observation.to;
            for (int axis = 0; axis < 3 && !network.points[static_cast<std::size_t>(point)].isFixed; ++axis)
                add(point, axis, at[static_cast<std::size_t>(end)][static_cast<std::size_t>(axis)], 1e-4);
        }
        if (observation.kind == Kind::Direction)
            add(observation.from, 3, zero, 1e-5);
    }
    double largest = 0;
    for (const auto& [key, sum] : sums)
        largest = std::max(largest, std::abs(sum[0]) / std::sqrt(std::max(sum[1], 1e-6) * sum[2]));
    return largest;
}

// Starts tens and hundreds of meters wrong, blunders, few observations, distances that no triangle has.
TEST(Blames, WhatIsPrintedAsGoodHasConvergedAndNothingElseIsPrinted) {
    int good = 0;
    int refused = 0;
    for (unsigned seed = 1; seed <= 120; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.startNoise = std::array{1.0, 30.0, 150.0, 400.0}[seed % 4];
        spec.sightsPerStation = 4 + static_cast<int>(seed % 3);
        spec.fixed = seed % 5 == 0 ? 3 : 0;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        std::mt19937 random(seed);
        for (unsigned blunder = 0; blunder < seed % 4; ++blunder) {
            Observation& observation = network.observations[random() % network.observations.size()];
            if (observation.kind == Kind::ZenithAngle)
                observation.value = 60 + static_cast<double>(random() % 80);
            else
                observation.value = std::fmod(observation.value + static_cast<double>(random() % 300), 400);
        }
        try {
            const Adjustment adjustment = Adjust(network, seed % 2 ? Type::Sparse : Type::SparseInverse);
            ++good;
            EXPECT_LT(LargestSlope(network, adjustment), 1e-5) << seed;
            EXPECT_LT(adjustment.iterations.back().largest, 1e-6);
            EXPECT_EQ(adjustment.iterations.back().step, 1);
        } catch (const Failure& failure) {
            ++refused;
            EXPECT_THAT(failure.number, AnyOf(ErrorNumber::NoConvergence, ErrorNumber::UndeterminedPoints,
                                              ErrorNumber::Singular, ErrorNumber::ZeroLengthSight))
                << seed << failure.what();
            if (failure.number == ErrorNumber::NoConvergence) {
                ASSERT_GT(failure.details.size(), 10U);
                EXPECT_THAT(failure.details[0], HasSubstr("worst residuals"));
                EXPECT_THAT(failure.details[1], ContainsRegex("line [0-9]+: [SP][0-9]+ [SP][0-9]+"));
            }
        }
    }
    EXPECT_GT(good, 60);
    RecordProperty("good", good);
    RecordProperty("refused", refused);
}

TEST(Blames, FewIterationsAreNotTakenForConvergence) {
    NetworkSpec spec;
    spec.startNoise = 30;
    const TextRun run = RunText(MakeNetwork(spec).text.Text(), 1, "ITERATIONS = 2\r\n");
    EXPECT_EQ(run.number, ErrorNumber::NoConvergence);
    EXPECT_THAT(run.unbroken,
                ContainsRegex("After 2 iterations the largest correction is still [-0-9.e]+ m"));
    EXPECT_THAT(run.unbroken, HasSubstr("The worst residuals at the last iteration"));
    constexpr std::string_view Mark = "v/sigma = ";
    std::vector<double> worst;
    for (std::size_t place = run.unbroken.find(Mark); place != std::string::npos;
         place = run.unbroken.find(Mark, place + 1))
        worst.push_back(std::stod(run.unbroken.substr(place + Mark.size())));
    ASSERT_GT(worst.size(), 5U);
    EXPECT_LT(*std::min_element(worst.begin(), worst.end()), 0) << "the sign tells nothing of the size";
    EXPECT_TRUE(std::is_sorted(worst.begin(), worst.end(),
                               [](double a, double b) { return std::abs(a) > std::abs(b); }));
}

// Two targets booked for each other at a station that nothing else holds in place.
TEST(Blames, ContradictingDirectionsDoNotOscillate) {
    Square square;
    const Place station{55, 45, 1};
    square.text.stations.push_back(InputText::Named("ST1"));
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t seen = i == 1 ? 2 : i == 2 ? 1 : i;
        square.text.Angles("ST1", Square::Corner(i), AzimuthGons(station, square.corners[seen]),
                           ZenithGons(station, square.corners[i]), 0.001);
    }
    for (const int type : kTypes) {
        const TextRun run = RunText(square.text.Text(), type);
        EXPECT_THAT(run.number, AnyOf(ErrorNumber::Good, ErrorNumber::NoConvergence,
                                      ErrorNumber::UndeterminedPoints, ErrorNumber::Singular));
        if (run.number == ErrorNumber::Good)
            EXPECT_THAT(run.listing, HasSubstr(type == -1 ? "Suspected gross errors" : "FAILED"));
        else
            EXPECT_THAT(run.listing, AnyOf(HasSubstr("worst residuals"), HasSubstr("ST1")));
    }
}

// On the circle through three targets their directions do not tell where the station is.
TEST(Blames, AStationInTheDangerCircleIsNamed) {
    for (const double off : {0.0, 1e-4, 1e-3}) {
        InputText text;
        const std::vector<Place> targets{{100, 0, 0}, {0, 100, 0}, {-100, 0, 0}};
        const double length = 100 + off;
        const Place station{length * std::sin(3.6), length * std::cos(3.6), 0};
        text.stations.push_back(InputText::Given("ST1", station[0], station[1], 0));
        for (std::size_t i = 0; i < targets.size(); ++i) {
            text.points.push_back(
                InputText::Given(Square::Corner(i), targets[i][0], targets[i][1], targets[i][2]));
            text.fixed.push_back(Square::Corner(i));
            text.Angles("ST1", Square::Corner(i), AzimuthGons(station, targets[i]), 0, 0.001);
        }
        for (const int type : {0, 1, 7}) {
            const TextRun run = RunText(text.Text(), type);
            if (run.number == ErrorNumber::Good)
                EXPECT_THAT(run.unbroken, HasSubstr("ST1 is ill-determined")) << off << " " << type;
            else
                EXPECT_THAT(run.unbroken, HasSubstr("ST1")) << off << " " << type;
        }
    }
}

TEST(Blames, TwoSetupsAtOnePlaceDoNotCrash) {
    Square square;
    square.Station("ST1", {40, 30, 1});
    square.Station("ST2", {40, 30, 1});
    for (const int type : kTypes)
        EXPECT_EQ(RunText(square.text.Text(), type).number, ErrorNumber::Good) << type;
    square.text.stations = {InputText::Given("ST1", 40, 30, 1), InputText::Given("ST2", 40, 30, 1)};
    for (const int type : kTypes)
        EXPECT_EQ(RunText(square.text.Text(), type).number, ErrorNumber::Good) << type;
    square.text.Distance("ST1", "ST2", 0.001, 0.001);
    square.text.Angles("ST1", "ST2", 100, 100, 0.001);
    for (const int type : kTypes) {
        const TextRun run = RunText(square.text.Text(), type);
        EXPECT_EQ(run.number, ErrorNumber::ZeroLengthSight);
        EXPECT_THAT(run.unbroken, ContainsRegex("line [0-9]+: ST1 ST2"));
    }
}

std::string TiltedTrackers() {
    Square square;
    square.Station("ST1", {40, 30, 1});
    square.Station("ST2", {60, 70, 2});
    for (auto& row : square.text.distances)
        row.insert(row.size() - 2, "   T");
    square.text.fixed.clear();
    return square.text.Text();
}

TEST(Blames, SwitchingOffKindsOfObservationsEndsInAListingWhateverIsLeft) {
    std::vector<std::string> texts{TiltedTrackers()};
    for (const int dimension : {1, 2, 3}) {
        NetworkSpec spec;
        spec.dimension = dimension;
        spec.given = dimension == 3 ? 9 : 3;
        RandomNetwork random = MakeNetwork(spec);
        if (dimension == 3) {
            random.text.Height("S1", "P9", random.truth["P9"][2] - random.truth["S1"][2], 0.001);
            random.text.Height("S1", "LEVELLED", 1, 0.001);
        }
        texts.push_back(random.text.Text());
    }
    texts.push_back(texts[3].substr(0, texts[3].find("Distances \r\n")) +
                    texts[0].substr(texts[0].find("Distances \r\n")));
    int good = 0;
    for (const std::string& text : texts) {
        for (unsigned off = 0; off < 16; ++off) {
            std::string parameters = off % 2 ? "TRACKER = ROTATIONS\r\n" : "SETUPS = BLOCK\r\n";
            constexpr std::array kKinds{"DIRECTIONS", "ZENITH_ANGLES", "DISTANCES", "HEIGHT_DIFFERENCES"};
            for (unsigned kind = 0; kind < 4; ++kind)
                parameters += std::string(kKinds[kind]) + (off >> kind & 1U ? " = OFF\r\n" : " = ON\r\n");
            for (const int type : kTypes) {
                const TextRun run = RunText(text, type, parameters);
                good += run.number == ErrorNumber::Good;
                EXPECT_THAT(
                    run.number,
                    AnyOf(ErrorNumber::Good, ErrorNumber::NoObservations, ErrorNumber::UndeterminedPoints,
                          ErrorNumber::UndeterminedHeights, ErrorNumber::Singular,
                          ErrorNumber::NothingToAdjust, ErrorNumber::NoConvergence, ErrorNumber::UnknownName))
                    << off << " " << type << "\n"
                    << run.listing.substr(0, 1000);
                if (off == 15) {
                    EXPECT_EQ(run.number, ErrorNumber::NoObservations);
                }
            }
        }
    }
    EXPECT_GT(good, 60);
}

// One row of the table of iterations, by its columns.
TEST(Blames, CorrectionsArePrintedSoThatTheyCanBeFollowed) {
    NetworkSpec spec;
    spec.startNoise = 30;
    for (const int type : kTypes) {
        const TextRun run = RunText(MakeNetwork(spec).text.Text(), type);
        ASSERT_EQ(run.number, ErrorNumber::Good);
        std::istringstream lines(run.listing.substr(run.listing.find("\r\n Iterations")));
        std::string line;
        int rows = 0;
        double last = 0;
        while (std::getline(lines, line) && (rows == 0 || line.size() > 5)) {
            std::istringstream words(line);
            int number = 0;
            std::string correction;
            if (!(words >> number >> correction) || number != rows + 1)
                continue;
            ++rows;
            last = std::stod(correction);
            const std::string mantissa = correction.substr(0, correction.find('e'));
            int digits = 0;
            for (const char letter : mantissa)
                digits += std::isdigit(static_cast<unsigned char>(letter)) && (digits > 0 || letter != '0');
            EXPECT_GE(digits, 3) << line;
        }
        EXPECT_GT(rows, 3);
        EXPECT_LT(last, 1e-6);
        EXPECT_GT(last, 0);
    }
}

// The sanitizers keep memory of their own and know no such limit.
#if !defined(__SANITIZE_ADDRESS__)
// A grid in three dimensions, every point a station sighting three neighbours on each side.
std::string BigGrid(int side) {
    std::mt19937 random(5);
    std::normal_distribution<double> normal(0, 1);
    const auto place = [](int x, int y) {
        return Place{100.0 * x, 100.0 * y, 20 * std::sin(0.7 * x) * std::cos(0.4 * y)};
    };
    std::string stations;
    std::string distances;
    std::string angles;
    for (int x = 0; x < side; ++x) {
        for (int y = 0; y < side; ++y) {
            const std::string name = fmt::format("G{}_{}", x, y);
            const Place from = place(x, y);
            stations += InputText::Given(name, from[0] + 0.01 * normal(random),
                                         from[1] + 0.01 * normal(random), from[2] + 0.01 * normal(random));
            for (const auto& [dx, dy] : {std::pair{1, 0}, {0, 1}, {1, 1}, {-1, 0}}) {
                if (x + dx < 0 || x + dx >= side || y + dy >= side)
                    continue;
                const Place to = place(x + dx, y + dy);
                const std::string other = fmt::format("G{}_{}", x + dx, y + dy);
                distances += fmt::format("{} {} {:.5f} 0.001\r\n", name, other,
                                         SlopeLength(from, to) + 0.001 * normal(random));
                angles += fmt::format("{} {} {:.5f} {:.5f} 0.001 0.001\r\n", name, other,
                                      AzimuthGons(from, to), ZenithGons(from, to));
            }
        }
    }
    return "NORL\r\n\r\nTheodolite Stations\r\n" + stations + "END\r\nDistances \r\n" + distances +
           "END\r\nObservations\r\n" + angles + "END\r\n";
}

// Ends with the number of the run if its listing is whole and says the same.
[[noreturn]] void RunBigWithin(rlim_t bytes) {
    int code = 101;
    {
        const TempFolder folder;
        const std::string input = folder.Write("BIG.INP", BigGrid(142));
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_AS, &limit);
        const ErrorNumber number = RunAdjustment(input, 1);
        const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
        setrlimit(RLIMIT_AS, &none);
        const std::string listing = folder.Read("BIG.OUT");
        ExpectListingOf(number, listing);
        if (number == ErrorNumber::Good) {
            EXPECT_EQ(ReadListingText(listing).stations.size(), 142U * 142U);
        }
        code = testing::Test::HasFailure() ? 100 : static_cast<int>(number);
    }
    _exit(code);
}

TEST(Blames, ABigNetworkPrintsWithinItsMemoryOrSaysThatThereIsTooLittle) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(RunBigWithin(rlim_t{3} << 30), testing::ExitedWithCode(0), "");
    for (const rlim_t megabytes : {120, 200, 300, 400, 500}) {
        const auto isTold = [](int status) {
            return testing::ExitedWithCode(static_cast<int>(ErrorNumber::OutOfMemory))(status) ||
                   testing::ExitedWithCode(0)(status);
        };
        EXPECT_EXIT(RunBigWithin(megabytes << 20), isTold, "") << megabytes;
    }
}
#endif

}  // namespace
