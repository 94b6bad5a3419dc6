// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/Judgement.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct Judged {
    Network network;
    Statistics statistics;
    Judgement judgement;
};

Judged JudgeNetwork(Network network, Type type = Type::SparseInverse) {
    Judged judged;
    judged.network = std::move(network);
    const Adjustment adjustment = Adjust(judged.network, type);
    judged.statistics = Evaluate(judged.network, adjustment);
    judged.judgement = Judge(judged.network, adjustment, judged.statistics);
    return judged;
}

NetworkSpec Braced() {
    NetworkSpec spec;
    spec.stations = 8;
    spec.points = 12;
    spec.given = 12;
    return spec;
}

Network NetworkOf(const NetworkSpec& spec) {
    return ReadInput(MakeNetwork(spec).text.Text());
}

TEST(Judge, CallsANetworkGoodThatIsGood) {
    const Judged judged = JudgeNetwork(NetworkOf(Braced()));
    EXPECT_EQ(judged.judgement.level, Judgement::Level::Good);
    EXPECT_THAT(judged.judgement.doubts, IsEmpty());
    EXPECT_THAT(judged.judgement.remarks, IsEmpty());
    EXPECT_FALSE(judged.judgement.hasSuspect);
}

TEST(Judge, NamesTheGrossErrorItsSizeAndWhatRemainsWithoutIt) {
    Network network = NetworkOf(Braced());
    network.observations[20].value += 0.5;
    const Observation wrong = network.observations[20];
    ASSERT_EQ(wrong.kind, Kind::Distance);
    const Judged judged = JudgeNetwork(network);
    EXPECT_EQ(judged.judgement.level, Judgement::Level::Doubtful);
    EXPECT_TRUE(judged.judgement.hasSuspect);
    ASSERT_FALSE(judged.judgement.doubts.empty());
    const std::string& first = judged.judgement.doubts.front();
    EXPECT_THAT(first,
                HasSubstr("Slope distance " + network.points[static_cast<std::size_t>(wrong.from)].name));
    EXPECT_THAT(first, HasSubstr(fmt::format("line {}", wrong.line)));
    EXPECT_THAT(first, testing::ContainsRegex("gross error of (49[0-9]|50[0-9])\\.[0-9]+ mm"));
    EXPECT_THAT(first, testing::ContainsRegex("Without it m0 would be (0.[89]|1.[01])"));
    EXPECT_THAT(judged.judgement.doubts, Contains(HasSubstr("Take out the largest first")));
}

// A triangle of levelled lines has one check for all three, and suspects the one that needs the least error.
TEST(Judge, SaysWhichObservationsTheNetworkCannotTellApart) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B"), InputText::Named("C")};
    text.fixed = {"A"};
    text.Height("A", "B", 1, 0.001);
    text.Height("B", "C", 2, 0.002);
    text.Height("C", "A", -2.9, 0.001);
    for (const Type type : {Type::SparseInverse, Type::Dense}) {
        const Judged judged = JudgeNetwork(ReadInput(text.Text()), type);
        EXPECT_EQ(judged.statistics.worst, 1);
        ASSERT_FALSE(judged.judgement.doubts.empty());
        EXPECT_THAT(judged.judgement.doubts.front(), HasSubstr("error of 100.00 mm"));
        EXPECT_THAT(judged.judgement.doubts.front(), HasSubstr("cannot tell it from 2 other observations"));
    }
}

TEST(Judge, BlamesTheStandardErrorsWhenNoObservationStandsOut) {
    NetworkSpec spec = Braced();
    spec.noise = 2.2;
    const Judged judged = JudgeNetwork(NetworkOf(spec));
    EXPECT_GT(judged.statistics.flagged, 0);
    EXPECT_EQ(judged.judgement.level, Judgement::Level::Doubtful);
    EXPECT_FALSE(judged.judgement.hasSuspect);
    EXPECT_THAT(judged.judgement.doubts, ElementsAre(HasSubstr("may be too small, by a factor of 1.9")));
}

