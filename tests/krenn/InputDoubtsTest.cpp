// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "krenn/Errors.h"
#include "krenn/input/InputReader.h"

// Rows that could be read in more than one way, or in one that was not meant: each is read as surely meant,
// or refused with its line and its text.
namespace {

using namespace Krenn;
using testing::HasSubstr;

const std::string kLists =
    "NORL\r\n\r\nTheodolite Stations\r\nST1\r\n\r\nSTATION123\r\n\r\nVERYLONGSTATION\r\n\r\nEND\r\n"
    "Object Points\r\nP7\r\n\r\nTARGET1234\r\n\r\nEND\r\n";
constexpr int kFirstRow = 18;

std::string File(const std::string& title, const std::string& rows) {
    return kLists + title + "\r\n" + rows + "\r\nEND\r\n";
}

Network Read(const std::string& title, const std::string& rows) {
    return ReadInput(File(title, rows));
}

// The number for a row, and that the first detail names its line and holds its text.
ErrorNumber Refusal(const std::string& text, const std::string& row, int line) {
    try {
        ReadInput(text);
    } catch (const Failure& failure) {
        EXPECT_FALSE(failure.details.empty());
        EXPECT_EQ(failure.details.front(), fmt::format("line {}: {}", line, row));
        return failure.number;
    }
    return ErrorNumber::Good;
}

ErrorNumber RefusalOfAngles(const std::string& row) {
    return Refusal(File("Observations", row), row, kFirstRow);
}
ErrorNumber RefusalOfDistance(const std::string& row) {
    return Refusal(File("Distances", row), row, kFirstRow);
}
ErrorNumber RefusalOfHeight(const std::string& row) {
    return Refusal(File("Height differences", row), row, kFirstRow);
}

const std::string kEnd = "Distances \r\nA B 1.0 0.001\r\nEND\r\n";

ErrorNumber RefusalOfPoint(const std::string& row) {
    return Refusal("NORL\r\nObject Points\r\n" + row + "\r\nEND\r\n" + kEnd, row, 3);
}

TEST(Numbers, AreNumbersFromTheirFirstToTheirLastCharacter) {
    for (const char* number : {"1O.5", "--5", "+-5", "0x10", "nan", "inf", "1e400", "1e-400", "1.2.3", "5d3",
                               "1.5e", "12,x", "5\xA0",
                               "\x96"
                               "5",
                               "1'000", "5m", "."})
        EXPECT_NE(RefusalOfDistance(fmt::format("ST1 P7 {} 0.002", number)), ErrorNumber::Good) << number;
    EXPECT_EQ(RefusalOfDistance("ST1 P7 1O.5 0.002"), ErrorNumber::BadNumber);
    EXPECT_EQ(RefusalOfDistance("ST1 P7 1e400 0.002"), ErrorNumber::BadNumber);
}

TEST(Numbers, KeepEveryDigitOfTheFile) {
    for (const char* number :
         {"25.12345", "0.00001", "9999999.99999", "12345.67891", "8.40193", "31.41593"}) {
        const Network network =
            Read("Distances", fmt::format("{:<10}{:<10}{:>13}{:>10}", "ST1", "P7", number, "0.00200"));
        EXPECT_EQ(network.observations.at(0).value, std::stod(number));
        EXPECT_EQ(network.observations.at(0).sigma, 0.002);
    }
    const Network network = Read("Height differences", "ST1       P7            -1.50000     0.00120");
    EXPECT_EQ(network.observations.at(0).value, -1.5);
}

TEST(Numbers, MayStandOffTheirColumnsWithBlanksAround) {
    for (const char* row : {" ST1       P7             25.12345   0.00200", "ST1 P7 25.12345 0.002",
                            "ST1       P7              25.12345   0.00200",
                            "ST1       P7            25.12345   0.00200", "ST1\tP7\t25.12345\t0.002"}) {
        const Network network = Read("Distances", row);
        EXPECT_EQ(network.observations.at(0).value, 25.12345) << row;
        EXPECT_EQ(network.observations.at(0).sigma, 0.002) << row;
    }
}

TEST(Numbers, ThatLostTheirPointAreRefused) {
    EXPECT_EQ(RefusalOfDistance("ST1       P7             2512345    0.00200"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("ST1 P7 25 000200"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfPoint("P7           100050000      -20.25000        3.00000"), ErrorNumber::BadRow);
    EXPECT_EQ(Refusal("NORL\nObject Points\nP7 4500000 5400000 100\nEND\n" + kEnd, "", 0), ErrorNumber::Good);
    EXPECT_EQ(Read("Distances", "ST1 P7 25 0.002").observations.at(0).value, 25);
}

TEST(Commas, BetweenDigitsAreRefused) {
    for (const char* row : {"ST1 P7 25,12345 0.002", "ST1 P7 25,12345", "ST1 P7 1,234.5", "ST1 P7 1.234,5"})
        EXPECT_EQ(RefusalOfDistance(row), ErrorNumber::BadRow) << row;
    EXPECT_EQ(RefusalOfAngles("ST1 P7 100,5 99.1 0.001"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfPoint("P7 1,5 2"), ErrorNumber::BadRow);
}

TEST(Commas, WithoutAFieldAreRefused) {
    for (const char* row : {"ST1,P7,12.5,,0.002", "ST1,P7,12.5,0.002,", ",ST1,P7,12.5,0.002"})
        EXPECT_EQ(RefusalOfDistance(row), ErrorNumber::BadRow) << row;
}

TEST(Commas, ThatSeparateFieldsAreTaken) {
    for (const char* row : {"ST1,P7,12.5,0.002", "ST1, P7, 12, 5"})
        EXPECT_NEAR(Read("Distances", row).observations.at(0).value, 12.25, 0.25) << row;
}

TEST(Fields, ThatAreMissingAreRefused) {
    EXPECT_EQ(RefusalOfAngles("ST1       P7        123.45670            0.00050 0.00050"),
              ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfAngles("ST1       P7        123.45670   99.12340 0.00050"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("ST1                      25.12345   0.00200"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("ST1                      25.12345   0.00200   T"), ErrorNumber::BadNumber);
    EXPECT_EQ(RefusalOfHeight("ST1       P7            -1.50000"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfPoint("P7            1000.50000      -20.25000"), ErrorNumber::BadRow);
}

TEST(Fields, OfALineAreNotSoughtOnTheNext) {
    for (const char* rows :
         {"ST1 P7 25.5\r\n 0.002", "ST1 25.5 0.002\r\n 7 P7 26.5 0.002",
          "ST1       P7             25.12345\r\n                                    0.00200"})
        EXPECT_THROW(Read("Distances", rows), Failure) << rows;
}

TEST(Fields, ThatAreTooManyAreRefused) {
    EXPECT_EQ(RefusalOfDistance("ST1       P7             25.12345   0.00200   X"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfHeight("ST1       P7            -1.50000     0.00120   T"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("ST1       P7             25 12345   0.00200"), ErrorNumber::BadRow);
}

TEST(Fields, ThatRunTogetherAreCutOnlyWhereTheWriterPutsThem) {
    const Network network = Read("Observations", "ST1       P7        123.45670   99.12340 0.0010012.00000");
    EXPECT_EQ(network.observations.at(0).sigma, 0.001);
    EXPECT_EQ(network.observations.at(1).sigma, 12);
    for (const char* row : {" ST1       P7        123.45670   99.12340 0.0010012.00000",
                            "ST1       P7        123.45670   99.12340  0.0010012.00000",
                            "ST1       P7        123.4567899.12340 0.00050 0.00050",
                            "ST1       P7        123.45670   99.123400.00050 0.00050",
                            "ST1       P7        123.45670   99.12340 0.000500.00050",
                            "ST1       P7        123.45670   99.12340 0.00100112.00000",
                            "ST1 P7 123.45670 99.12340 0.0010012.00000"})
        EXPECT_EQ(RefusalOfAngles(row), ErrorNumber::BadNumber) << row;
}

TEST(Fields, ThatReachIntoTheNextColumnsAreRefused) {
    EXPECT_EQ(RefusalOfDistance("ST1       P7        1234567.1234510 0.00200"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfPoint("NINEDEEPS1 345678.12345 -1234567.54321      103.99000"), ErrorNumber::BadRow);
}

TEST(Names, ThatRunTogetherAreCutOnlyIfTheListsHaveThem) {
    const Network network = Read("Distances", "STATION123P7             25.12345   0.00200");
    EXPECT_EQ(network.points.at(static_cast<std::size_t>(network.observations.at(0).from)).name,
              "STATION123");
    EXPECT_EQ(network.points.at(static_cast<std::size_t>(network.observations.at(0).to)).name, "P7");
    for (const char* row :
         {"STATION124P7             25.12345   0.00200", "STATION123P8             25.12345   0.00200",
          "S ATION123P7             25.12345   0.00200"})
        EXPECT_EQ(RefusalOfDistance(row), ErrorNumber::BadRow) << row;
}

TEST(Names, ThatRunTogetherAndBreakTheLineAreCut) {
    const Network network =
        Read("Observations",
             "STATION123VERYLONGSTATION\r\n                    123.45670   99.12340 0.00100 0.00100");
    EXPECT_EQ(network.points.at(static_cast<std::size_t>(network.observations.at(0).from)).name,
              "STATION123");
    EXPECT_EQ(network.points.at(static_cast<std::size_t>(network.observations.at(0).to)).name,
              "VERYLONGSTATION");
}

TEST(Names, AreNoNumbersThatTheListsDoNotHave) {
    EXPECT_EQ(RefusalOfDistance("ST1 25.12345 0.002 0.002"), ErrorNumber::BadRow);
    EXPECT_EQ(Refusal(kLists + "Object Points\n25.12\n\nEND\nDistances\nST1 25.12 5.5 0.002\nEND\n", "", 0),
              ErrorNumber::Good);
    EXPECT_EQ(RefusalOfPoint("25.12345"), ErrorNumber::BadRow);
    EXPECT_EQ(Read("Distances", "12 13 25.5 0.002").observations.size(), 1u);
}

TEST(Names, BeginWhereNamesBegin) {
    EXPECT_EQ(RefusalOfPoint("              1000.50000      -20.25000        3.00000 4"),
              ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfPoint("              12"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("           P7   12          25.12345   0.00200"), ErrorNumber::BadRow);
}

TEST(Rows, OfAnotherSectionAreRefused) {
    EXPECT_EQ(RefusalOfDistance("ST1       P7        123.45670   99.12340 0.00050 0.00050"),
              ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfAngles("ST1       P7             25.12345   0.00200"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("ST1       P7            11.50000     0.00120"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfHeight("ST1       P7             25.12345   0.00200"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfHeight("P7            1000.50000      -20.25000        3.00000"), ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfDistance("PROJECT = DAM 5"), ErrorNumber::BadNumber);
}

TEST(Lists, TakeNoErrorsForCoordinates) {
    const std::string errors = "                1.00E+03       1.00E+03       1.00E+03\r\n";
    for (const char* name : {"VERYLONGPOINT", "P7"})
        EXPECT_EQ(
            Refusal(fmt::format("NORL\r\nObject Points\r\n{}\r\n{}END\r\n{}", name, errors, kEnd), name, 3),
            ErrorNumber::BadRow);
    EXPECT_EQ(RefusalOfPoint("P7              1.00E+03       1.00E+03       1.00E+03"), ErrorNumber::BadRow);
}

TEST(Lists, TakeNoShortNameAndItsNextLineForARow) {
    EXPECT_THROW(ReadInput("NORL\nObject Points\nP7\n    1000.5 -20.25 3.0\nEND\n" + kEnd), Failure);
    EXPECT_THROW(ReadInput("NORL\nObject Points\nP7 1 2 3\n101 5.0 6.0\nEND\n" + kEnd), Failure);
}

TEST(Lists, MissNoEmptyLineBehindANameAlone) {
    EXPECT_EQ(Refusal("NORL\nObject Points\nP7\nP8 1 2 3\nEND\n" + kEnd, "P7", 3), ErrorNumber::BadRow);
    EXPECT_EQ(Refusal("NORL\nObject Points\nP8 1 2 3\nP7\nEND\n" + kEnd, "P7", 4), ErrorNumber::BadRow);
}

TEST(Lists, NoteErrorsOtherThanTheWriters) {
    const Network network =
        ReadInput("NORL\nObject Points\nP7 1 2 3\n   1.00E-03 1.00E-03 1.00E-03\nEND\n" + kEnd);
    ASSERT_FALSE(network.notes.empty());
    EXPECT_THAT(network.notes.front(), HasSubstr("not used: line 4"));
}

TEST(Sections, AreEndedByTheirEnd) {
    EXPECT_EQ(Refusal("NORL\nDistances\nA B 1.0 0.001\nHeight differences\nEND\n", "Height differences", 4),
              ErrorNumber::BadRow);
    EXPECT_EQ(Refusal("NORL\nDistances\nA B 1.0 0.001\n", "A B 1.0 0.001", 3), ErrorNumber::BadRow);
    EXPECT_EQ(Refusal("NORL\nDistances\nA B 1.0 0.001\nEND\nEND\n", "END", 5), ErrorNumber::BadRow);
}

TEST(StandardErrors, FitTheirColumns) {
    EXPECT_EQ(RefusalOfDistance("ST1 P7 25.5 10000.5"), ErrorNumber::ValueOutOfRange);
    EXPECT_EQ(RefusalOfDistance("ST1 P7 25.5 1e-13"), ErrorNumber::ValueOutOfRange);
}

}  // namespace
