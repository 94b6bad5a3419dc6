// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "krenn/input/InputReader.h"
#include "tests/krenn/PrintedListing.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::HasSubstr;
using testing::Not;

TEST(GoodListing, HoldsDeviationsOnlyWithAnInverse) {
    NetworkSpec spec;
    const std::string input = MakeNetwork(spec).text.Text();
    EXPECT_THAT(Print(input, Type::Sparse).text, Not(HasSubstr("\r\nStandard deviations")));
    EXPECT_THAT(Print(input, Type::L1Norm).text, Not(HasSubstr("\r\nStandard deviations")));
    EXPECT_THAT(Print(input, Type::SparseInverse).text, HasSubstr("\r\nStandard deviations"));
    EXPECT_THAT(Print(input, Type::Dense).text, HasSubstr("\r\nStandard deviations"));
}

TEST(GoodListing, EndsWithTheListOfHeightDeviations) {
    NetworkSpec spec;
    spec.dimension = 1;
    const Printed printed = Print(MakeNetwork(spec).text.Text(), Type::SparseInverse);
    const std::size_t at = printed.text.find("\r\nStandard deviations");
    ASSERT_NE(at, std::string::npos);
    const std::string tail = printed.text.substr(printed.text.find("\r\n", at + 2) + 2);
    EXPECT_EQ(std::count(tail.begin(), tail.end(), '\n'), static_cast<long>(printed.network.points.size()));
}

TEST(GoodListing, TellsTheSurveyorWhatHappened) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.pairs = {"S1 P9"};
    Network network = ReadInput(random.text.Text());
    network.observations[3].value += 0.5;
    const Printed printed = PrintNetwork(network, Type::SparseInverse);
    for (const char* part :
         {"/data/A.INP", "2026-02-01 10:00:00", "Project   DAM", "three dimensions", "slope distance",
          "Defect", "shift in X, shift in Y, rotation about Z, shift in Z", "with given coordinates",
          "Iterations", "m0 a posteriori", "two-tailed  m0 from", "FAILED",
          "largest suspected gross error: slope distance", "Worst residuals", "Relative error ellipses",
          "Summary", "a posteriori, scaled with m0"})
        EXPECT_THAT(printed.text, HasSubstr(part));
    ExpectRead(printed);
}

TEST(GoodListing, GivesTheRelativeEllipseOfAPair) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.pairs = {"S1 P9", "P8 P9"};
    const Network network = ReadInput(random.text.Text());
    const Adjustment sparse = Adjust(network, Type::SparseInverse);
    const Adjustment dense = Adjust(network, Type::Dense);
    ASSERT_EQ(sparse.cofactors.pair.size(), 2u);
    for (std::size_t pair = 0; pair < 2; ++pair) {
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_NEAR(sparse.cofactors.pair[pair][i], dense.cofactors.pair[pair][i],
                        1e-9 * (dense.cofactors.pair[pair][0] + dense.cofactors.pair[pair][2]));
    }
}

// Whatever words stand in it: what people read is indented, and each marker comes once.
TEST(GoodListing, TakesNoNameAndNoTitleForAMarker) {
    NetworkSpec spec;
    spec.points = 12;
    spec.given = 12;
    std::string input = MakeNetwork(spec).text.Text();
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"= DAM", "=Final results"},
                                   {"= NORTH", "=Standard deviations"},
                                   {" S1 ", " FINAL "},
                                   {" P9 ", " STANDARD "},
                                   {"\nS1 ", "\nFINAL "},
                                   {"\nP9 ", "\nSTANDARD "}}) {
        for (std::size_t at = 0; (at = input.find(from, at)) != std::string::npos; at += to.size())
            input.replace(at, from.size(), to);
    }
    const Printed printed = Print(input, Type::SparseInverse);
    ExpectRead(printed);
    EXPECT_THAT(printed.text, HasSubstr("Project   Final results"));
    for (const char* marker : {"Final results", "horizontal direction", "vertical direction",
                               "distance residuals", "Standard deviations", "Standard point"}) {
        int count = 0;
        for (const std::string& line : LinesOf(printed.text))
            count += line.starts_with(marker) ? 1 : 0;
        EXPECT_EQ(count, 1) << marker;
    }
    for (const std::string& line : LinesOf(printed.text.substr(0, printed.text.find("\r\nFinal results"))))
        EXPECT_TRUE(line.empty() || line.front() == ' ') << line;
}