TEST(Judge, NamesTheKindOfTheLargestResidualsForItsRedundancy) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    text.fixed = {"A"};
    for (const double height : {1.000, 1.000, 1.004, 1.004})
        text.Height("A", "B", height, 0.001);
    const Judged judged = JudgeNetwork(ReadInput(text.Text()));
    EXPECT_THAT(judged.judgement.doubts,
                ElementsAre(HasSubstr("by a factor of 2.31 (largest kind: height differences 2.31)")));
}

TEST(Judge, TellsStandardErrorsThatAreTooLarge) {
    NetworkSpec spec = Braced();
    spec.noise = 0.3;
    const Judged judged = JudgeNetwork(NetworkOf(spec));
    EXPECT_EQ(judged.judgement.level, Judgement::Level::Doubtful);
    EXPECT_THAT(judged.judgement.doubts, ElementsAre(HasSubstr("too large by a factor of 3.")));
}

TEST(Judge, CallsANetworkWithoutRedundancyNotChecked) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Named("B")};
    text.Distance("A", "B", 100, 0.001);
    text.Angles("A", "B", 0, 99, 0.001);
    for (const Type type : {Type::SparseInverse, Type::Sparse, Type::L1Norm}) {
        const Judged judged = JudgeNetwork(ReadInput(text.Text()), type);
        EXPECT_EQ(judged.judgement.level, Judgement::Level::NotChecked);
        EXPECT_THAT(judged.judgement.doubts, ElementsAre(HasSubstr("nothing is checked")));
    }
}

TEST(Judge, RemarksOnPointsThatNothingChecks) {
    RandomNetwork random = MakeNetwork(Braced());
    random.text.Angles("S1", "SPUR", 12, 98, 0.001);
    random.text.Distance("S1", "SPUR", 123.456, 0.002);
    const Judged judged = JudgeNetwork(ReadInput(random.text.Text()));
    EXPECT_EQ(judged.judgement.level, Judgement::Level::Remarks);
    EXPECT_THAT(judged.judgement.remarks, ElementsAre(HasSubstr("SPUR (position)")));
    EXPECT_EQ(judged.statistics.notChecked, 3);
}

TEST(Judge, NamesAPointThatIsPoorlyHeld) {
    RandomNetwork random = MakeNetwork(Braced());
    random.text.Angles("S1", "FAR", 12, 98, 0.05);
    random.text.Distance("S1", "FAR", 900, 0.05);
    random.text.Angles("S1", "FAR", 12.01, 98.01, 0.05);
    random.text.Distance("S1", "FAR", 900.01, 0.05);
    const Judged judged = JudgeNetwork(ReadInput(random.text.Text()));
    ASSERT_EQ(judged.judgement.poorlyHeld.size(), 1u);
    EXPECT_EQ(judged.network.points[static_cast<std::size_t>(judged.judgement.poorlyHeld[0])].name, "FAR");
    EXPECT_THAT(judged.judgement.remarks, Contains(HasSubstr("poorly held")));
}

TEST(Judge, FindsTheGrossErrorInTheL1NormAsWell) {
    Network network = NetworkOf(Braced());
    network.observations[20].value += 0.5;
    const Judged judged = JudgeNetwork(network, Type::L1Norm);
    EXPECT_TRUE(judged.judgement.hasSuspect);
    EXPECT_THAT(judged.judgement.doubts,
                ElementsAre(HasSubstr(fmt::format("line {}", network.observations[20].line))));
    EXPECT_THAT(judged.judgement.remarks, Contains(HasSubstr("Type -1 computes no standard deviations")));
}

// Among very many observations some exceed any bound by chance; that is no reason for doubt.
TEST(Judge, TakesAFewFlagsAmongManyObservationsForChance) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    text.fixed = {"A"};
    std::mt19937 random(7);
    std::normal_distribution<double> normal(0, 0.001);
    for (int i = 0; i < 6000; ++i)
        text.Height("A", "B", 1 + normal(random), 0.001);
    const Judged judged = JudgeNetwork(ReadInput(text.Text()));
    ASSERT_GT(judged.statistics.flagged, 0);
    EXPECT_TRUE(judged.statistics.passes);
    EXPECT_EQ(judged.judgement.level, Judgement::Level::Remarks);
    EXPECT_THAT(judged.judgement.remarks, ElementsAre(HasSubstr("by chance about 6")));
}

}  // namespace
