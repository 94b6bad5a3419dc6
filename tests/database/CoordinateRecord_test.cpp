// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CoordinateRecord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "database/DatabaseError.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

const CoordinateRecord Full{"P1",    "112026", 100.5,   -200.25, 12.345678, 123.44,
                            0.00123, 0.0004,   0.00005, 0.5,     -0.25};

std::string LineOf(std::int32_t typeCode, const CoordinateRecord& record) {
    return RecordLine(DatabaseTypeOf(typeCode), record, "D:\\N\\FILE.DAT");
}

std::string Refusal(std::int32_t typeCode, const CoordinateRecord& record) {
    const RunTimeError error = ErrorOf([&] { LineOf(typeCode, record); });
    EXPECT_EQ(error.Number, RecordRefused);
    return error.Description;
}

TEST(RecordLineOf, ThreeDimensionalDataHolds91Columns) {
    EXPECT_EQ(LineOf(3, Full),
              //        1         2         3         4         5         6         7         8         9
              // 34567890123456789012345678901234567890123456789012345678901234567890123456789012345678901
              "P1       112026   100.50000  -200.25000   12.34568 123.4 .00123 .00040 .00005 .50000-.25000");
    EXPECT_EQ(LineOf(3, Full).size(), 91u);
}

TEST(RecordLineOf, MonumentsHold71Columns) {
    EXPECT_EQ(LineOf(2, Full),
              //        1         2         3         4         5         6         7
              // 345678901234567890123456789012345678901234567890123456789012345678901
              "P1       112026   100.50000  -200.25000 123.4 .00123 .00040 .5000-.2500");
    EXPECT_EQ(LineOf(2, Full).size(), 71u);
}

TEST(RecordLineOf, BenchmarksHold43Columns) {
    EXPECT_EQ(LineOf(1, Full),
              //        1         2         3         4
              // 34567890123456789012345678901234567890123
              "P1       112026   12.34568 .00005 .500-.250");
    EXPECT_EQ(LineOf(1, Full).size(), 43u);
}

TEST(RecordLineOf, IdealsHold61Columns) {
    EXPECT_EQ(LineOf(4, Full),
              //        1         2         3         4         5         6
              // 34567890123456789012345678901234567890123456789012345678901
              "P1       112026   100.50000  -200.25000    12.34568 .500-.250");
    EXPECT_EQ(LineOf(4, Full).size(), 61u);
}

TEST(RecordLineOf, ARecordIsReadBackAsItStands) {
    for (const DatabaseType& type : DatabaseTypes) {
        const std::string line = LineOf(type.Code, Full);
        const CoordinateRecord record = RecordOfLine(type, line, "", 2);
        EXPECT_EQ(record.Name, "P1");
        EXPECT_EQ(record.Date, "112026");
        EXPECT_EQ(LineOf(type.Code, record), line) << type.Word;
    }
}

TEST(RecordLineOf, WhatATypeDoesNotKeepIsZero) {
    const CoordinateRecord benchmark = RecordOfLine(DatabaseTypeOf(1), LineOf(1, Full), "", 2);
    EXPECT_EQ(benchmark, (CoordinateRecord{"P1", "112026", 0, 0, 12.34568, 0, 0, 0, 0.00005, 0.5, -0.25}));
    const CoordinateRecord monument = RecordOfLine(DatabaseTypeOf(2), LineOf(2, Full), "", 2);
    EXPECT_EQ(monument,
              (CoordinateRecord{"P1", "112026", 100.5, -200.25, 0, 123.4, 0.00123, 0.0004, 0, 0.5, -0.25}));
}

TEST(RecordLineOf, TheWidestNumbersFitAndLeaveTheColumnsInPlace) {
    const CoordinateRecord widest{"LONGNAME", "123199", 99999.99999, -9999.99999, 99999.99999, -399.9,
                                  9.99999,    9.99999,  9.99999,     -0.99999,    9.99999};
    EXPECT_EQ(LineOf(3, widest),
              "LONGNAME 123199 99999.99999 -9999.9999999999.99999-399.99.999999.999999.99999-.999999.99999");
    EXPECT_EQ(RecordOfLine(DatabaseTypeOf(3), LineOf(3, widest), "", 2), widest);
}

TEST(RecordLineOf, ACoordinateRoundsOnItsDecimalValue) {
    CoordinateRecord record = Full;
    record.X = 0.000005;
    record.Y = -0.000004;
    EXPECT_EQ(LineOf(3, record).substr(16, 24), "    0.00001     0.00000 ");
}

