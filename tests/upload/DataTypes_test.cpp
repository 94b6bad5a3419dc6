// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/DataTypes.h"

#include "tests/upload/UploadSite.h"

namespace Dorvane::Testing {
namespace {

struct ReadIniDataTypesTest : UploadSite {};
struct UploadKeysTest : UploadSite {};

using Words = List1<std::string>;

TEST_F(ReadIniDataTypesTest, GivesTheTypesInTheOrderOfTheList) {
    DataTypeProfile(
        {"[Data Types]", "Epochs=level, Total", "[TOTAL]", "Extension=gsi", "[LEVEL]", "Extension=lev\tdat"});
    List1<DataType> types;
    EXPECT_EQ(ReadIniDataTypes(types), 2);
    EXPECT_EQ(types, (List1<DataType>{{"LEVEL", Words{"LEV", "DAT"}}, {"TOTAL", Words{"GSI"}}}));
}

TEST_F(ReadIniDataTypesTest, GivesNoneWhenTheKeyIsEmpty) {
    DataTypeProfile({"[Data Types]", "Epochs="});
    List1<DataType> types{{"OLD", {}}};
    EXPECT_EQ(ReadIniDataTypes(types), 0);
    EXPECT_TRUE(types.Empty());
}

TEST_F(ReadIniDataTypesTest, GivesNoneWithoutAProfile) {
    List1<DataType> types;
    EXPECT_EQ(ReadIniDataTypes(types), 0);
}

TEST_F(ReadIniDataTypesTest, GivesATypeWithoutASectionNoExtensions) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL"});
    List1<DataType> types;
    EXPECT_EQ(ReadIniDataTypes(types), 1);
    EXPECT_TRUE(types[1].Extensions.Empty());
}

TEST_F(ReadIniDataTypesTest, ReportsAFiftyFirstWord) {
    std::string words;
    for (int i = 0; i < 51; ++i)
        words += "A ";
    DataTypeProfile({"[Data Types]", "Epochs=" + words});
    Desktop.ExpectMessage("Program Error",
                          "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : "
                          "Dorvane-basRead-ReadIniDataTypes");
    List1<DataType> types;
    EXPECT_EQ(ReadIniDataTypes(types), 0);
    EXPECT_TRUE(types.Empty());
}

TEST(FindDataType, TakesTheFirstNameThatOccursAnywhereInThePath) {
    const List1<DataType> types{{"TOTAL", {}}, {"LEVEL", {}}, {"LEV", {}}};
    EXPECT_EQ(FindDataType(types, "D:\\LEVELS\\X\\SRV1\\"), 2);
    EXPECT_EQ(FindDataType(types, "D:\\TOTALLY\\LEVEL\\SRV1\\"), 1);
    EXPECT_EQ(FindDataType(types, "D:\\LEV\\SRV1\\"), 3);
}

TEST(FindDataType, TakesAShorterNameInListOrderWhereALongerOneIsMeant) {
    EXPECT_EQ(FindDataType({{"LEV", {}}, {"LEVEL", {}}}, "D:\\DAM\\LEVEL\\"), 1);
}

TEST(FindDataType, CountsTheCase) {
    EXPECT_EQ(FindDataType({{"LEVEL", {}}}, "D:\\DAM\\Level\\"), 0);
}

TEST_F(UploadKeysTest, LooksInTheTypesSectionFirst) {
    DataTypeProfile({"[File Types]", "GSI_Print=other.exe", "[TOTAL]", "GSI_Print=own.exe"});
    EXPECT_EQ(ReadUploadKeys("TOTAL", "GSI").PrintProgram, "OWN.EXE");
}

TEST_F(UploadKeysTest, GoesOnToFileTypesForEachEmptyKeyAlone) {
    DataTypeProfile({"[TOTAL]", "GSI_Print=", "GSI_SrvIdx=true", "[File Types]", "GSI_Print=Generic",
                     "GSI_SrvIdx=FALSE", "GSI_Append=True"});
    const UploadKeys keys = ReadUploadKeys("TOTAL", "GSI");
    EXPECT_EQ(keys.PrintProgram, "GENERIC");
    EXPECT_TRUE(keys.InSurveyIndex);
    EXPECT_TRUE(keys.Append);
}

TEST_F(UploadKeysTest, TakesOnlyTrueForASwitch) {
    DataTypeProfile({"[TOTAL]", "GSI_SrvIdx=YES", "GSI_Append=1"});
    const UploadKeys keys = ReadUploadKeys("TOTAL", "GSI");
    EXPECT_FALSE(keys.InSurveyIndex);
    EXPECT_FALSE(keys.Append);
    EXPECT_EQ(keys.PrintProgram, "");
}

}  // namespace
}  // namespace Dorvane::Testing
