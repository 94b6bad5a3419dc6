// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adjustment/VarnRun.h"
#include "adjustment/basVarn.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::FileContent;
using testing::HasSubstr;
using testing::IsEmpty;
using Testing::PutFile;
using Testing::PutLines;

// A package that records its calls and, in Go, leaves a listing where it is told to.
class RecordedPackage : public AdjustmentPackage {
  public:
    explicit RecordedPackage(std::vector<std::string>& steps) : Steps(steps) {}

    std::int16_t Start(std::string& inputPath) override {
        Steps.push_back("start " + inputPath);
        if (!LeavesInPath.empty())
            inputPath = LeavesInPath;
        return StartResult;
    }
    std::int16_t Go(std::int32_t type) override {
        Steps.push_back("go " + std::to_string(type));
        if (!Listing.empty())
            PutFile(Listing, "the listing\r\n");
        if (!Parameters.empty())
            PutFile(Parameters, "");
        if (Deed)
            Deed();
        return GoResult;
    }
    void Stop() override { Steps.push_back("stop"); }

    std::int16_t StartResult = 0;
    std::int16_t GoResult = 0;
    std::string Listing;
    std::string Parameters;
    std::string LeavesInPath;
    std::function<void()> Deed;

  private:
    std::vector<std::string>& Steps;
};

class VarnRun : public testing::Test {
  protected:
    VarnRun() {
        LoadVarn(State);
        PutLines(Net, {"NORL", "", "  PROJECT = P", "     TASK = T"});
        ChangeInput(State, Net);
        View.BeginWait = [this] { Steps.push_back("begin wait"); };
        View.ShowNumbers = [this] {
            Steps.push_back("show " + State.lblStartReturn + "/" + State.lblGoReturn);
        };
        View.StopAnimation = [this] { Steps.push_back("stop animation"); };
        View.EndWait = [this] { Steps.push_back("end wait"); };
    }

    void Run() { RunVarn(State, Package, View); }
    int ErrorOfRun() {
        try {
            Run();
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }
    void ExpectSuccess() { Desktop.ExpectMessage("Varn Successful", "Varn completed successfully!"); }

    const std::string Net = "D:\\ADJ\\NET.INP";
    const std::string Output = "D:\\ADJ\\NET.OUT";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    VarnState State;
    std::vector<std::string> Steps;
    RecordedPackage Package{Steps};
    VarnRunView View;
};

TEST_F(VarnRun, CallsThePackageInOrderAndTellsOfSuccess) {
    Package.Listing = Output;
    ExpectSuccess();
    Run();
    EXPECT_THAT(Steps, ElementsAre("begin wait", "start " + Net, "show 0/", "go 1", "show 0/0", "stop",
                                   "stop animation", "end wait"));
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    const std::string content = FileContent(Output);
    EXPECT_THAT(content, HasSubstr("VARN Adjustment Output"));
    EXPECT_THAT(content, testing::EndsWith("___\r\nthe listing\r\n"));
}

TEST_F(VarnRun, HandsOverTheNumberOfTheTypeNotItsPosition) {
    const std::vector<std::string> expected = {"go 0", "go 1", "go -1", "go 7"};
    Package.GoResult = 1;
    for (int position = 0; position < 4; ++position) {
        Desktop.ExpectMessageTitled("Varn Error");
        State.cmbVarn.Selected = position + 1;
        Steps.clear();
        Run();
        EXPECT_THAT(Steps, testing::Contains(expected[static_cast<std::size_t>(position)]));
    }
}

TEST_F(VarnRun, WithoutATypeDoesNotCallGoAndCountsAsSuccess) {
    PutFile(Output, "an older listing\r\n");
    State.cmbVarn.Selected = 0;
    ExpectSuccess();
    Run();
    EXPECT_THAT(Steps, ElementsAre("begin wait", "start " + Net, "show 0/", "show 0/0", "stop",
                                   "stop animation", "end wait"));
    EXPECT_THAT(FileContent(Output), HasSubstr("VARN Adjustment Output"));
}

TEST_F(VarnRun, GoesOnWhateverStartGave) {
    Package.StartResult = 3;
    Package.Listing = Output;
    ExpectSuccess();
    Run();
    EXPECT_EQ(State.lblStartReturn, "3");
    EXPECT_EQ(State.lblGoReturn, "0");
}

TEST_F(VarnRun, TellsThePackagesErrorNumberAndLeavesTheListingWithoutBanner) {
    Package.GoResult = -12;
    Package.Listing = Output;
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error -12 returned.");
    Run();
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
    EXPECT_EQ(State.lblGoReturn, "-12");
}

TEST_F(VarnRun, ThatFailedLeavesAnOlderListingToBeExported) {
    PutFile(Output, "an older listing\r\n");
    Package.GoResult = 5;
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_TRUE(State.mnuXyz.Enabled);
    EXPECT_TRUE(State.mnuInu.Enabled);
    EXPECT_TRUE(State.mnuKeld.Enabled);
    EXPECT_TRUE(State.chkOutputFile.Enabled);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
}

TEST_F(VarnRun, ThatMadeAListingOpensTheExports) {
    EXPECT_FALSE(State.mnuXyz.Enabled);
    Package.Listing = Output;
    ExpectSuccess();
    Run();
    EXPECT_TRUE(State.mnuXyz.Enabled);
    EXPECT_TRUE(State.mnuInu.Enabled);
    EXPECT_TRUE(State.mnuKeld.Enabled);
    EXPECT_TRUE(State.chkOutputFile.Enabled);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
}

TEST_F(VarnRun, ThatFailedWithoutListingClosesTheExports) {
    PutFile(Output, "");
    ChangeInput(State, Net);
    Drives::DeleteFile(Output);
    Package.GoResult = 5;
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_FALSE(State.mnuXyz.Enabled);
    EXPECT_FALSE(State.mnuInu.Enabled);
    EXPECT_FALSE(State.mnuKeld.Enabled);
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::LightRed);
}

