// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/CalibChoice.h"

#include "datatree/basTree.h"
#include "tests/reduction/CalibSite.h"

namespace Dorvane::Testing {

namespace {

using Names = List1<std::string>;

struct CalibChoiceTest : CalibSite {
    void Open(const std::string& directory = "D:\\TARVEX\\CALIB\\") {
        OpenCalibChoice(Choice);
        SetCalibDirectory(Choice, directory);
    }

    CalibChoice Choice;
};

}  // namespace

TEST_F(CalibChoiceTest, OffersAllTypesAndNoEpoch) {
    Open();
    EXPECT_EQ(Choice.Types, (Names{"STAFF", "EDM"}));
    EXPECT_TRUE(Choice.Epochs.Empty());
    EXPECT_EQ(Choice.Type, "");
    EXPECT_EQ(Choice.Directory, "D:\\TARVEX\\CALIB\\");
}

TEST_F(CalibChoiceTest, OffersTheEpochsThatATypeDoesNotHave) {
    Open();
    ChooseCalibType(Choice, "STAFF");
    EXPECT_EQ(Choice.Type, "STAFF");
    EXPECT_EQ(Choice.Epochs, (Names{"C2701"}));
    ChooseCalibType(Choice, "EDM");
    EXPECT_EQ(Choice.Epochs, (Names{"C2601", "C2607", "C2701"}));
}

TEST_F(CalibChoiceTest, ForgetsTheEpochWithAnotherType) {
    Open();
    ChooseCalibType(Choice, "EDM");
    ChooseCalibEpoch(Choice, "C2607");
    EXPECT_EQ(Choice.Epoch, "C2607");
    ChooseCalibType(Choice, "STAFF");
    EXPECT_EQ(Choice.Epoch, "");
}

TEST_F(CalibChoiceTest, PresetsTheTypeThatIsTheSecondPartOfTheFolder) {
    Open("D:\\STAFF\\C2601\\");
    EXPECT_EQ(Choice.Type, "STAFF");
    EXPECT_EQ(Choice.Epochs, (Names{"C2701"}));
}

TEST_F(CalibChoiceTest, PresetsNothingForATypeFurtherDown) {
    Open("D:\\TARVEX\\CALIB\\STAFF\\");
    EXPECT_EQ(Choice.Type, "");
    EXPECT_TRUE(Choice.Epochs.Empty());
}

TEST_F(CalibChoiceTest, PresetsNothingForADriveOrNoFolder) {
    Open("D:\\");
    EXPECT_EQ(Choice.Type, "");
    Open("");
    EXPECT_EQ(Choice.Type, "");
    EXPECT_EQ(Choice.Types.Count(), 2);
}

TEST_F(CalibChoiceTest, ListsSixteenTypes) {
    PutFullStructure();
    Open();
    ASSERT_EQ(Choice.Types.Count(), 16);
    EXPECT_EQ(Choice.Types[16], "TYPE16");
    ChooseCalibType(Choice, "TYPE16");
    EXPECT_EQ(Choice.Epochs.Count(), 16);
}

TEST_F(CalibChoiceTest, ReportsASeventeenthType) {
    std::vector<std::string> lines{"CALIB", ""};
    for (int i = 1; i <= 17; ++i)
        lines.push_back("TYPE" + std::to_string(i));
    PutLines(Structure, lines);
    ExpectReport(Desktop, 9, "Subscript out of range", "basRead-ReadCalibStrFile");
    Open();
    EXPECT_TRUE(Choice.Types.Empty());
}

TEST_F(CalibChoiceTest, OffersNoEpochWhenAllAreRegistered) {
    PutFile(Registry,
            " *       CALIB     STAFF     C2601\r\n"
            " *       CALIB     STAFF     C2607\r\n"
            " *       CALIB     STAFF     C2701\r\n");
    Open();
    ChooseCalibType(Choice, "STAFF");
    EXPECT_TRUE(Choice.Epochs.Empty());
    CalibrationAnswer answer;
    Desktop.ExpectMessage("Missing Information", "All entries must be full to add direcotory.");
    EXPECT_FALSE(ConfirmCalibration(Choice, answer));
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
}

TEST_F(CalibChoiceTest, OffersNothingWithoutACalibrationPath) {
    Global().Calib_path.clear();
    Open("");
    EXPECT_TRUE(Choice.Types.Empty());
    CalibrationAnswer answer;
    Desktop.ExpectMessageTitled("Missing Information");
    EXPECT_FALSE(ConfirmCalibration(Choice, answer));
}

TEST_F(CalibChoiceTest, AnswersWithBothNames) {
    Open();
    ChooseCalibType(Choice, "EDM");
    CalibrationAnswer answer;
    Desktop.ExpectMessageTitled("Missing Information");
    EXPECT_FALSE(ConfirmCalibration(Choice, answer));
    EXPECT_EQ(answer, CalibrationAnswer());
    ChooseCalibEpoch(Choice, "C2607");
    EXPECT_TRUE(ConfirmCalibration(Choice, answer));
    EXPECT_EQ(answer, (CalibrationAnswer{"EDM", "C2607"}));
}

TEST_F(CalibChoiceTest, SaysWhyAListIsEmptyAndWhereItsNamesAreMade) {
    Open();
    EXPECT_EQ(WhyNoTypes(Choice), "");
    EXPECT_EQ(WhyNoEpochs(Choice), "");
    ChooseCalibType(Choice, "EDM");
    EXPECT_EQ(WhyNoEpochs(Choice), "");
    for (const char* epoch : {"C2601", "C2607", "C2701"})
        UpdateCalibPthFileAdd("CALIB", "EDM", epoch);
    Open();
    ChooseCalibType(Choice, "EDM");
    EXPECT_EQ(
        WhyNoEpochs(Choice),
        "EDM has all epochs already.  Enter more on the home menu under Edit > Calibration Structures.");
    Drives::DeleteFile(Global().Init_path + "CALIB.STR");
    Open();
    EXPECT_EQ(WhyNoTypes(Choice),
              "There are no calibration types.  Enter them on the home menu under Edit > "
              "Calibration Structures.");
    EXPECT_EQ(WhyNoEpochs(Choice),
              "There are no calibration epochs.  Enter them on the home menu under Edit "
              "> Calibration Structures.");
}

}  // namespace Dorvane::Testing
