// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ReduceTabs.h"

#include "tests/reduction/ReductionSite.h"

namespace Dorvane::Testing {
namespace {

using Words = List1<std::string>;

struct SetupReduceTabsTest : ReductionSite {
    bool Tabs(const std::string& folder = Folder) { return SetupReduceTabs(folder, State); }
    static void Calibrations(const std::vector<std::string>& typesAndEpochs) {
        std::vector<std::string> lines;
        for (const std::string& entry : typesAndEpochs)
            lines.push_back(" *       CALIB     " + entry);
        PutLines("D:\\TARVEX\\INIT\\CALIB.PTH", lines);
    }
    ReduceState State;
};

TEST_F(SetupReduceTabsTest, MakesATabOfEachNamedExtension) {
    DataTypeProfile({"[Data Types]", "Epochs=TOTAL LEVEL", "[TOTAL]", "Extension=GSI", "GSI_Name=no",
                     "[LEVEL]", "Extension=LEV DAT", "LEV_Name=Levelling", "LEV_Calib=STAFF",
                     "LEV_Reduce=lev.exe, one.res", "LEV_RedIcon=lev.ico", "LEV_RedTip=Reduce levels",
                     "DAT_Name=Data"});
    Put("DAY1.LEV", "x");
    Put("ONE.RES", "x");
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.Folder, Folder);
    EXPECT_EQ(State.DataTypeName, "LEVEL");
    EXPECT_EQ(State.ExtraExtension, "");
    ASSERT_EQ(State.Tabs.Count(), 2);
    const ReduceTab& first = State.Tabs[1];
    EXPECT_EQ(first.Extension, "LEV");
    EXPECT_EQ(first.Name, "Levelling");
    EXPECT_EQ(first.CalibrationType, "STAFF");
    EXPECT_EQ(first.ReduceList, "lev.exe, one.res");
    EXPECT_EQ(first.RunPicture, "lev.ico");
    EXPECT_EQ(first.RunTip, "Reduce levels");
    EXPECT_EQ(first.Data.Tag, "1");
    EXPECT_EQ(first.Reduction.Picture.Tag, "1");
    EXPECT_EQ(first.Reduction.ResultFiles, Words{"ONE.RES"});
    const ReduceTab& second = State.Tabs[2];
    EXPECT_EQ(second.Name, "Data");
    EXPECT_EQ(second.RunPicture, "");
    EXPECT_EQ(second.Data.Tag, "0");
    EXPECT_EQ(second.Reduction.Picture.Tag, "0");
}

TEST_F(SetupReduceTabsTest, NeverMixesTheSections) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV DAT", "LEV_Name=Own",
                     "DAT_Calib=OWN", "DAT_Reduce=own.exe", "[File Types]", "LEV_Name=Common",
                     "LEV_Calib=COMMON", "LEV_Reduce=common.exe", "LEV_RedTip=common", "DAT_Name=Common",
                     "DAT_Reduce=common.exe"});
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.Tabs[1].Name, "Own");
    EXPECT_EQ(State.Tabs[1].CalibrationType, "");
    EXPECT_EQ(State.Tabs[1].ReduceList, "");
    EXPECT_EQ(State.Tabs[1].RunTip, "");
    EXPECT_EQ(State.Tabs[2].Name, "Common");
    EXPECT_EQ(State.Tabs[2].CalibrationType, "");
    EXPECT_EQ(State.Tabs[2].ReduceList, "common.exe");
}

TEST_F(SetupReduceTabsTest, KeepsOneExtensionWithoutNameAsItIs) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=DAT LEV", "LEV_Name=Levelling"});
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.ExtraExtension, "DAT");
}

TEST_F(SetupReduceTabsTest, KeepsOnlyTheLastOfSeveralBehindABlank) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=AAA LEV BBB CCC", "LEV_Name=L"});
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.ExtraExtension, " CCC");
}

TEST_F(SetupReduceTabsTest, CountsFilesOfTheExtraExtensionAsData) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV DAT", "LEV_Name=L",
                     "LEV_Reduce=p.exe ONE.RES"});
    Put("ONE.RES", "x", 30);
    Put("X.DAT", "x", 31);
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.Tabs[1].Data.Tag, "1");
    EXPECT_EQ(State.Tabs[1].Reduction.Picture.Tag, "2");
}