TEST_F(VarnRun, OfAVersionTakesThatVersionsInputAndListing) {
    PutLines("D:\\ADJ\\NET_v02.INP", {"", "PROJECT = version", "TASK = T"});
    ChangeInput(State, Net);
    ClickVersion(State, 2);
    Package.Listing = "D:\\ADJ\\NET_v02.OUT";
    ExpectSuccess();
    Run();
    EXPECT_EQ(Steps[1], "start D:\\ADJ\\NET_v02.INP");
    EXPECT_THAT(FileContent("D:\\ADJ\\NET_v02.OUT"), HasSubstr("  Project  =  version\r\n"));
    EXPECT_EQ(State.lblOutput.Caption, Output);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
}

TEST_F(VarnRun, ShowsTheParameterFileThatThePackageWrote) {
    EXPECT_EQ(State.lblPar.Colour, LabelColour::LightRed);
    Package.Parameters = "D:\\ADJ\\NET.PAR";
    Package.GoResult = 21;
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_EQ(State.lblPar.Colour, LabelColour::Black);
    PutFile("D:\\ADJ\\NET_v02.INP", "");
    ChangeInput(State, Net);
    ClickVersion(State, 2);
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_EQ(State.lblPar.Colour, LabelColour::LightRed);
}

// An input in a folder with a point in its name, beside the listing of another job.
class CutNames : public VarnRun {
  protected:
    CutNames() {
        PutLines(Input, {"NORL", "", "  PROJECT = P", "     TASK = T"});
        PutFile("D:\\JOB.1\\NET_v02.INP", "");
        PutFile("D:\\JOB.OUT", "another job's\r\n");
        ChangeInput(State, Input);
    }

    void ExpectQuestion(const std::string& input, const std::string& listing, Answer answer) {
        Desktop.ExpectMessage("Varn File Names",
                              "The files of this run are named by the path up to its first \".\":\r\n\r\n"
                              "Input : " +
                                  input + "\r\nOutput : " + listing +
                                  "\r\n\r\nThey may be another job's.  Do you wish to run Varn?",
                              answer);
    }

    const std::string Input = "D:\\JOB.1\\NET.INP";
};

TEST_F(CutNames, AreShownAndToldInTheStatusBar) {
    EXPECT_EQ(State.lblPar.Caption, "D:\\JOB.PAR");
    EXPECT_EQ(State.lblOutput.Caption, "D:\\JOB.OUT");
    EXPECT_EQ(StatusOf(State),
              "The path is cut at its first \".\"; the files named above may be another job's");
}

TEST_F(CutNames, AreAskedAboutAndNothingIsRunAfterNo) {
    ExpectQuestion(Input, "D:\\JOB.OUT", Answer::No);
    Run();
    EXPECT_THAT(Steps, IsEmpty());
    EXPECT_EQ(Desktop.Shown[0].Default, Answer::No);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(StatusOf(State), "Varn was not run");
}

TEST_F(CutNames, OfAVersionAreCutInTheSameWay) {
    ClickVersion(State, 2);
    Package.GoResult = 1;
    ExpectQuestion("D:\\JOB_v02.INP", "D:\\JOB_v02.OUT", Answer::Yes);
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_EQ(Steps[1], "start D:\\JOB_v02.INP");
}

