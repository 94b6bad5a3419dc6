// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/RetrievalFile.h"

#include <gtest/gtest.h>

#include "database/CoordinateUnits.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

// Two values of P1 and one of P2 in each type's data.
class ResultFile : public DatabaseSite {
  protected:
    ResultFile() {
        for (std::int32_t code = 1; code <= 4; ++code) {
            CoordinateRetriever retriever;
            retriever.UpdatePoint(North, code, "P1", "010226", 100, 200, 50, 10, 0.00254, 0.00127, 0.003048,
                                  0, 0);
            retriever.UpdatePoint(North, code, "P2", "010226", -1.27, 2.54, 0, 350.5, 0, 0, 0, 0, 0);
            retriever.UpdatePoint(North, code, "P1", "112026", 101, 201, 51, 20, 0.00254, 0.00127, 0.003048,
                                  0, 0);
            retriever.Commit();
        }
    }

    std::string Retrieved(std::int32_t typeCode, std::int32_t units, bool all,
                          const List1<double>& bias = {1000, 2000, 30, 100}) {
        const List1<std::string> names{"P2", "NOT", "", "P1"};
        CoordinateRetriever retriever;
        if (all)
            retriever.RetrieveAll(North, typeCode, names, names.Count(), File, Lines, "C:\\TARVEX\\TEMP\\",
                                  bias, units);
        else
            retriever.RetrieveCurrent(North, typeCode, names, names.Count(), File, Lines,
                                      "C:\\TARVEX\\TEMP\\", bias, units);
        return FileContent(File);
    }

    std::string File;
    std::int32_t Lines = 0;
};

TEST_F(ResultFile, OfThreeDimensionalDataInMetersIncludesTheBias) {
    EXPECT_EQ(Retrieved(3, 1, false),
              "Coordinate Database Retrieval\r\n"
              "\r\n"
              "Location : NORTH\r\n"
              "Data     : 3-Dimensional, current coordinates\r\n"
              "Units    : meters\r\n"
              "Bias     : X 1000.00000  Y 2000.00000  Z 30.00000  rotation 100.00000 gons\r\n"
              "\r\n"
              "Name      Date                   X               Y               Z   Angle       Major       "
              "Minor          SZ\r\n"
              "                            meters          meters          meters    gons      meters      "
              "meters      meters\r\n"
              "\r\n"
              "P2        01-02-26      1002.54000      2001.27000        30.00000    50.5     0.00000     "
              "0.00000     0.00000\r\n"
              "P1        11-20-26      1201.00000      1899.00000        81.00000   120.0     0.00254     "
              "0.00127     0.00305\r\n");
    EXPECT_EQ(File, "C:\\TARVEX\\TEMP\\3DIM.OUT");
    EXPECT_EQ(Lines, 2);
}

TEST_F(ResultFile, OfAllValuesMarksTheCurrentOnes) {
    EXPECT_EQ(Retrieved(3, 1, true, {0, 0, 0, 0}),
              "Coordinate Database Retrieval\r\n"
              "\r\n"
              "Location : NORTH\r\n"
              "Data     : 3-Dimensional, all coordinates\r\n"
              "Units    : meters\r\n"
              "Bias     : X 0.00000  Y 0.00000  Z 0.00000  rotation 0.00000 gons\r\n"
              "\r\n"
              "Name      Date                   X               Y               Z   Angle       Major       "
              "Minor          SZ  Current\r\n"
              "                            meters          meters          meters    gons      meters      "
              "meters      meters\r\n"
              "\r\n"
              "P2        01-02-26        -1.27000         2.54000         0.00000   350.5     0.00000     "
              "0.00000     0.00000  *\r\n"
              "P1        01-02-26       100.00000       200.00000        50.00000    10.0     0.00254     "
              "0.00127     0.00305\r\n"
              "P1        11-20-26       101.00000       201.00000        51.00000    20.0     0.00254     "
              "0.00127     0.00305  *\r\n");
    EXPECT_EQ(Lines, 3);
}

TEST_F(ResultFile, OfMonumentsInInchesLeavesTheBiasOut) {
    EXPECT_EQ(Retrieved(2, 2, false),
              "Coordinate Database Retrieval\r\n"
              "\r\n"
              "Location : NORTH\r\n"
              "Data     : Monuments, current coordinates\r\n"
              "Units    : inches\r\n"
              "Bias     : none\r\n"
              "\r\n"
              "Name      Date                   X               Y   Angle       Major       Minor\r\n"
              "                            inches          inches    gons      inches      inches\r\n"
              "\r\n"
              "P2        01-02-26        -50.0000        100.0000   350.5      0.0000      0.0000\r\n"
              "P1        11-20-26       3976.3780       7913.3858    20.0      0.1000      0.0500\r\n");
    EXPECT_EQ(File, "C:\\TARVEX\\TEMP\\MONUMENT.OUT");
}

