// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ResultFiles.h"

#include "tests/reduction/ReductionSite.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

struct ResultFilesTest : ReductionSite {
    ResultFilesTest() {
        Put("ONE.RES", "first\r\nsecond\r\n");
        Put("TWO.RES", "third");
        State.Folder = Folder;
        State.Tabs.Add({}).Reduction.ResultFiles = {"ONE.RES", "TWO.RES"};
        Editor("C:\\EDIT\\", "ed.exe");
    }
    static void Editor(const std::string& path, const std::string& name) {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=" + path, "Name=" + name});
    }
    ReduceState State;
};
using EditResultsTest = ResultFilesTest;
using PrintResultsTest = ResultFilesTest;

TEST_F(EditResultsTest, OpensAnEditorForEachSelectedFile) {
    EditResults(State, 1, {"ONE.RES", "TWO.RES"});
    EXPECT_EQ(Desktop.Started,
              (Names{"C:\\EDIT\\ed.exe " + Folder + "ONE.RES", "C:\\EDIT\\ed.exe " + Folder + "TWO.RES"}));
}

TEST_F(EditResultsTest, DoesNothingWithNothingSelected) {
    EditResults(State, 1, {});
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(EditResultsTest, SaysWhenThereIsNoEditorBeforeItLooksAtTheList) {
    State.Tabs[1].Reduction.ResultFiles.Clear();
    for (const auto& [path, name] : {std::pair("", "ed.exe"), std::pair("C:\\EDIT\\", "")}) {
        Editor(path, name);
        Desktop.ExpectMessage("Editor Not Found", "Editor does not exist in INI file.  Cannot edit files.");
        EditResults(State, 1, {});
        EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    }
}

TEST_F(EditResultsTest, SaysWhenThereAreNoResults) {
    State.Tabs[1].Reduction.ResultFiles.Clear();
    Desktop.ExpectMessage("No File(s) Exist", "No reduction file(s) exist.  Can not edit");
    EditResults(State, 1, {});
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
}

TEST_F(EditResultsTest, ReportsAnEditorThatIsNotThere) {
    Desktop.RunsPrograms = true;
    Desktop.ExpectMessageTitled("Program Error");
    EditResults(State, 1, {"ONE.RES"});
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 53"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Source : Dorvane-frmReduce-cmdEdit_Click"));
}

TEST_F(PrintResultsTest, PrintsEachSelectedFileUnderItsFolder) {
    PrintResults(State, 1, {"ONE.RES", "TWO.RES"});
    EXPECT_EQ(Desktop.PrintedLines,
              (Names{"     ", "     File Name : " + Folder + "ONE.RES", "     ", "     first", "     second",
                     "     ", "     File Name : " + Folder + "TWO.RES", "     ", "     third"}));
}

TEST_F(PrintResultsTest, SaysWhenThereAreNoResults) {
    State.Tabs[1].Reduction.ResultFiles.Clear();
    Desktop.ExpectMessage("No File(s) Exist", "No reduction file(s) exist.  Can not print");
    PrintResults(State, 1, {});
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    EXPECT_TRUE(Desktop.PrintFonts.empty());
}

}  // namespace
}  // namespace Dorvane::Testing
