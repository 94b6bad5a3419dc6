// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/WeightsDialog.h"

#include "core/ProfileStore.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

class WeightsDialog : public InputSite {};

std::string Available(const WeightsTab& tab) {
    std::string numbers;
    for (int i = 1; i <= tab.Fields.Count(); ++i)
        if (tab.Fields[i].Available)
            numbers += std::to_string(i);
    return numbers;
}

std::string Read(const char* section, const char* key) {
    return IniReadString("dv_input.ini", section, key);
}

TEST_F(WeightsDialog, ShowsATabPerTypeWithItsTitlesAndValues) {
    PutProfiles();
    const List1<WeightsTab> tabs = OpenWeightsDialog();
    ASSERT_EQ(tabs.Count(), 5);
    EXPECT_EQ(tabs[1].Entry.Name, "Laser");
    EXPECT_EQ(tabs[1].Picture, "P:\\DORVANE\\Graphics\\laser.bmp");
    EXPECT_EQ(tabs[1].Fields[1].Title, "Horiz Angle");
    EXPECT_EQ(tabs[1].Fields[2].Title, "Zenith Angle");
    EXPECT_EQ(tabs[1].Fields[3].Title, "Distance");
    EXPECT_EQ(tabs[1].Fields[4].Title, "Horizontal Error");
    EXPECT_EQ(tabs[1].Fields[5].Title, "Zenith Error");
    EXPECT_EQ(tabs[1].Fields[1].Text, "0.0005");
    EXPECT_EQ(tabs[1].Fields[4].Text, "0");
    EXPECT_TRUE(tabs[1].HasLinear);
    EXPECT_EQ(tabs[3].Fields[1].Title, "Height Diff");
    EXPECT_EQ(Available(tabs[3]), "1");
    EXPECT_FALSE(tabs[3].HasLinear);
    EXPECT_EQ(tabs[4].Fields[2].Title, "Zenith Angle");
    EXPECT_EQ(Available(tabs[4]), "12");
    EXPECT_EQ(tabs[5].Fields[1].Title, "Distance");
    EXPECT_EQ(Available(tabs[5]), "1");
}

TEST_F(WeightsDialog, AGyroTabHasNothingAvailable) {
    PutProfile("dv_input.ini", {"[Gyro]", "Number=1", "Name1=Gyro"});
    const List1<WeightsTab> tabs = OpenWeightsDialog();
    ASSERT_EQ(tabs.Count(), 1);
    EXPECT_EQ(Available(tabs[1]), "");
    EXPECT_FALSE(tabs[1].HasLinear);
}

TEST_F(WeightsDialog, TheBoxTurnsAnglesIntoLinearErrorsAndBack) {
    PutProfiles();
    List1<WeightsTab> tabs = OpenWeightsDialog();
    EXPECT_EQ(Available(tabs[1]), "123");
    ClickLinear(tabs[1], true);
    EXPECT_EQ(Available(tabs[1]), "345");
    ClickLinear(tabs[1], false);
    EXPECT_EQ(Available(tabs[1]), "123");
}

TEST_F(WeightsDialog, ATotalTabOpenedOnKeepsItsDistanceClosedUntilTheBoxIsClicked) {
    PutProfile("dv_input.ini",
               {"[Tracker]", "Number=1", "LinAngle1=1", "[Total]", "Number=1", "LinAngle1=1"});
    List1<WeightsTab> tabs = OpenWeightsDialog();
    EXPECT_EQ(Available(tabs[1]), "345");
    EXPECT_EQ(Available(tabs[2]), "45");
    ClickLinear(tabs[2], true);
    EXPECT_EQ(Available(tabs[2]), "345");
}

TEST_F(WeightsDialog, OkWritesTheAvailableKeysAsTypedAndKeepsTheOthers) {
    PutProfile(
        "dv_input.ini",
        {"[Tracker]",   "Number=1",    "HAngle1=1",  "ZAngle1=2", "SDist1=3",  "LHAngle1=4", "LZAngle1=5",
         "LinAngle1=0", "[Total]",     "Number=1",   "HAngle1=1", "ZAngle1=2", "SDist1=3",   "LHAngle1=4",
         "LZAngle1=5",  "LinAngle1=1", "[Height]",   "Number=1",  "HDiff1=6",  "[Angle]",    "Number=1",
         "HAngle1=7",   "ZAngle1=8",   "[Distance]", "Number=1",  "SDist1=9",  "HDist1=10"});
    List1<WeightsTab> tabs = OpenWeightsDialog();
    ClickLinear(tabs[1], true);
    ClickLinear(tabs[2], false);
    for (WeightsTab& tab : tabs)
        for (WeightField& field : tab.Fields)
            field.Text += "x";
    SaveWeights(tabs);
    EXPECT_EQ(FileLines("C:\\WINDOWS\\dv_input.ini"),
              (std::vector<std::string>{
                  "[Tracker]",   "Number=1",    "HAngle1=1",  "ZAngle1=2",   "SDist1=3x",  "LHAngle1=4x",
                  "LZAngle1=5x", "LinAngle1=1", "[Total]",    "Number=1",    "HAngle1=1x", "ZAngle1=2x",
                  "SDist1=3x",   "LHAngle1=4",  "LZAngle1=5", "LinAngle1=0", "[Height]",   "Number=1",
                  "HDiff1=6x",   "[Angle]",     "Number=1",   "HAngle1=7x",  "ZAngle1=8x", "[Distance]",
                  "Number=1",    "SDist1=9x",   "HDist1=10"}));
}

TEST_F(WeightsDialog, AValueThatIsNoNumberIsReportedAndCanBePutRight) {
    PutProfiles();
    PutProfile("dv_input.ini", {"[Distance]", "Number=2", "SDist1=0.0O5", "SDist2=2", "[Tracker]", "Number=1",
                                "HAngle1=3", "LinAngle1=on"});
    Desktop.ExpectMessageTitled("Program Error");
    const List1<WeightsTab> tabs = OpenWeightsDialog();
    EXPECT_EQ(LastReport(), "13 Dorvane-basRead-ReadIniWeights");
    ASSERT_EQ(tabs.Count(), 3);
    EXPECT_EQ(tabs[1].Fields[1].Text, "3");
    EXPECT_FALSE(tabs[1].Linear);
    EXPECT_EQ(tabs[2].Fields[1].Text, "0.0O5");
    EXPECT_EQ(tabs[3].Fields[1].Text, "2");
}

TEST_F(WeightsDialog, WritesUnderTheEntrysOwnNumber) {
    PutProfile("dv_input.ini", {"[Distance]", "Number=2", "SDist1=1", "SDist2=2"});
    List1<WeightsTab> tabs = OpenWeightsDialog();
    tabs[2].Fields[1].Text = "0.25";
    SaveWeights(tabs);
    EXPECT_EQ(Read("Distance", "SDist1"), "1");
    EXPECT_EQ(Read("Distance", "SDist2"), "0.25");
}

TEST(PlainDecimal, HasNoExponent) {
    EXPECT_EQ(PlainDecimal(0.00001), "0.00001");
    EXPECT_EQ(PlainDecimal(0.001), "0.001");
    EXPECT_EQ(PlainDecimal(-0.0), "0");
    EXPECT_EQ(PlainDecimal(150), "150");
    EXPECT_EQ(PlainDecimal(1e21), "1000000000000000000000");
    EXPECT_EQ(PlainDecimal(-5e-324).size(), 327u);
}

}  // namespace
}  // namespace Dorvane::Testing
