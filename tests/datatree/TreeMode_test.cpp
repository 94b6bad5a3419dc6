// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeMode.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {

TEST(TreeModeOf, KnowsTheFixedTitles) {
    EXPECT_EQ(TreeModeOf("Access Subdirectories ..."), TreeMode::Browse);
    EXPECT_EQ(TreeModeOf("System Configuration ..."), TreeMode::Configure);
    EXPECT_EQ(TreeModeOf("Data Reduction Directory Selection"), TreeMode::Reduce);
    EXPECT_EQ(TreeModeOf("Upload Data To"), TreeMode::Upload);
    EXPECT_EQ(TreeModeOf("VARN input file location"), TreeMode::Input);
}

TEST(TreeModeOf, TakesATitleWithBothInputTextsAsInput) {
    EXPECT_EQ(TreeModeOf("Input Levelling field data from"), TreeMode::Input);
    EXPECT_EQ(TreeModeOf("field data from Input"), TreeMode::Input);
    EXPECT_EQ(TreeModeOf("Input Levelling"), TreeMode::Other);
    EXPECT_EQ(TreeModeOf("Levelling field data from"), TreeMode::Other);
    EXPECT_EQ(TreeModeOf("input Levelling field data from"), TreeMode::Other);
}

TEST(TreeModeOf, ComparesTitlesExactly) {
    for (const char* title : {"", "TARVEX Data Directory Tree", "Access Subdirectory Selection",
                              "access subdirectories ...", "Upload Data To ", "VARN input file locations"})
        EXPECT_EQ(TreeModeOf(title), TreeMode::Other) << title;
}

TEST(VisibleTreeButtons, AreThoseForFilesWhileBrowsing) {
    EXPECT_EQ(VisibleTreeButtons("Access Subdirectories ..."),
              (TreeButtons{
                  .Home = true, .Copy = true, .Delete = true, .Print = true, .Edit = true, .Archive = true}));
}

TEST(VisibleTreeButtons, AreThoseForFoldersInTheSystemConfiguration) {
    EXPECT_EQ(VisibleTreeButtons("System Configuration ..."),
              (TreeButtons{.Home = true, .Add = true, .Remove = true}));
}

TEST(VisibleTreeButtons, OfferCancelInPlaceOfHomeForTheInput) {
    for (const char* title : {"Input Levelling field data from", "VARN input file location"})
        EXPECT_EQ(VisibleTreeButtons(title), (TreeButtons{.OK = true, .Cancel = true})) << title;
}

TEST(VisibleTreeButtons, AreOkAndHomeForAllOtherTitles) {
    for (const char* title : {"Data Reduction Directory Selection", "Upload Data To",
                              "TARVEX Data Directory Tree", "Access Subdirectory Selection", ""})
        EXPECT_EQ(VisibleTreeButtons(title), (TreeButtons{.OK = true, .Home = true})) << title;
}

TEST(EnabledTreeButtons, NeedAFileWhileBrowsing) {
    const TreeButtons none = EnabledTreeButtons("Access Subdirectories ...", "", true);
    EXPECT_EQ(none, (TreeButtons{.OK = true, .Cancel = true, .Home = true, .Add = true, .Remove = true}));
    const TreeButtons one = EnabledTreeButtons("Access Subdirectories ...", "A.LVL", true);
    EXPECT_TRUE(one.Copy && one.Delete && one.Print && one.Edit && one.Archive);
}

TEST(EnabledTreeButtons, NeedAPrinterToPrint) {
    const TreeButtons enabled = EnabledTreeButtons("Access Subdirectories ...", "A.LVL", false);
    EXPECT_FALSE(enabled.Print);
    EXPECT_TRUE(enabled.Copy && enabled.Delete && enabled.Edit && enabled.Archive);
}

}  // namespace Dorvane::Testing