TEST(RecordRefusal, OfACoordinateThatDoesNotFit) {
    CoordinateRecord record = Full;
    record.X = 100000;
    EXPECT_EQ(Refusal(3, record),
              "D:\\N\\FILE.DAT does not take point P1: X 100000.00000 does not fit its 11 columns");
    record.X = 99999.999996;
    Refusal(3, record);
    record = Full;
    record.Z = -10000;
    EXPECT_EQ(Refusal(1, record),
              "D:\\N\\FILE.DAT does not take point P1: Z -10000.00000 does not fit its 11 columns");
}

TEST(RecordRefusal, OfADeviationThatDoesNotFit) {
    CoordinateRecord record = Full;
    record.ErrorMajor = 10;
    EXPECT_EQ(Refusal(3, record),
              "D:\\N\\FILE.DAT does not take point P1: ErrorMajor 10.00000 does not fit its 7 columns");
    record = Full;
    record.Extra2 = 10;
    EXPECT_EQ(
        Refusal(1, record),
        "D:\\N\\FILE.DAT does not take point P1: second further number 10.000 does not fit its 5 columns");
}

TEST(RecordRefusal, OfAValueThatIsNoNumberEvenWhereTheTypeDoesNotKeepIt) {
    for (const double value : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        CoordinateRecord record = Full;
        record.X = value;
        EXPECT_EQ(Refusal(1, record),
                  "D:\\N\\FILE.DAT does not take point P1: one of its values is no number");
    }
}

TEST(RecordRefusal, OfANameOfMoreThanEightCharacters) {
    CoordinateRecord record = Full;
    record.Name = "LONGNAME9";
    EXPECT_EQ(Refusal(3, record),
              "D:\\N\\FILE.DAT does not take point LONGNAME9: the name has more than 8 characters");
}

TEST(RecordRefusal, OfAnEmptyName) {
    for (const char* name : {"", "   "}) {
        CoordinateRecord record = Full;
        record.Name = name;
        EXPECT_EQ(Refusal(3, record), "D:\\N\\FILE.DAT does not take a point: it has no name");
    }
}

TEST(RecordRefusal, OfANameWithAControlCharacter) {
    for (const char* name : {"A\r\nB", "A\tB", "A\x7F"}) {
        CoordinateRecord record = Full;
        record.Name = name;
        Refusal(3, record);
    }
}

TEST(RecordRefusal, OfADateThatIsNone) {
    for (const char* date :
         {"", "11202", "1120266", "11-026", "132026", "003026", "110026", "113226", " 12026"}) {
        CoordinateRecord record = Full;
        record.Date = date;
        EXPECT_NE(Refusal(3, record).find("is not of six digits"), std::string::npos) << date;
    }
}

TEST(RecordLineOf, NamesAreTrimmedAndInUpperCase) {
    CoordinateRecord record = Full;
    record.Name = " p\xE9 ";
    EXPECT_EQ(LineOf(3, record).substr(0, 9), "P\xC9       ");
}

TEST(ReadingARecord, RaisesDamageForANumberThatIsNone) {
    std::string line = LineOf(3, Full);
    line[20] = 'x';
    const RunTimeError error = ErrorOf([&] { RecordOfLine(DatabaseTypeOf(3), line, "D:\\N\\3DIM.DAT", 7); });
    EXPECT_EQ(error.Number, DatabaseDamaged);
    EXPECT_EQ(error.Description, "D:\\N\\3DIM.DAT is damaged: the X in line 7, point P1, is no number");
}

TEST(ReadingARecord, RaisesDamageForADateThatIsNone) {
    std::string line = LineOf(3, Full);
    line[9] = '9';
    const RunTimeError error = ErrorOf([&] { RecordOfLine(DatabaseTypeOf(3), line, "D:\\N\\3DIM.DAT", 7); });
    EXPECT_EQ(error.Number, DatabaseDamaged);
    EXPECT_EQ(error.Description, "D:\\N\\3DIM.DAT is damaged: the date in line 7, point P1, is none");
}

TEST(DatabaseTypeOfACode, IsOneOfFour) {
    EXPECT_STREQ(DatabaseTypeOf(4).Word, "IDEALS");
    EXPECT_EQ(ErrorOf([] { DatabaseTypeOf(0); }).Number, InvalidProcedureCall);
    EXPECT_EQ(ErrorOf([] { DatabaseTypeOf(5); }).Number, InvalidProcedureCall);
}

}  // namespace
}  // namespace Dorvane::Testing
