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
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
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

// The reason why a text is no weight, on a tab with one field that the click of OK writes.
std::string ReasonOf(const std::string& text) {
    WeightsTab tab;
    tab.Entry.Type = "Height";
    tab.Fields.Resize(5);
    tab.Fields[1] = {"Height Diff", text, true};
    return WhyNoWeight(tab, 1);
}

TEST(WhyNoWeight, TellsWhatIsNoNumberAboveZero) {
    EXPECT_EQ(ReasonOf(""), "is empty");
    EXPECT_EQ(ReasonOf("  "), "is empty");
    EXPECT_EQ(ReasonOf("0,005"), "has a decimal comma where a point is needed");
    EXPECT_EQ(ReasonOf("1,2,3"), "is not a number");
    EXPECT_EQ(ReasonOf("small"), "is not a number");
    EXPECT_EQ(ReasonOf("0.005 m"), "is not a number");
    EXPECT_EQ(ReasonOf("-0.005"), "is below zero");
    EXPECT_EQ(ReasonOf("0"), "is zero, which an adjustment refuses");
    EXPECT_EQ(ReasonOf("0.000"), "is zero, which an adjustment refuses");
    EXPECT_EQ(ReasonOf("0.0000049"), "is 0.00000 with the five decimals of an input file");
    EXPECT_EQ(ReasonOf("1e999"), "is not a number");
    for (const char* weight : {"0.000005", "0.0003", " 1.5e-3 ", "2", "+1"})
        EXPECT_EQ(ReasonOf(weight), "") << weight;
}

TEST_F(WeightsDialog, OnlyFieldsThatOkWritesAreDoubtful) {
    PutProfile("dv_input.ini", {"[Tracker]", "Number=1", "HAngle1=0,1", "ZAngle1=1", "SDist1=1", "LHAngle1=x",
                                "LZAngle1=0.000001", "[Gyro]", "Number=1"});
    Desktop.ExpectMessageTitled("Program Error");
    List1<WeightsTab> tabs = OpenWeightsDialog();
    ASSERT_EQ(DoubtfulWeights(tabs).size(), 1u);
    EXPECT_EQ(DoubtfulWeights(tabs)[0].Field, 1);
    ClickLinear(tabs[1], true);
    ASSERT_EQ(DoubtfulWeights(tabs).size(), 1u);
    EXPECT_EQ(DoubtfulWeights(tabs)[0].Field, 4);
    tabs[1].Fields[4].Text = "0.0001";
    EXPECT_TRUE(DoubtfulWeights(tabs).empty());
    tabs[1].Fields[3].Text = "";
    ASSERT_EQ(DoubtfulWeights(tabs).size(), 1u);
    EXPECT_EQ(DoubtfulWeights(tabs)[0].Field, 3);
}

TEST_F(WeightsDialog, DoubtfulWeightsAreNamedBeforeTheyAreSaved) {
    PutProfiles();
    List1<WeightsTab> tabs = OpenWeightsDialog();
    EXPECT_TRUE(MaySave(tabs));
    tabs[2].Fields[2].Text = "0,002";
    tabs[5].Fields[1].Text = "";
    const std::string text =
        "No standard error above zero :\r\n\r\nTotalstation, Zenith Angle : \"0,002\" has a decimal comma "
        "where "
        "a point is needed\r\nDistances, Distance : \"\" is empty\r\n\r\nDo you wish to save the weights all "
        "the "
        "same?";
    Desktop.ExpectMessage("Doubtful Weights", text, Answer::No);
    EXPECT_FALSE(MaySave(tabs));
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    Desktop.ExpectMessage("Doubtful Weights", text, Answer::Yes);
    EXPECT_TRUE(MaySave(tabs));
}

TEST_F(WeightsDialog, ShowsTheWeightsOfTheEntrysOwnNumber) {
    PutProfile("dv_input.ini", {"[Tracker]", "Number=2", "HAngle1=1", "LinAngle1=0", "HAngle2=2",
                                "LinAngle2=1", "[Height]", "Number=2", "HDiff1=3", "HDiff2=4"});
    const List1<WeightsTab> tabs = OpenWeightsDialog();
    EXPECT_EQ(tabs[1].Fields[1].Text, "1");
    EXPECT_EQ(tabs[2].Fields[1].Text, "2");
    EXPECT_FALSE(tabs[1].Linear);
    EXPECT_TRUE(tabs[2].Linear);
    EXPECT_EQ(tabs[3].Fields[1].Text, "3");
    EXPECT_EQ(tabs[4].Fields[1].Text, "4");
}

TEST_F(WeightsDialog, AnEmptyTextStaysEmptyWhereAnAbsentOneShowsZero) {
    PutProfile("dv_input.ini", {"[Angle]", "Number=1", "HAngle1="});
    Desktop.ExpectMessageTitled("Program Error");
    const List1<WeightsTab> tabs = OpenWeightsDialog();
    EXPECT_EQ(tabs[1].Fields[1].Text, "");
    EXPECT_EQ(tabs[1].Fields[2].Text, "0");
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
