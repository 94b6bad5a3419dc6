// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using ::testing::IsEmpty;

// What sites have made of their profiles and pictures.
class InputScreenProfile : public InputScreenSite {
  protected:
    Texts Types() {
        Texts names;
        for (int i = 0; i < Combo("icmbInput").count(); ++i)
            names.push_back(FromScreen(Combo("icmbInput").itemText(i)));
        return names;
    }
};

TEST_F(InputScreenProfile, ANumberThatIsNoneOrBelowZeroGivesNoTypes) {
    PutProfile("dv_input.ini",
               {"[Tracker]", "Number=many", "Name1=Laser", "[Total]", "Number=-5", "Name1=Total", "[Height]",
                "Number=0", "[Angle]", "Number=", "[Gyro]", "Number=1", "Name1=Gyro"});
    Open();
    EXPECT_EQ(Types(), (Texts{"Gyro"}));
    EXPECT_EQ(Combo("icmbInput").currentIndex(), 0);
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 1);
}

TEST_F(InputScreenProfile, AnEmptyOrMissingProfileGivesAScreenWithoutTypes) {
    for (const bool there : {true, false}) {
        if (there)
            PutFile("C:\\WINDOWS\\dv_input.ini", "");
        else
            Drives::DeleteFile("C:\\WINDOWS\\dv_input.ini");
        Open();
        EXPECT_THAT(Types(), IsEmpty());
        EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 0);
        EXPECT_EQ(Items(*Screen, "lstCoordTypes").size(), 4U);
        Screen->Unload();
        HandleEvents();
    }
}

TEST_F(InputScreenProfile, ANumberPastSixteenBitsIsReported) {
    PutProfile("dv_input.ini", {"[Tracker]", "Number=99999", "Name1=Laser"});
    Desktop.ExpectMessageTitled("Program Error");
    Desktop.ExpectMessageTitled("Program Error");
    Desktop.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Error : 6\r"), std::string::npos) << Desktop.Shown.at(0).Text;
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Dorvane-basRead-ReadIniInputTypes"), std::string::npos);
    EXPECT_THAT(Types(), IsEmpty());
    EXPECT_TRUE(Screen->isVisible());
}

TEST_F(InputScreenProfile, NamelessEntriesAreOneKeyAndReportedAsSuch) {
    PutProfile("dv_input.ini", {"[Tracker]", "Number=999", "Name1=Laser"});
    Desktop.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_EQ(LastReport(Desktop), "35602 Dorvane-frmInput-Form_Load");
    EXPECT_EQ(Types().size(), 999U);
    EXPECT_EQ(Combo("icmbInput").currentIndex(), -1);
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 2);
    ClickNode("Laser");
    EXPECT_EQ(Combo("icmbInput").currentText(), QLatin1String("Laser"));
}

TEST_F(InputScreenProfile, ManyTypesAllHaveTheirPlace) {
    Texts lines = {"[Tracker]", "Number=999"};
    for (int i = 1; i <= 999; ++i)
        lines.push_back("Name" + std::to_string(i) + "=Tracker " + std::to_string(i));
    PutProfile("dv_input.ini", lines);
    Open();
    EXPECT_EQ(Types().size(), 999U);
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 999);
    EXPECT_THAT(Desktop.Shown, IsEmpty());
}

TEST_F(InputScreenProfile, AMissingPictureIsReportedOnceAndLeavesItsPlaceEmpty) {
    IniWriteString("dv_input.ini", "Tracker", "Icon1", "none-such.bmp");
    IniWriteString("dv_input.ini", "Total", "Icon1", "none-such.bmp");
    Desktop.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Error : 53"), std::string::npos);
    EXPECT_EQ(LastReport(Desktop), "53 Dorvane-frmInput-Form_Load");
    EXPECT_TRUE(Combo("icmbInput").itemIcon(0).isNull());
    EXPECT_EQ(Types().size(), 5U);
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 5);
}

TEST_F(InputScreenProfile, APictureThatIsNoneIsReported) {
    PutFile("P:\\DORVANE\\graphics\\text.bmp", "no picture");
    IniWriteString("dv_input.ini", "Tracker", "Icon1", "text.bmp");
    Desktop.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_EQ(LastReport(Desktop), "481 Dorvane-frmInput-Form_Load");
    EXPECT_EQ(Types().size(), 5U);
}

TEST_F(InputScreenProfile, WithoutAnyPictureTheScreenWorksAllTheSame) {
    IniWriteString("dv_input.ini", "Tracker", "Icon1", "");
    for (const Drives::Entry& entry : Drives::List("P:\\DORVANE\\graphics\\"))
        Drives::DeleteFile("P:\\DORVANE\\graphics\\" + entry.Name);
    Desktop.ExpectMessageTitled("Program Error");  // the closed folder
    Desktop.ExpectMessageTitled("Program Error");  // the open folder
    Desktop.ExpectMessageTitled("Program Error");  // a closed folder that does not open
    Open();
    Import(Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

TEST_F(InputScreenProfile, LongAndMarkedUpNamesShowAsTheyStand) {
    const std::string name = "<i>" + std::string(110, 'W') + "</i> & co";
    IniWriteString("dv_input.ini", "Tracker", "Name1", name);
    frmInput& screen = Open();
    EXPECT_EQ(Types().at(0), name);
    EXPECT_LT(screen.minimumSizeHint().width(), screen.fontMetrics().averageCharWidth() * 160);
    EXPECT_TRUE(Node(name).toolTip(0).contains(QLatin1String("&lt;i&gt;")));
}

}  // namespace
}  // namespace Dorvane::Testing