TEST(GoodListing, BeginsWithAVerdict) {
    NetworkSpec spec;
    const std::string input = MakeNetwork(spec).text.Text();
    const auto verdictOf = [](const std::string& text) {
        const auto lines = LinesOf(text);
        const auto at = std::find_if(lines.begin(), lines.end(),
                                     [](const std::string& line) { return line.starts_with(" | RESULT"); });
        EXPECT_LT(at - lines.begin(), 12);
        const std::string line = at == lines.end() ? "" : at->substr(17, at->size() - 19);
        return line.substr(0, line.find_last_not_of(' ') + 1);
    };
    EXPECT_EQ(verdictOf(Print(input, Type::SparseInverse).text), "GOOD");
    Network wrong = ReadInput(input);
    wrong.observations[3].value += 0.5;
    EXPECT_EQ(verdictOf(PrintNetwork(wrong, Type::SparseInverse).text), "DOUBTFUL");
    EXPECT_EQ(verdictOf(PrintNetwork(wrong, Type::L1Norm).text), "GROSS ERRORS SUSPECTED");
    EXPECT_EQ(verdictOf(Print(input, Type::L1Norm).text), "NO GROSS ERROR STANDS OUT");
}

TEST(GoodListing, KeepsTheColumnsOfEveryTable) {
    NetworkSpec spec;
    spec.points = 14;
    spec.given = 14;
    const Printed printed = Print(MakeNetwork(spec).text.Text(), Type::SparseInverse);
    for (const char* title : {"horizontal direction", "vertical direction", "distance residuals"}) {
        const auto table = SectionOf(printed.text, title);
        ASSERT_GT(table.size(), 10u);
        for (std::size_t i = 0; i + 1 < table.size(); ++i)
            EXPECT_EQ(table[i].substr(0, table[i].find("  <")).size(), table[0].size()) << table[i];
    }
    const auto coordinates = SectionOf(printed.text, " point ");
    EXPECT_EQ(coordinates.size(), 1 + printed.network.points.size() + 1);
    for (std::size_t i = 0; i + 1 < coordinates.size(); ++i)
        EXPECT_EQ(coordinates[i].size(), coordinates[0].size()) << coordinates[i];
}

TEST(GoodListing, PutsBothEllipsesBesideTheCoordinatesWithTheirLevel) {
    NetworkSpec spec;
    Parameters parameters;
    parameters.confidence = 0.99;
    const Printed printed = Print(MakeNetwork(spec).text.Text(), Type::SparseInverse, parameters);
    const auto coordinates = SectionOf(printed.text, " point ");
    EXPECT_THAT(coordinates.at(0), HasSubstr("a 99 %    b 99 %"));
    const auto words = WordsOf(coordinates.at(1));
    ASSERT_EQ(words.size(), 12u);
    EXPECT_EQ(words[0], "S1");
    const auto& at = printed.adjustment.state.at[0];
    const Ellipse& ellipse = printed.statistics.ellipse[0];
    const auto& deviation = printed.statistics.deviation[0];
    const double factor = printed.statistics.wideFactor;
    const double told[]{at[0] + printed.adjustment.state.origin[0],
                        at[1] + printed.adjustment.state.origin[1],
                        at[2] + printed.adjustment.state.origin[2],
                        deviation[0] * 1000,
                        deviation[1] * 1000,
                        deviation[2] * 1000,
                        ellipse.major * 1000,
                        ellipse.minor * 1000,
                        ellipse.bearing,
                        ellipse.major * 1000 * factor,
                        ellipse.minor * 1000 * factor};
    for (std::size_t i = 0; i < std::size(told); ++i)
        EXPECT_NEAR(std::stod(words[i + 1]), told[i], i == 8 ? 0.006 : 0.0006) << i;
}