TEST_F(CutNames, DoNotTakeAnotherJobsListing) {
    Package.Listing = "D:\\JOB.1\\NET.OUT";
    ExpectQuestion(Input, "D:\\JOB.OUT", Answer::Yes);
    EXPECT_EQ(ErrorOfRun(), FileNotFound);
    EXPECT_EQ(FileContent("D:\\JOB.OUT"), "another job's\r\n");
    EXPECT_EQ(State.MadeListing, "");
}

TEST_F(CutNames, TakeTheListingOfAPackageThatCutsThemToo) {
    Package.Listing = "D:\\JOB.OUT";
    ExpectQuestion(Input, "D:\\JOB.OUT", Answer::Yes);
    ExpectSuccess();
    Run();
    EXPECT_THAT(FileContent("D:\\JOB.OUT"), HasSubstr("VARN Adjustment Output"));
    EXPECT_EQ(State.MadeListing, "D:\\JOB.OUT");
    ChangeInput(State, Input);
    EXPECT_EQ(State.MadeListing, "");
}

TEST_F(CutNames, DoNotShowWhatAnotherJobsListingSays) {
    const std::string failed = " RUN FAILED\r\n\r\n  Error 21: Points\r\n";
    PutFile("D:\\JOB.OUT", failed);
    ChangeInput(State, Input);
    EXPECT_EQ(State.Verdict, ListingVerdict());
    Package.Deed = [&] { PutFile("D:\\JOB.OUT", failed); };
    Package.GoResult = 21;
    ExpectQuestion(Input, "D:\\JOB.OUT", Answer::Yes);
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_EQ(State.Verdict.Result, "RUN FAILED");
}

TEST_F(VarnRun, OfAMasterCopyHandsItOverAsItWasChosen) {
    PutLines("D:\\ADJ\\NET.ORG", {"", "PROJECT = P", "TASK = T"});
    ChangeInput(State, "D:\\ADJ\\NET.ORG");
    Package.Listing = Output;
    ExpectSuccess();
    Run();
    EXPECT_EQ(Steps[1], "start D:\\ADJ\\NET.ORG");
}

TEST_F(VarnRun, WithoutInputHandsOverTheEmptyPath) {
    ChangeInput(State, "");
    Package.GoResult = 1;
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 1 returned.");
    Run();
    EXPECT_EQ(Steps[1], "start ");
}

TEST_F(VarnRun, DoesNotDependOnWhatThePackageLeavesInThePath) {
    Package.Listing = Output;
    Package.LeavesInPath = "Q:\\NOWHERE.INP";
    ExpectSuccess();
    Run();
    EXPECT_THAT(FileContent(Output), HasSubstr("  Project  =  P\r\n"));
    EXPECT_EQ(State.txtInput, Net);
}

TEST_F(VarnRun, WithSuccessButNoListingRaises) {
    EXPECT_EQ(ErrorOfRun(), FileNotFound);
    EXPECT_EQ(Steps.back(), "end wait");
    EXPECT_EQ(State.lblGoReturn, "0");
    EXPECT_EQ(Testing::AllFiles("D:\\"), std::vector<std::string>{"ADJ\\NET.INP"});
}

TEST_F(VarnRun, WithSuccessButAnEarlierRunsListingRaisesAndLeavesIt) {
    PutFile(Output, "an older listing\r\n");
    ChangeInput(State, Net);
    try {
        Run();
        ADD_FAILURE() << "success was told";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, FileNotFound);
        EXPECT_THAT(error.Description, HasSubstr(Output + " of this run"));
    }
    EXPECT_EQ(FileContent(Output), "an older listing\r\n");
    EXPECT_EQ(State.MadeListing, "");
    EXPECT_EQ(Steps.back(), "end wait");
}

TEST_F(VarnRun, WithSuccessThatTookTheListingAwayRaises) {
    PutFile(Output, "an older listing\r\n");
    Package.Deed = [this] { Drives::DeleteFile(Output); };
    EXPECT_EQ(ErrorOfRun(), FileNotFound);
    EXPECT_EQ(State.MadeListing, "");
}

TEST_F(VarnRun, TellsThatTheListingIsOfAnEarlierRun) {
    PutFile(Output, "an older listing\r\n");
    Package.GoResult = 5;
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_EQ(StatusOf(State), "The output file is of an earlier run");
    Package.Listing = Output;
    State.Notice.clear();
    Desktop.ExpectMessageTitled("Varn Error");
    Run();
    EXPECT_EQ(StatusOf(State), "Output file present");
}

