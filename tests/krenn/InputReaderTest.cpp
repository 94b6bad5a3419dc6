// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/InputReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "krenn/Errors.h"
#include "tests/krenn/InputText.h"

namespace {

using namespace Krenn;
using KrennTest::InputText;

// One distance, so that a file about something else is not refused for having no observation.
const std::string kOneDistance = "Distances \r\nA B 1.0 0.001\r\nEND\r\n";

Network Read(const std::string& body) {
    return ReadInput("NORL\r\n\r\n" + body);
}

ErrorNumber NumberFor(const std::string& body, std::string* details = nullptr) {
    try {
        Read(body);
    } catch (const Failure& failure) {
        if (details != nullptr) {
            *details = failure.what();
            for (const std::string& detail : failure.details)
                *details += "|" + detail;
        }
        return failure.number;
    }
    return ErrorNumber::Good;
}

TEST(ReadInput, NotesTheFirstTwentyNamesThatStandInNoList) {
    InputText text;
    text.points.push_back(InputText::Given("A", 0, 0, 10));
    const auto add = [&](int number) { text.Height("A", "N" + std::to_string(number), 1, 0.001); };
    for (int number = 1; number <= 20; ++number)
        add(number);
    const std::string note = "Names of observations that stand in no list were taken as points ";
    const auto twenty = ReadInput(text.Text()).notes;
    ASSERT_EQ(twenty.size(), 1u);
    EXPECT_THAT(twenty[0], testing::StartsWith(note + "(20): N1, N2, N3"));
    EXPECT_THAT(twenty[0], testing::EndsWith("N19, N20"));
    add(21);
    const auto more = ReadInput(text.Text()).notes;
    EXPECT_THAT(more.at(0), testing::StartsWith(note + "(21): N1, N2, N3"));
    EXPECT_THAT(more.at(0), testing::EndsWith("N19, N20, ..."));
}

TEST(ReadInput, ReadsAFileAsTheWriterMakesIt) {
    InputText text;
    text.stations.push_back(InputText::Named("ST1"));
    text.points.push_back(InputText::Given("P7", 1000.5, -20.25, 3));
    text.points.push_back(InputText::Named("P8"));
    text.Distance("ST1", "P7", 25.12345, 0.002);
    text.Height("P7", "P8", -1.5, 0.001);
    text.Angles("ST1", "P7", 123.4567, 99.1234, 0.0005);
    text.fixed.push_back("P7");
    text.pairs.push_back("P7 P8");
    const Network network = ReadInput(text.Text());
    EXPECT_EQ(network.project, "DAM");
    EXPECT_EQ(network.task, "NORTH");
    ASSERT_EQ(network.points.size(), 3u);
    EXPECT_TRUE(network.points[0].inStationList);
    EXPECT_FALSE(network.points[0].hasGiven);
    EXPECT_TRUE(network.points[1].hasGiven);
    EXPECT_TRUE(network.points[1].isFixed);
    EXPECT_DOUBLE_EQ(network.points[1].given[1], -20.25);
    ASSERT_EQ(network.observations.size(), 4u);
    EXPECT_EQ(network.observations[0].kind, Kind::Distance);
    EXPECT_DOUBLE_EQ(network.observations[0].value, 25.12345);
    EXPECT_EQ(network.observations[1].kind, Kind::HeightDifference);
    EXPECT_DOUBLE_EQ(network.observations[1].value, -1.5);
    EXPECT_EQ(network.observations[2].kind, Kind::Direction);
    EXPECT_EQ(network.observations[3].kind, Kind::ZenithAngle);
    EXPECT_DOUBLE_EQ(network.observations[3].value, 99.1234);
    EXPECT_DOUBLE_EQ(network.observations[3].sigma, 0.0005);
    EXPECT_EQ(network.relativePairs.size(), 1u);
    EXPECT_TRUE(network.notes.empty());
}

TEST(ReadInput, JoinsRowsBrokenByAnOverlongStation) {
    const Network network = Read(
        "Observations\r\nVERYLONGSTATION\r\n"
        "          P7        123.45670   99.12340 0.00050 0.00050\r\nEND\r\n");
    ASSERT_EQ(network.observations.size(), 2u);
    EXPECT_EQ(network.points[0].name, "VERYLONGSTATION");
    EXPECT_EQ(network.points[1].name, "P7");
    EXPECT_EQ(network.observations[0].line, 4);
}

TEST(ReadInput, JoinsRowsBrokenByBothNames) {
    const Network network = Read(
        "Distances \r\nVERYLONGSTATION\r\n          VERYLONGTARGET\r\n"
        "                         25.12345   0.00200   T\r\n"
        "A         B                25.00000   0.00200\r\nEND\r\n");
    ASSERT_EQ(network.observations.size(), 2u);
    EXPECT_TRUE(network.observations[0].isTracker);
    EXPECT_FALSE(network.observations[1].isTracker);
    EXPECT_EQ(network.trackerDistances, 1);
}

TEST(ReadInput, JoinsRowsBrokenByANumberThatPassesItsColumn) {
    const Network network = Read(
        "Observations\r\nST1       P7        123.45670   99.12340 10.00050\r\n"
        "                                                 0.00050\r\nEND\r\n");
    ASSERT_EQ(network.observations.size(), 2u);
    EXPECT_DOUBLE_EQ(network.observations[0].sigma, 10.0005);
    EXPECT_DOUBLE_EQ(network.observations[1].sigma, 0.0005);
}

TEST(ReadInput, TakesCoordinatesOfAnOverlongNameFromTheNextLine) {
    const Network network = Read(
        "Object Points\r\nVERYLONGPOINT\r\n"
        "              1.00000        2.00000        3.00000\r\n"
        "                1.00E+03       1.00E+03       1.00E+03\r\nP2\r\n\r\nEND\r\n" +
        kOneDistance);
    EXPECT_TRUE(network.points[0].hasGiven);
    EXPECT_DOUBLE_EQ(network.points[0].given[2], 3);
    EXPECT_FALSE(network.points[1].hasGiven);
}

TEST(ReadInput, TakesCoordinateRowsWithoutTheSecondLine) {
    const Network network = Read("Object Points\nP1 1 2 3\nP2 4 5 6\nEND\n" + kOneDistance);
    EXPECT_DOUBLE_EQ(network.points[1].given[0], 4);
}

TEST(ReadInput, TakesANumericNameForAName) {
    const Network network =
        Read("Object Points\n101\n\n102 1 2 3\n    1.00E+03 1.00E+03 1.00E+03\n103\n\nEND\n" + kOneDistance);
    EXPECT_EQ(network.points[0].name, "101");
    EXPECT_FALSE(network.points[0].hasGiven);
    EXPECT_DOUBLE_EQ(network.points[1].given[0], 1);
    EXPECT_EQ(network.points[2].name, "103");
}

TEST(ReadInput, TakesAFileEditedByHand) {
    const Network network = Read(
        "\n  OBSERVATIONS  \n\n  st1\tp7  100.5  98.0 0.001 0.001  \n\nend\n"
        "distances\nst1,p7,12.5,0.002 t\n  END");
    ASSERT_EQ(network.points.size(), 2u);
    EXPECT_EQ(network.points[0].name, "ST1");
    EXPECT_EQ(network.observations.size(), 3u);
    EXPECT_TRUE(network.observations[2].isTracker);
    ASSERT_EQ(network.notes.size(), 1u);
    EXPECT_THAT(network.notes[0], testing::HasSubstr("ST1, P7"));
}

TEST(ReadInput, DoesNotJoinAnIndentedEnd) {
    EXPECT_EQ(NumberFor("Distances \r\nA\r\n  END\r\n"), ErrorNumber::BadRow);
}

TEST(ReadInput, TakesZenithAndDistanceOfZeroAsNotObserved) {
    const Network network = Read(
        "Distances \r\nA B 0.00000 0.00000\r\nA C 5 0.001\r\nEND\r\n"
        "Observations\r\nA B 10.0 0.00000 0.001 0.00000\r\nEND\r\n");
    EXPECT_EQ(network.observations.size(), 2u);
    EXPECT_EQ(network.zenithsNotObserved, 1);
    EXPECT_EQ(network.distancesNotObserved, 1);
}

TEST(ReadInput, MergesAStationThatIsAPointToo) {
    const Network network =
        Read("Theodolite Stations\r\nA\r\n\r\nEND\r\nObject Points\r\nA 1 2 3\r\nEND\r\n" + kOneDistance);
    ASSERT_EQ(network.points.size(), 2u);
    EXPECT_TRUE(network.points[0].inStationList);
    EXPECT_TRUE(network.points[0].hasGiven);
}

TEST(ReadInput, IgnoresTheEndOfFileCharacterOfDos) {
    EXPECT_EQ(Read(kOneDistance + "\x1A").observations.size(), 1u);
}

TEST(ReadInput, NamesTheLineOfAWordWhereANumberBelongs) {
    std::string details;
    EXPECT_EQ(NumberFor("Distances \r\nA B 1.0 0.001\r\nA C twelve 0.001\r\nEND\r\n", &details),
              ErrorNumber::BadNumber);
    EXPECT_THAT(details, testing::HasSubstr("line 5: A C twelve 0.001"));
    EXPECT_THAT(details, testing::HasSubstr("twelve"));
}

TEST(ReadInput, RefusesADecimalComma) {
    EXPECT_EQ(NumberFor("Distances \r\nA B 1,5 0.001\r\nEND\r\n"), ErrorNumber::BadRow);
}

TEST(ReadInput, RefusesRowsWithTooFewOrTooManyFields) {
    EXPECT_EQ(NumberFor("Distances \r\nA B 1.0\r\nEND\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor("Distances \r\nA B 1.0 0.001 X\r\nEND\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor("Height differences\r\nA B 1.0 0.001 5\r\nEND\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor("Observations\r\nA B 1.0 99 0.001 0.001 7\r\nEND\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor("Object Points\r\nA 1 2\r\nEND\r\n" + kOneDistance), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor("Object Points\r\nA 1 2 3 4\r\nEND\r\n" + kOneDistance), ErrorNumber::BadRow);
}

TEST(ReadInput, RefusesTextOutsideTheSections) {
    EXPECT_EQ(NumberFor(kOneDistance + "stray\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor("Control Information\r\nstray\r\n" + kOneDistance), ErrorNumber::BadRow);
}

TEST(ReadInput, RefusesStandardErrorsOfZeroAndBelow) {
    std::string details;
    EXPECT_EQ(NumberFor("Distances \r\nA B 1.0 0.00000\r\nEND\r\n", &details), ErrorNumber::BadStandardError);
    EXPECT_THAT(details, testing::HasSubstr("line 4: A B 1.0 0.00000"));
    EXPECT_EQ(NumberFor("Observations\r\nA B 1 99 0.001 -1\r\nEND\r\n"), ErrorNumber::BadStandardError);
    EXPECT_EQ(NumberFor("Observations\r\nA B 1 99 0 0.001\r\nEND\r\n"), ErrorNumber::BadStandardError);
    EXPECT_EQ(NumberFor("Height differences\r\nA B 1 0\r\nEND\r\n"), ErrorNumber::BadStandardError);
}

TEST(ReadInput, RefusesValuesOutOfRange) {
    for (const char* row :
         {"Distances \r\nA B -1.0 0.001\r\n", "Distances \r\nA B 1e9 0.001\r\n",
          "Observations\r\nA B 401 99 0.001 0.001\r\n", "Observations\r\nA B 1 200 0.001 0.001\r\n",
          "Observations\r\nA B 1 -5 0.001 0.001\r\n", "Distances \r\nA B 1.0 1e20\r\n",
          "Height differences\r\nA B 1e9 0.001\r\n", "Object Points\r\nA 2e9 0 0\r\n"})
        EXPECT_EQ(NumberFor(std::string(row) + "END\r\n" + kOneDistance), ErrorNumber::ValueOutOfRange)
            << row;
}

TEST(ReadInput, RefusesASightFromAPointToItself) {
    std::string details;
    EXPECT_EQ(NumberFor("Distances \r\nA a 1.0 0.001\r\nEND\r\n", &details), ErrorNumber::ZeroLengthSight);
    EXPECT_THAT(details, testing::HasSubstr("line 4"));
    EXPECT_EQ(NumberFor("Observations\r\nA A 1 99 0.001 0.001\r\nEND\r\n"), ErrorNumber::ZeroLengthSight);
}

TEST(ReadInput, RefusesContradictingCoordinates) {
    EXPECT_EQ(NumberFor("Object Points\r\nA 1 2 3\r\nA 1 2 4\r\nEND\r\n" + kOneDistance),
              ErrorNumber::ContradictingCoordinates);
    EXPECT_EQ(NumberFor("Object Points\r\nA 1 2 3\r\nA 1 2 3\r\nEND\r\n" + kOneDistance), ErrorNumber::Good);
}

TEST(ReadInput, RefusesFixedPointsWithoutCoordinates) {
    std::string details;
    EXPECT_EQ(NumberFor(kOneDistance + "Fixed Coordinates\r\nB\r\nEND\r\n", &details),
              ErrorNumber::FixedWithoutCoordinates);
    EXPECT_THAT(details, testing::HasSubstr("B"));
}

TEST(ReadInput, RefusesUnknownNamesUnderFixedAndPairs) {
    EXPECT_EQ(NumberFor(kOneDistance + "Fixed Coordinates\r\nX\r\nEND\r\n"), ErrorNumber::UnknownName);
    EXPECT_EQ(NumberFor(kOneDistance + "Relative error point pairs\r\nA X\r\nEND\r\n"),
              ErrorNumber::UnknownName);
    EXPECT_EQ(NumberFor(kOneDistance + "Relative error point pairs\r\nA\r\nEND\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(NumberFor(kOneDistance + "Relative error point pairs\r\nA A\r\nEND\r\n"), ErrorNumber::BadRow);
}

TEST(ReadInput, RefusesAPointFixedTwice) {
    EXPECT_EQ(NumberFor("Object Points\r\nA 1 2 3\r\nEND\r\n" + kOneDistance +
                        "Fixed Coordinates\r\nA\r\nA\r\nEND\r\n"),
              ErrorNumber::DuplicateFixed);
}

TEST(ReadInput, RefusesAFileWithoutObservations) {
    EXPECT_EQ(NumberFor("Distances \r\nEND\r\n"), ErrorNumber::NoObservations);
}

TEST(ReadInput, RefusesWhatIsNoInputFile) {
    EXPECT_THROW(ReadInput(""), Failure);
    EXPECT_EQ(NumberFor("some text\r\nwithout a title\r\n"), ErrorNumber::NotAnInputFile);
    EXPECT_EQ(NumberFor(std::string("Distances \r\nA B \0 1", 19)), ErrorNumber::NotAnInputFile);
}

TEST(ReadInput, RefusesAMillionCharactersInALine) {
    const std::string name(1000000, 'A');
    EXPECT_EQ(NumberFor("Object Points\r\n" + name + "\r\nEND\r\n" + kOneDistance), ErrorNumber::BadRow);
    std::string words = "Distances \r\n";
    for (int i = 0; i < 500000; ++i)
        words += "1 ";
    EXPECT_NE(NumberFor(words + "\r\nEND\r\n"), ErrorNumber::Good);
    EXPECT_EQ(NumberFor(std::string(1000000, 'x')), ErrorNumber::NotAnInputFile);
}

TEST(ReadInput, RefusesEveryCutOfAGoodFile) {
    InputText text;
    text.stations.push_back(InputText::Named("ST1"));
    text.points.push_back(InputText::Given("P7", 1000.5, -20.25, 3));
    text.Distance("ST1", "P7", 25.12345, 0.002);
    text.Angles("ST1", "P7", 123.4567, 99.1234, 0.0005);
    const std::string whole = text.Text();
    ASSERT_TRUE(whole.ends_with("END\r\n"));
    for (std::size_t length = 0; length < whole.size() - 2; ++length) {
        try {
            ReadInput(std::string_view(whole).substr(0, length));
            ADD_FAILURE() << "cut behind " << length << " characters";
        } catch (const Failure& failure) {
            EXPECT_NE(failure.number, ErrorNumber::Internal);
        }
    }
    EXPECT_NO_THROW(ReadInput(whole));
}

TEST(ReadInput, TellsTheFirstFaultsOfAFileTogether) {
    std::string details;
    EXPECT_EQ(
        NumberFor("Distances \r\nA B x 0.001\r\nA C 1.0 0.001\r\nA D 1.0 0\r\nA E 1.0\r\nEND\r\n", &details),
        ErrorNumber::BadNumber);
    EXPECT_EQ(
        details,
        "\"x\" stands where a number belongs (station, target, distance, standard error).|line 4: A B x "
        "0.001|The standard error of the distance is 0.|line 6: A D 1.0 0|The row has 3 fields; it needs "
        "4: station, target, distance, standard error.|line 7: A E 1.0");
}

TEST(ReadInput, StopsAfterTwentyFaults) {
    std::string rows = "Distances \r\n";
    for (int i = 0; i < 50; ++i)
        rows += "A B x 0.001\r\n";
    std::string details;
    EXPECT_EQ(NumberFor(rows + "END\r\n", &details), ErrorNumber::BadNumber);
    EXPECT_THAT(details, testing::HasSubstr("line 23: "));
    EXPECT_THAT(details, testing::Not(testing::HasSubstr("line 24: ")));
    EXPECT_TRUE(details.ends_with("|What follows was not read."));
}

TEST(ReadInput, TellsAMistypedTitleOnce) {
    std::string details;
    EXPECT_EQ(NumberFor(kOneDistance + "Observation\r\nA B 1.0 99 0.001 0.001\r\nEND\r\n", &details),
              ErrorNumber::BadRow);
    EXPECT_THAT(details, testing::EndsWith("|line 6: Observation"));
}

TEST(ReadInput, RefusesRowsBelowAMistypedFirstTitle) {
    std::string details;
    EXPECT_EQ(NumberFor("Object Point\r\nA 1 2 3\r\nEND\r\n" + kOneDistance, &details), ErrorNumber::BadRow);
    EXPECT_THAT(details, testing::EndsWith("|line 3: Object Point"));
    EXPECT_EQ(NumberFor("TITLE = Object Point\r\n\r\nEND\r\n" + kOneDistance), ErrorNumber::BadRow);
}

TEST(ReadInput, TakesNothingOfARefusedRowForAnother) {
    std::string details;
    EXPECT_EQ(NumberFor("Object Points\r\nP1 1 2 x\r\n"
                        "                1.00E+03       1.00E+03       1.00E+03\r\nEND\r\n"
                        "Observations\r\nVERYLONGSTATION\r\n"
                        "          P7        12x.45670   99.12340 0.00050 0.00050\r\nEND\r\n",
                        &details),
              ErrorNumber::BadNumber);
    EXPECT_EQ(std::count(details.begin(), details.end(), '|'), 3) << details;
}

}  // namespace
