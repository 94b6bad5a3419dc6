// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/SurveyChoice.h"

#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

using Names = List1<std::string>;

class FrmAddSurvey : public DataSite {
  protected:
    FrmAddSurvey() {
        PutFile(Init("CHOICES.SYS"),
                "DAM      1 Main dam\r\n"
                "CALIB    2 Calibrations\r\n"
                "WEIR     1 The weir\r\n");
        PutFile(
            Init("DAM.STR"),
            "DAM      Main dam\r\n\r\nNORTH\r\nSOUTH\r\n\r\nLEVEL\r\nTOTAL\r\n\r\nSRV1\r\nSRV2\r\nSRV3\r\n");
        PutFile(Init("WEIR.STR"), "WEIR     The weir\r\n\r\nCREST\r\n\r\nANGLE\r\n\r\nSRV1\r\n");
        Global().Data_drive = "D:\\";
        MakeFolders("D:\\DAM\\NORTH\\LEVEL\\SRV1\\RAW\\DEEP\\");
    }

    void Register(const std::string& location, const std::string& type, const std::string& epoch,
                  const std::string& root = "DAM") {
        Global().PathRecords.Add({root, "", location, "", type, "", epoch, "", "", "", ""});
    }

    SurveyChoice Choice;
};

}  // namespace

TEST_F(FrmAddSurvey, OffersTheSystemsOfKind1WithoutAFolder) {
    SetSurveyDirectory(Choice, "");
    EXPECT_EQ(Choice.Roots, (Names{"DAM", "WEIR"}));
    EXPECT_EQ(Choice.Root, "");
    EXPECT_TRUE(Choice.Locations.Empty());
}

TEST_F(FrmAddSurvey, PreselectsNothingForADriveOrAFolderThatIsNotThere) {
    SetSurveyDirectory(Choice, "D:\\");
    EXPECT_EQ(Choice.Root, "");
    EXPECT_EQ(Choice.Roots.Count(), 2);
    SetSurveyDirectory(Choice, "D:\\DAM\\GONE\\");
    EXPECT_EQ(Choice.Root, "");
    EXPECT_EQ(Choice.Directory, "");
    EXPECT_EQ(Choice.Roots.Count(), 2);
}

TEST_F(FrmAddSurvey, PreselectsTheSystemByTheSecondPart) {
    SetSurveyDirectory(Choice, "D:\\DAM");
    EXPECT_EQ(Choice.Directory, "D:\\DAM\\");
    EXPECT_EQ(Choice.Root, "DAM");
    EXPECT_EQ(Choice.Location, "");
    EXPECT_EQ(Choice.Locations, (Names{"NORTH", "SOUTH"}));
    EXPECT_EQ(Choice.Types, (Names{"LEVEL", "TOTAL"}));
    EXPECT_TRUE(Choice.Epochs.Empty());
}

TEST_F(FrmAddSurvey, PreselectsTheLocationByTheThirdPart) {
    for (const char* folder :
         {"D:\\DAM\\NORTH\\", "D:\\DAM\\NORTH\\LEVEL\\", "D:\\DAM\\NORTH\\LEVEL\\SRV1\\"}) {
        SetSurveyDirectory(Choice, folder);
        EXPECT_EQ(Choice.Root, "DAM");
        EXPECT_EQ(Choice.Location, "NORTH");
        EXPECT_EQ(Choice.Roots.Count(), 2);
    }
}

TEST_F(FrmAddSurvey, OffersTheSystemsAndNothingElseForAFolderOfSixPartsAndMore) {
    for (const char* folder :
         {"D:\\DAM\\NORTH\\LEVEL\\SRV1\\RAW\\", "D:\\DAM\\NORTH\\LEVEL\\SRV1\\RAW\\DEEP\\"}) {
        SetSurveyDirectory(Choice, folder);
        EXPECT_EQ(Choice.Directory, folder);
        EXPECT_EQ(Choice.Roots, (Names{"DAM", "WEIR"}));
        EXPECT_EQ(Choice.Root, "");
        EXPECT_EQ(Choice.Location, "");
        EXPECT_TRUE(Choice.Locations.Empty());
        EXPECT_TRUE(Choice.Types.Empty());
    }
}

TEST_F(FrmAddSurvey, FindsNoSystemUnderADataDriveThatIsAFolder) {
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\");
    SetSurveyDirectory(Choice, "D:\\TARVEX\\DAM\\NORTH\\");
    EXPECT_EQ(Choice.Root, "TARVEX");
    EXPECT_EQ(Choice.Location, "DAM");
    EXPECT_EQ(Choice.Roots.Count(), 2);
    EXPECT_TRUE(Choice.Locations.Empty());
    EXPECT_TRUE(Choice.Types.Empty());
}