TEST(GoodListing, GivesEveryObservationItsReliability) {
    NetworkSpec spec;
    const Printed printed = Print(MakeNetwork(spec).text.Text(), Type::SparseInverse);
    const auto table = SectionOf(printed.text, "distance residuals");
    std::size_t row = 1;
    for (std::size_t m = 0; m < printed.adjustment.structure.measures.size(); ++m) {
        const Measure& measure = printed.adjustment.structure.measures[m];
        if (measure.kind != MeasureKind::SlopeDistance)
            continue;
        const auto words = WordsOf(table.at(row++));
        const double r = printed.statistics.redundancyNumber[m];
        EXPECT_EQ(std::stoi(words.at(2)),
                  printed.network.observations[static_cast<std::size_t>(measure.observation)].line);
        EXPECT_NEAR(std::stod(words.at(3)), measure.value, 6e-6);
        EXPECT_NEAR(std::stod(words.at(5)), printed.adjustment.residual[m] * 1000, 6e-4);
        EXPECT_NEAR(std::stod(words.at(6)), measure.sigma * 1000, 6e-4);
        EXPECT_NEAR(std::stod(words.at(7)), r, 6e-4);
        EXPECT_NEAR(std::stod(words.at(8)), printed.adjustment.residual[m] / measure.sigma / std::sqrt(r),
                    6e-3);
        EXPECT_NEAR(std::stod(words.at(9)), -printed.adjustment.residual[m] * 1000 / r, 6e-3);
        EXPECT_NEAR(std::stod(words.at(10)), 4.1321 * measure.sigma * 1000 / std::sqrt(r), 6e-3);
        EXPECT_NEAR(std::stod(words.at(11)), 4.1321 * std::sqrt((1 - r) / r), 6e-2);
    }
    EXPECT_EQ(row + 1, table.size());
}

TEST(GoodListing, SaysOfEachRowThatNothingChecksIt) {
    RandomNetwork random = MakeNetwork({});
    random.text.Angles("S1", "SPUR", 12, 98, 0.001);
    random.text.Distance("S1", "SPUR", 123.456, 0.002);
    const Printed printed = Print(random.text.Text(), Type::SparseInverse);
    int rows = 0;
    for (const std::string& line : LinesOf(printed.text)) {
        const auto words = WordsOf(line);
        if (words.size() < 10 || words[0] != "S1" || words[1] != "SPUR")
            continue;
        ++rows;
        EXPECT_THAT(line, testing::EndsWith("0.000        -          -          -       -  not checked"));
    }
    EXPECT_EQ(rows, 3);
    EXPECT_THAT(printed.text, HasSubstr("SPUR (position)"));
    ExpectRead(printed);
}

TEST(GoodListing, TellsCorrectionsWithTheirDigitsAndWhoseTheyAre) {
    NetworkSpec spec;
    const Printed printed = Print(MakeNetwork(spec).text.Text(), Type::SparseInverse);
    const auto lines = SectionOf(printed.text, "   no   largest correction");
    ASSERT_EQ(lines.size(), printed.adjustment.iterations.size() + 2);
    for (std::size_t i = 0; i < printed.adjustment.iterations.size(); ++i) {
        const Iteration& iteration = printed.adjustment.iterations[i];
        const auto words = WordsOf(lines[i + 1]);
        EXPECT_NEAR(std::stod(words.at(1)), iteration.largest, 6e-4 * iteration.largest);
        const UnknownOf& of = printed.adjustment.unknowns.of[static_cast<std::size_t>(iteration.unknown)];
        EXPECT_EQ(words.at(3), std::string(1, "XYZ"[of.axis]));
        EXPECT_EQ(words.at(5), printed.network.points[static_cast<std::size_t>(of.point)].name);
    }
}

TEST(GoodListing, TellsBothTailsAndWhichDecides) {
    NetworkSpec spec;
    const std::string input = MakeNetwork(spec).text.Text();
    Parameters parameters;
    const auto decides = [&] {
        std::string lines;
        for (const std::string& line :
             SectionOf(Print(input, Type::SparseInverse, parameters).text, " Solution")) {
            if (line.find("decides") != std::string::npos)
                lines += line.substr(4, 10);
        }
        return lines;
    };
    EXPECT_EQ(decides(), "two-tailedtwo-tailed");
    parameters.globalTails = Tails::One;
    EXPECT_EQ(decides(), "one-tailedtwo-tailed");
    parameters.localTails = Tails::One;
    EXPECT_EQ(decides(), "one-tailedone-tailed");
}