TEST_F(ResultFile, OfBenchmarksInFeetHoldsTheHeight) {
    EXPECT_EQ(Retrieved(1, 3, false),
              "Coordinate Database Retrieval\r\n"
              "\r\n"
              "Location : NORTH\r\n"
              "Data     : Benchmarks, current coordinates\r\n"
              "Units    : feet\r\n"
              "Bias     : none\r\n"
              "\r\n"
              "Name      Date                   Z          SZ\r\n"
              "                              feet        feet\r\n"
              "\r\n"
              "P2        01-02-26         0.00000     0.00000\r\n"
              "P1        11-20-26       167.32283     0.01001\r\n");
    EXPECT_EQ(File, "C:\\TARVEX\\TEMP\\BNCHMARK.OUT");
}

TEST_F(ResultFile, OfIdealsHoldsTheCoordinatesAlone) {
    EXPECT_EQ(Retrieved(4, 1, true, {0.5, 0, 0, 0}),
              "Coordinate Database Retrieval\r\n"
              "\r\n"
              "Location : NORTH\r\n"
              "Data     : Ideals, all coordinates\r\n"
              "Units    : meters\r\n"
              "Bias     : X 0.50000  Y 0.00000  Z 0.00000  rotation 0.00000 gons\r\n"
              "\r\n"
              "Name      Date                   X               Y               Z  Current\r\n"
              "                            meters          meters          meters\r\n"
              "\r\n"
              "P2        01-02-26        -0.77000         2.54000         0.00000  *\r\n"
              "P1        01-02-26       100.50000       200.00000        50.00000\r\n"
              "P1        11-20-26       101.50000       201.00000        51.00000  *\r\n");
    EXPECT_EQ(File, "C:\\TARVEX\\TEMP\\IDEALS.OUT");
}

TEST_F(ResultFile, OfBenchmarksTakesTheHeightsBiasAlone) {
    const std::string text = Retrieved(1, 1, false);
    EXPECT_NE(text.find("P1        11-20-26        81.00000     0.00305\r\n"), std::string::npos) << text;
}

TEST_F(ResultFile, ReplacesAFormerOne) {
    PutFile("C:\\TARVEX\\TEMP\\3DIM.OUT", std::string(10000, 'X'));
    EXPECT_EQ(Retrieved(3, 1, false).find("XX"), std::string::npos);
}

TEST_F(ResultFile, KeepsTheFormerOneWhenTheUnitIsNone) {
    PutFile("C:\\TARVEX\\TEMP\\3DIM.OUT", "former");
    EXPECT_EQ(ErrorOf([&] { Retrieved(3, 4, false); }).Number, InvalidProcedureCall);
    EXPECT_EQ(FileContent("C:\\TARVEX\\TEMP\\3DIM.OUT"), "former");
}

TEST_F(ResultFile, RaisesAMissingFolder) {
    const List1<std::string> names{"P1"};
    const RunTimeError error = ErrorOf([&] {
        CoordinateRetriever().RetrieveCurrent(North, 3, names, 1, File, Lines, "C:\\NOWHERE\\", {0, 0, 0, 0},
                                              1);
    });
    EXPECT_EQ(error.Number, PathNotFound);
    EXPECT_EQ(error.Source, "CoordinateRetriever");
}

TEST_F(ResultFile, RunsOnWhereANumberIsLongerThanItsColumn) {
    const std::string text = Retrieved(4, 1, false, {123456789012, 0, 0, 0});
    EXPECT_NE(text.find("P1        11-20-26123456789113.00000       201.00000"), std::string::npos) << text;
}

TEST(Units, AreExactAndKeepTheBiasForMeters) {
    const DatabaseType& type = DatabaseTypeOf(3);
    const CoordinateRecord point{"P", "112026", 0.0254, 0.3048, 3.048, 10, 0, 0, 0, 0, 0};
    const List1<double> bias{1, 2, 3, 0};
    EXPECT_EQ(InUnit(type, point, LengthUnitOf(Inches), bias).X, 1);
    EXPECT_EQ(InUnit(type, point, LengthUnitOf(Feet), bias).Y, 1);
    EXPECT_EQ(InUnit(type, point, LengthUnitOf(Feet), bias).ErrorAngle, 10);
    EXPECT_EQ(InUnit(type, point, LengthUnitOf(Meters), bias).Z, 6.048);
}

TEST(Units, TurnTheBiasClockwise) {
    const List1<double> quarter{10, 20, 0, 100};
    CoordinateRecord north{"P", "112026", 0, 1, 0, 390, 0, 0, 0, 0, 0};
    const CoordinateRecord turned = InUnit(DatabaseTypeOf(3), north, LengthUnitOf(Meters), quarter);
    EXPECT_NEAR(turned.X, 11, 1e-12);
    EXPECT_NEAR(turned.Y, 20, 1e-12);
    EXPECT_NEAR(turned.ErrorAngle, 90, 1e-12);
}

}  // namespace
}  // namespace Dorvane::Testing