TEST_F(FrmAddSurvey, OffersLocationsAndTypesOfAChosenSystem) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL"});
    ChooseSurveyEpoch(Choice, "SRV1");
    ChooseSurveyRoot(Choice, "WEIR");
    EXPECT_EQ(Choice.Root, "WEIR");
    EXPECT_EQ(Choice.Location, "");
    EXPECT_EQ(Choice.Epoch, "");
    EXPECT_EQ(Choice.Locations, (Names{"CREST"}));
    EXPECT_EQ(Choice.Types, (Names{"ANGLE"}));
    EXPECT_TRUE(Choice.ChosenTypes.Empty());
    EXPECT_TRUE(Choice.Epochs.Empty());
}

TEST_F(FrmAddSurvey, UnselectsTypesAndEpochsForAnotherLocation) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL"});
    ChooseSurveyEpoch(Choice, "SRV2");
    ChooseSurveyLocation(Choice, "SOUTH");
    EXPECT_EQ(Choice.Location, "SOUTH");
    EXPECT_TRUE(Choice.ChosenTypes.Empty());
    EXPECT_TRUE(Choice.Epochs.Empty());
    EXPECT_EQ(Choice.Epoch, "");
    EXPECT_EQ(Choice.Types.Count(), 2);
}

TEST_F(FrmAddSurvey, OffersOnlyEpochsThatNoChosenTypeHas) {
    Register("NORTH", "LEVEL", "SRV2");
    Register("NORTH", "TOTAL", "SRV3");
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL"});
    EXPECT_EQ(Choice.Epochs, (Names{"SRV1", "SRV3"}));
    ChooseSurveyTypes(Choice, {"LEVEL", "TOTAL"});
    EXPECT_EQ(Choice.Epochs, (Names{"SRV1"}));
}

TEST_F(FrmAddSurvey, OffersAnEpochThatOnlyAnotherLocationOrSystemHas) {
    Register("SOUTH", "LEVEL", "SRV1");
    Register("NORTH", "LEVEL", "SRV2", "WEIR");
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL"});
    EXPECT_EQ(Choice.Epochs, (Names{"SRV1", "SRV2", "SRV3"}));
}

TEST_F(FrmAddSurvey, OffersAllEpochsWhileNoTypeIsChosen) {
    Register("NORTH", "LEVEL", "SRV1");
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {});
    EXPECT_EQ(Choice.Epochs.Count(), 3);
}

TEST_F(FrmAddSurvey, ForgetsAnEpochWhenTheTypesChange) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL"});
    ChooseSurveyEpoch(Choice, "SRV1");
    ChooseSurveyTypes(Choice, {"LEVEL", "TOTAL"});
    EXPECT_EQ(Choice.Epoch, "");
}

TEST_F(FrmAddSurvey, ReportsASeventeenthSystem) {
    std::string choices;
    for (int i = 1; i <= 17; ++i)
        choices += "S" + std::to_string(i) + "\r\n";
    PutFile(Init("CHOICES.SYS"), choices);
    PutFile(Init("S17.STR"), "S17\r\n\r\n\r\n\r\n");
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadStrFile");
    SetSurveyDirectory(Choice, "");
}

TEST_F(FrmAddSurvey, ReportsALookThroughMoreSystemsThanThereIsRoomFor) {
    std::string choices;
    for (int i = 1; i <= 17; ++i)
        choices += "S" + std::to_string(i) + "\r\n";
    PutFile(Init("CHOICES.SYS"), choices);
    SetSurveyDirectory(Choice, "");
    ExpectReport(Desk, 9, "Subscript out of range", "frmAddSurvey-lstRoot_Click");
    ChooseSurveyRoot(Choice, "S17");
}

TEST_F(FrmAddSurvey, StaysWhileANameIsMissing) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    SurveyAnswer answer;
    Desk.ExpectMessage("Missing Information", "All entries must be full to add direcotory.");
    EXPECT_FALSE(ConfirmSurvey(Choice, "Usage", answer));
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
    EXPECT_EQ(answer, SurveyAnswer());
}

TEST_F(FrmAddSurvey, AsksForAHistoryAndStaysOnYes) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL"});
    ChooseSurveyEpoch(Choice, "SRV1");
    SurveyAnswer answer;
    Desk.ExpectMessage("No History Information",
                       "No History information entered.  Do you wish to enter something?", Answer::Yes);
    EXPECT_FALSE(ConfirmSurvey(Choice, "", answer));
    EXPECT_EQ(Desk.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Information);
    EXPECT_EQ(answer, SurveyAnswer());
}