TEST(GoodListing, SaysWhatATypeWithoutInverseDoesNotCompute) {
    const std::string input = MakeNetwork({}).text.Text();
    for (const Type type : {Type::Sparse, Type::L1Norm}) {
        const std::string text = Print(input, type).text;
        EXPECT_THAT(text, HasSubstr("computes no standard deviations, no redundancy numbers"));
        EXPECT_THAT(text, HasSubstr("not computed by this type"));
        EXPECT_THAT(text, HasSubstr("sigma  v/sigma\r\n"));
        EXPECT_THAT(text, Not(HasSubstr("nabla0")));
    }
    EXPECT_THAT(Print(input, Type::L1Norm).text, HasSubstr("the L1 norm is no least-squares solution"));
}

TEST(GoodListing, ComparesRelativeEllipsesWithWhatIsAllowed) {
    RandomNetwork random = MakeNetwork({});
    random.text.pairs = {"S1 S2", "P9 P6"};
    Parameters parameters;
    parameters.allowedConstant = 0.0001;
    parameters.allowedPerLength = 1e-6;
    const Printed printed = Print(random.text.Text(), Type::SparseInverse, parameters);
    const auto lines = SectionOf(printed.text, "  From ");
    ASSERT_EQ(lines.size(), 4u);
    for (std::size_t i = 0; i < 2; ++i) {
        const RelativeEllipse& relative = printed.statistics.relative[i];
        const auto words = WordsOf(lines[i + 1]);
        EXPECT_NEAR(relative.actual, relative.ellipse.major * printed.statistics.wideFactor, 1e-12);
        EXPECT_NEAR(relative.allowed, 0.0001 + 1e-6 * relative.distance, 1e-12);
        EXPECT_NEAR(std::stod(words.at(2)), relative.distance, 6e-6);
        EXPECT_NEAR(std::stod(words.at(7)), relative.actual * 1000, 6e-4);
        EXPECT_NEAR(std::stod(words.at(8)), relative.allowed * 1000, 6e-4);
        EXPECT_NEAR(std::stod(words.at(9)), relative.actual / relative.allowed, 6e-3);
        EXPECT_EQ(words.at(10), "!");
    }
    EXPECT_THAT(printed.text, HasSubstr("2 of 2 relative error ellipses are larger than allowed"));
}

TEST(GoodListing, LeavesOutThePairsOfAPointThatNothingObserves) {
    RandomNetwork random = MakeNetwork({});
    random.text.points.push_back(InputText::Given("LONE", 0, 0, 0));
    random.text.pairs = {"S1 LONE", "S1 S2"};
    Parameters parameters;
    parameters.allowedConstant = 0.0001;
    parameters.allowedPerLength = 0;
    const Printed printed = Print(random.text.Text(), Type::SparseInverse, parameters);
    const auto lines = SectionOf(printed.text, "  From ");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(WordsOf(lines[1]).at(1), "S2");
    EXPECT_THAT(printed.text, HasSubstr("1 of 1 relative error ellipses are larger than allowed"));
}

TEST(GoodListing, TellsWhatRemainsOfTheL1NormOnlyWhereSomethingChecksIt) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    text.fixed = {"A"};
    text.Height("A", "B", 1, 0.001);
    text.Height("A", "B", 1.1, 0.001);
    const std::string two = Print(text.Text(), Type::L1Norm).text;
    EXPECT_THAT(two, HasSubstr("Suspected gross errors"));
    EXPECT_THAT(two, Not(HasSubstr("m0 would be")));
    text.Height("A", "B", 1.001, 0.001);
    EXPECT_THAT(Print(text.Text(), Type::L1Norm).text,
                HasSubstr("Without it m0 would be 1.0000, redundancy 1."));
}

TEST(GoodListing, ShowsTheRotationsOfAnInstrumentThatIsNotLevelled) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    for (std::string& row : random.text.distances) {
        if (row.starts_with("S1 "))
            row.insert(row.find("\r\n"), " T");
    }
    Parameters parameters;
    parameters.tracker = TrackerModel::Rotations;
    const Printed printed = Print(random.text.Text(), Type::SparseInverse, parameters);
    ExpectRead(printed);
    const ReadPoint* station = printed.read.Find("S1");
    ASSERT_NE(station, nullptr);
    EXPECT_NE(station->rotation[0], 0);
    EXPECT_NE(station->rotation[1], 0);
    const auto setups = SectionOf(printed.text, "  Set-up on");
    ASSERT_GT(setups.size(), 2u);
    const auto words = WordsOf(setups[1]);
    ASSERT_EQ(words.size(), 8u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(std::stod(words[2 + i]), station->rotation[i], 2e-5);
        EXPECT_GT(std::stod(words[5 + i]), 0);
    }
    EXPECT_EQ(WordsOf(setups[2]).at(5), "-");
}

