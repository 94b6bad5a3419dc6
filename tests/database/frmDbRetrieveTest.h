// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGuiApplication>

#include "database/frmDbRetrieve.h"
#include "tests/database/DatabaseScreenSite.h"

namespace Dorvane::Testing {

const std::string Temp = "C:\\TARVEX\\TEMP\\";

/// The retrieval's screen over a database of two points, one of them with two values.
class frmDbRetrieveTest : public DatabaseScreenSite<frmDbRetrieve> {
  protected:
    using Texts = std::vector<std::string>;

    frmDbRetrieveTest() {
        Enter("P1", 1);
        Enter("P2", 2);
        Enter("P1", 11, "112126");
        PutLines("D:\\TARVEX\\INIT\\BIAS.STR", {"NORTH    100 200 300 0"});
    }

    /// The screen with a retrieval of the three-dimensional points of NORTH, all or current ones.
    frmDbRetrieve& Retrieved(const char* number = "optCurrent", const char* type = "opt3dim") {
        frmDbRetrieve& screen = Open();
        ClickNode("NORTH");
        ClickOptions({type, number, "optMeters"});
        Click(screen, "cmdRetrieve");
        return screen;
    }

    static void ExpectOffer(QWidget& screen, bool offered) {
        for (const char* name :
             {"fraOutput", "lblEdit", "cmdEdit", "lblPrint", "cmdPrint", "lblCopy", "cmdCopy"})
            EXPECT_EQ(IsEnabled(screen, name), offered) << name;
        EXPECT_EQ(IsShown(screen, "lblOutputFile"), offered);
        EXPECT_EQ(IsShown(screen, "lblOutputFileTitle"), offered);
    }

    void ExpectRefusal(const std::string& title, const std::string& text) {
        Desk.ExpectMessage(title, text);
        Click(*Opened, "cmdRetrieve");
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
        EXPECT_TRUE(AllFiles("C:\\TARVEX\\").empty());
        ExpectOffer(*Opened, false);
        EXPECT_FALSE(IsShown(*Opened, "aniReduce"));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(TextOf(*Opened, "sbrRetrievePanel1"), "");
        EXPECT_EQ(TextOf(*Opened, "lblOutputFile"), "");
    }
};

}  // namespace Dorvane::Testing