TEST_F(SetupReduceTabsTest, CallsForHelpWithoutATypeInThePath) {
    DataTypeProfile({"[Data Types]", "Epochs=TOTAL", "[TOTAL]", "Extension=GSI", "GSI_Name=Total"});
    Desktop.ExpectMessage("Critical Error", "Problem with number of Tabs.  Phone home.");
    EXPECT_FALSE(Tabs());
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Stop);
    EXPECT_TRUE(State.Tabs.Empty());
}

TEST_F(SetupReduceTabsTest, CallsForHelpWhenNoExtensionHasAName) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV"});
    Desktop.ExpectMessageTitled("Critical Error");
    EXPECT_FALSE(Tabs());
    EXPECT_EQ(State.ExtraExtension, "LEV");
}

TEST_F(SetupReduceTabsTest, SetsTheTabsPerRowFromTwoToFive) {
    const std::vector<int> perRow = {0, 2, 3, 4, 5, 0, 0};
    std::string extensions;
    for (int count = 1; count <= 7; ++count) {
        extensions += " E" + std::to_string(count);
        std::vector<std::string> lines = {"[Data Types]", "Epochs=LEVEL", "[LEVEL]",
                                          "Extension=" + extensions};
        for (int i = 1; i <= count; ++i)
            lines.push_back("E" + std::to_string(i) + "_Name=Tab");
        DataTypeProfile(lines);
        ReduceState fresh;
        ASSERT_TRUE(SetupReduceTabs(Folder, fresh));
        EXPECT_EQ(fresh.Tabs.Count(), count);
        EXPECT_EQ(fresh.TabsPerRow, perRow[static_cast<std::size_t>(count) - 1]);
    }
}

TEST_F(SetupReduceTabsTest, OffersTheEpochsOfTheCalibrationTypeAndChoosesTheLast) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV DAT TXT", "LEV_Name=L",
                     "LEV_Calib=STAFF", "DAT_Name=D", "DAT_Calib=ROD", "TXT_Name=T"});
    Calibrations({"STAFF     E2026", "STAFF     E2024", "OTHER     E2030", "staff2    E2031"});
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.Tabs[1].Epochs, (Words{"none", "E2024", "E2026"}));
    EXPECT_EQ(State.Tabs[1].Epoch, 3);
    EXPECT_EQ(State.Tabs[2].Epochs, Words{"none"});
    EXPECT_EQ(State.Tabs[2].Epoch, 1);
    EXPECT_EQ(State.Tabs[3].CalibrationType, "");
    EXPECT_EQ(State.Tabs[3].Epochs, Words{"none"});
}

TEST_F(SetupReduceTabsTest, OffersNoneWithoutARegistry) {
    DataTypeProfile(
        {"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV", "LEV_Name=L", "LEV_Calib=STAFF"});
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.Tabs[1].Epochs, Words{"none"});
}

TEST_F(SetupReduceTabsTest, FailsWhenCopiesAreAskedForASecondTime) {
    DataTypeProfile(
        {"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV DAT", "LEV_Name=L", "DAT_Name=D"});
    ASSERT_TRUE(Tabs());
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Tabs());
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 360"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Source : Dorvane-frmReduce-lblSelectedDirectory_Change"));
}

TEST_F(SetupReduceTabsTest, SetsUpALivingScreenAgainWhenNoCopiesAreAskedForTwice) {
    DataTypeProfile({"[Data Types]", "Epochs=TOTAL LEVEL", "[TOTAL]", "Extension=GSI", "GSI_Name=T",
                     "[LEVEL]", "Extension=LEV DAT", "LEV_Name=L", "DAT_Name=D"});
    ASSERT_TRUE(Tabs("D:\\DAM\\TOTAL\\SRV1\\"));
    ASSERT_TRUE(Tabs());
    EXPECT_EQ(State.Tabs.Count(), 2);
    ASSERT_TRUE(Tabs("D:\\DAM\\TOTAL\\SRV1\\"));
    EXPECT_EQ(State.Tabs.Count(), 1);
}

}  // namespace
}  // namespace Dorvane::Testing