TEST_F(VarnRun, ShowsWhatTheListingOfTheVersionSays) {
    EXPECT_EQ(State.Verdict, ListingVerdict());
    Package.Deed = [this] { PutFile(Output, " RUN FAILED\r\n\r\n  Error 21: Points\r\n"); };
    Package.GoResult = 21;
    Desktop.ExpectMessageTitled("Varn Error");
    Desktop.OnMessage = [this] { EXPECT_EQ(State.Verdict.Doubt, "Error 21: Points"); };
    Run();
    EXPECT_EQ(State.Verdict.Result, "RUN FAILED");
    PutFile("D:\\ADJ\\NET_v02.INP", "");
    ChangeInput(State, Net);
    EXPECT_EQ(State.Verdict.Result, "RUN FAILED");
    ClickVersion(State, 2);
    EXPECT_EQ(State.Verdict, ListingVerdict());
    ClickVersion(State, 1);
    EXPECT_EQ(State.Verdict.Result, "RUN FAILED");
    for (const char* none : {"", "D:\\ADJ\\GONE.INP"}) {
        ChangeInput(State, Net);
        ChangeInput(State, none);
        EXPECT_EQ(State.Verdict, ListingVerdict()) << none;
    }
}

TEST_F(VarnRun, CancelledLeavesTheListingAndTellsNoSuccess) {
    PutFile(Output, "an older listing\r\n");
    State.lblGoReturn = "7";
    Package.Deed = [] { throw RunCancelled(); };
    Run();
    EXPECT_THAT(Steps, ElementsAre("begin wait", "start " + Net, "show 0/7", "go 1", "end wait"));
    EXPECT_EQ(FileContent(Output), "an older listing\r\n");
    EXPECT_EQ(StatusOf(State), "Varn was cancelled; the output file is as it was");
    EXPECT_EQ(State.lblGoReturn, "");
    EXPECT_TRUE(State.mnuXyz.Enabled);
}

TEST_F(VarnRun, CancelledWithoutAListingSaysSo) {
    Package.Deed = [] { throw RunCancelled(); };
    Run();
    EXPECT_EQ(StatusOf(State), "Varn was cancelled; there is no output file");
    EXPECT_FALSE(State.mnuXyz.Enabled);
}

TEST_F(VarnRun, CancelledTooLateSaysThatTheListingIsNew) {
    PutFile(Output, "an older listing\r\n");
    Package.Listing = Output;
    Package.Deed = [] { throw RunCancelled(); };
    Run();
    EXPECT_EQ(StatusOf(State), "Varn was cancelled when the listing was written; it has no banner");
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
}

TEST_F(VarnRun, WithoutProjectAndTaskRaisesAndLeavesTheListing) {
    PutLines(Net, {"NORL", "Theodolite Stations", "END"});
    Package.Listing = Output;
    EXPECT_EQ(ErrorOfRun(), InputPastEnd);
    EXPECT_EQ(Steps.back(), "end wait");
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
    EXPECT_TRUE(State.mnuXyz.Enabled);
}

TEST_F(VarnRun, WithoutPackageRaisesAndEndsTheWait) {
    PutFile("P:\\DORVANE\\" + KrennPackage::LibraryName(), "no library");
    KrennPackage broken;
    EXPECT_THROW(RunVarn(State, broken, View), RunTimeError);
    EXPECT_THAT(Steps, ElementsAre("begin wait", "end wait"));
}

TEST_F(VarnRun, OfAPackageThatEndsShowsWhetherThereIsAListing) {
    struct EndingPackage : RecordedPackage {
        using RecordedPackage::RecordedPackage;
        std::int16_t Go(std::int32_t /*type*/) override {
            Drives::DeleteFile("D:\\ADJ\\NET.OUT");
            throw RunTimeError(InternalError);
        }
    } ending{Steps};
    PutFile(Output, "an older listing\r\n");
    ChangeInput(State, Net);
    EXPECT_TRUE(State.mnuXyz.Enabled);
    EXPECT_THROW(RunVarn(State, ending, View), RunTimeError);
    EXPECT_FALSE(State.mnuXyz.Enabled);
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::LightRed);
    EXPECT_EQ(Steps.back(), "end wait");
}

TEST_F(VarnRun, NeedsNoView) {
    Package.GoResult = 1;
    Desktop.ExpectMessageTitled("Varn Error");
    RunVarn(State, Package, {});
    EXPECT_THAT(Steps, ElementsAre("start " + Net, "go 1", "stop"));
}

}  // namespace
}  // namespace Dorvane