TEST_F(FrmAddSurvey, AnswersWithAnEmptyHistoryOnNo) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {"LEVEL", "TOTAL"});
    ChooseSurveyEpoch(Choice, "SRV1");
    SurveyAnswer answer;
    Desk.ExpectMessageTitled("No History Information", Answer::No);
    EXPECT_TRUE(ConfirmSurvey(Choice, "", answer));
    EXPECT_EQ(answer, (SurveyAnswer{"DAM", "NORTH", "LEVEL TOTAL ", "SRV1", ""}));
}

TEST_F(FrmAddSurvey, DoesNotAskForATypeAndNothingIsAddedThen) {
    SetSurveyDirectory(Choice, "D:\\DAM\\NORTH\\");
    ChooseSurveyTypes(Choice, {});
    ChooseSurveyEpoch(Choice, "SRV1");
    SurveyAnswer answer;
    EXPECT_TRUE(ConfirmSurvey(Choice, "Usage", answer));
    EXPECT_EQ(answer.TypeMulti, "");
    TreeModel tree;
    AddSurvey(answer, {}, tree);
    EXPECT_TRUE(tree.Nodes().empty());
}

TEST_F(FrmAddSurvey, SaysWhereSystemsAreMadeWhenThereIsNone) {
    PutFile(Init("CHOICES.SYS"), "CALIB    2 Calibrations\r\n");
    SetSurveyDirectory(Choice, "");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Root),
              "There is no data system.  Make one on the home menu under Edit > Data Structures.");
    for (const SurveyList list : {SurveyList::Location, SurveyList::Type, SurveyList::Epoch})
        EXPECT_EQ(WhyEmpty(Choice, list), "");
}

TEST_F(FrmAddSurvey, SaysNothingInThePlaceOfAListThatOffersNamesOrWaits) {
    SetSurveyDirectory(Choice, "");
    for (const SurveyList list :
         {SurveyList::Root, SurveyList::Location, SurveyList::Type, SurveyList::Epoch})
        EXPECT_EQ(WhyEmpty(Choice, list), "");
    ChooseSurveyRoot(Choice, "DAM");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Location), "");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Type), "");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Epoch), "");
}

TEST_F(FrmAddSurvey, SaysWhatASystemLacksAndWhereItIsMade) {
    PutFile(Init("DAM.STR"), "DAM      Main dam\r\n\r\n\r\n\r\n");
    Global().Data_drive = "D:\\TARVEX\\";
    SetSurveyDirectory(Choice, "D:\\TARVEX\\");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Location), "");  // TARVEX is no system
    ChooseSurveyRoot(Choice, "DAM");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Location),
              "DAM has no locations.  Enter them on the home menu under Edit > Data Structures.");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Type),
              "DAM has no data types.  Enter them on the home menu under Edit > Data Structures.");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Epoch),
              "DAM has no epochs.  Enter them on the home menu under Edit > Data Structures.");
}

TEST_F(FrmAddSurvey, TellsASystemWithoutStructureFileLikeOneThatLacksAll) {
    PutFile(Init("CHOICES.SYS"), "NEW      1 No structure yet\r\n");
    SetSurveyDirectory(Choice, "");
    ChooseSurveyRoot(Choice, "NEW");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Location),
              "NEW has no locations.  Enter them on the home menu under Edit > Data Structures.");
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Epoch),
              "NEW has no epochs.  Enter them on the home menu under Edit > Data Structures.");
}

TEST_F(FrmAddSurvey, TellsUsedEpochsFromMissingOnes) {
    SetSurveyDirectory(Choice, "");
    ChooseSurveyRoot(Choice, "DAM");
    ChooseSurveyLocation(Choice, "NORTH");
    for (const char* epoch : {"SRV1", "SRV2", "SRV3"})
        Register("NORTH", "LEVEL", epoch);
    ChooseSurveyTypes(Choice, Names{"TOTAL"});
    EXPECT_EQ(WhyEmpty(Choice, SurveyList::Epoch), "");
    ChooseSurveyTypes(Choice, Names{"TOTAL", "LEVEL"});
    EXPECT_EQ(
        WhyEmpty(Choice, SurveyList::Epoch),
        "All epochs of DAM are used here by the selected data types.  Enter more on the home menu under "
        "Edit > Data Structures.");
}

}  // namespace Dorvane::Testing