TEST(GoodListing, ShowsNoSetUpWhoseDirectionsAreAllLeftOut) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 50, 0, 1),
                   InputText::Given("C", 0, 50, 2), InputText::Given("N", 0, 0, 20)};
    text.Angles("N", "A", 17, 199.99999, 0.001);
    text.Angles("A", "B", 100, ZenithGons({0, 0, 0}, {50, 0, 1}), 0.001);
    text.Angles("A", "C", 0, ZenithGons({0, 0, 0}, {0, 50, 2}), 0.001);
    const std::array<std::array<double, 3>, 4> places{{{0, 0, 0}, {50, 0, 1}, {0, 50, 2}, {0, 0, 20}}};
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t k = 0; k < i; ++k)
            text.Distance(std::string(1, "ABCN"[k]), std::string(1, "ABCN"[i]),
                          SlopeLength(places[k], places[i]), 0.001);
    }
    const auto setups = SectionOf(Print(text.Text(), Type::SparseInverse).text, "  Set-up on");
    ASSERT_EQ(setups.size(), 3u);
    EXPECT_EQ(WordsOf(setups[1]).front(), "A");
}

TEST(GoodListing, ShowsTheUnknownsOfTheWholeNetworkWithTheirDeviations) {
    NetworkSpec spec;
    spec.fixed = 3;
    RandomNetwork random = MakeNetwork(spec);
    Parameters parameters;
    parameters.scale = true;
    parameters.zeroPoint = true;
    parameters.refraction = RefractionModel::Estimated;
    const Printed printed = Print(random.text.Text(), Type::SparseInverse, parameters);
    ExpectRead(printed);
    const auto lines = SectionOf(printed.text, "  Of the whole network");
    ASSERT_EQ(lines.size(), 6u);
    const auto& state = printed.adjustment.state;
    const double values[]{state.meter[0].scale * 1e6, state.meter[0].zeroPoint * 1e3, state.refraction};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(std::stod(lines[i + 1].substr(50, 13)), values[i], 6e-5) << lines[i + 1];
        const auto at = static_cast<Eigen::Index>(i);
        const double deviation =
            std::sqrt(printed.adjustment.cofactors.global(at, at)) * printed.statistics.m0;
        const double unit[]{1e6, 1e3, 1};
        EXPECT_NEAR(std::stod(lines[i + 1].substr(69, 14)), deviation * unit[i], 6e-5) << lines[i + 1];
    }
}

TEST(GoodListing, NamesUnknownsThatCanHardlyBeToldApart) {
    // All distances are nearly of one length, so that a scale looks like a zero point.
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 1000, 0, 0),
                   InputText::Given("C", 500, 860, 0), InputText::Named("P")};
    text.fixed = {"A", "B", "C"};
    text.Distance("A", "B", 1000, 0.001);
    for (int i = 0; i < 2; ++i) {
        for (const char* fixed : {"A", "B"}) {
            text.Distance(fixed, "C", std::hypot(500, 860), 0.001);
            text.Distance(fixed, "P", std::hypot(500, 850), 0.001);
        }
    }
    Parameters parameters;
    parameters.scale = true;
    parameters.zeroPoint = true;
    const Printed printed = Print(text.Text(), Type::SparseInverse, parameters);
    EXPECT_THAT(printed.text, HasSubstr("scale of the distance meter and zero point of the distance meter"));
    EXPECT_THAT(printed.text, HasSubstr("can hardly be told apart"));
}

TEST(FailureListing, NeverLooksLikeAGoodOne) {
    const Failure failure(ErrorNumber::BadNumber, "A word.", {"line 7: Final results", "P1"});
    const std::string text = FailureListing({"/data/A.INP", 1, "now"}, failure);
    EXPECT_TRUE(text.starts_with(" RUN FAILED\r\n"));
    EXPECT_EQ(ReadListingText(text).result, 0);
    EXPECT_THAT(text, HasSubstr("Error 11"));
    EXPECT_THAT(text, HasSubstr("line 7"));
    EXPECT_THAT(text, HasSubstr("What to do"));
    EXPECT_THAT(text, Not(HasSubstr("\r\nFinal")));
}

}  // namespace
