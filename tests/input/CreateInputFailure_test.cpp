// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <filesystem>

#include "core/Drives.h"
#include "input/CreateInput.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

namespace fs = std::filesystem;

const std::string Survey = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\";
const std::string Job = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV12\\";

const std::vector<std::string> Four = {"NET.INP", "NET.ORG", "NET.SUM", "NET.VER"};

// What is meant for the disk and does not get there. The former input is the one in hand before.
class CreateInputFailure : public InputSite {
  protected:
    CreateInputFailure() {
        PutProfiles();
        Screen = OpenScreen();
        PutLines(Survey + "TOTAL.RES", {"ST1 P7 123.4567 99.1234 25.12345"});
        AddTreeFolder(Screen.trvInput, "Laser", Survey);
        MakeFolders(Job);
        Picked = Job;
        Screen.FileFolder = "D:\\FORMER\\";
        Screen.lblFileName = "FORMER.INP";
    }

    void PutFormerFiles() {
        for (const std::string& name : Four)
            PutFile(Job + name, "former " + name);
    }

    static void Permit(const std::string& path, int mode) {
        fs::permissions(Drives::HostPath(path), static_cast<fs::perms>(mode));
    }

    void ExpectName(bool exists) {
        Desktop.ExpectText("Enter VARN input file name", "NET");
        if (exists)
            Desktop.ExpectMessageTitled("File Exists", Answer::Yes);
    }

    /// The failure of a target, told as it has to be.
    void ExpectFailure(const std::string& target) {
        Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
        if (target.ends_with(".INP") || target.ends_with(".ORG"))
            Desktop.ExpectMessage("Error Writing Input File",
                                  "Problem writing header to input file.  Can not continue.");
    }

    static std::string StatusOf(const std::string& target) {
        return target.ends_with(".INP") || target.ends_with(".ORG") ? "Error writing header to input file"
                                                                    : "Input file NOT written";
    }

    static std::string ReporterOf(const std::string& target) {
        if (target.ends_with(".SUM"))
            return "Dorvane-basWrite-WriteSummaryHeader";
        return target.ends_with(".VER") ? "Dorvane-frmInput-cmdCreate_Click"
                                        : "Dorvane-basWrite-WriteInputHeader";
    }

    void ExpectNothingTaken(const std::string& status) const {
        EXPECT_EQ(Status.back(), status);
        EXPECT_EQ(Signs, (std::vector<std::string>{"hourglass", "animation", "still", "pointer"}));
        EXPECT_EQ(FileInHand(Screen), "D:\\FORMER\\FORMER.INP");
        EXPECT_FALSE(Screen.cmdEditEnabled);
        EXPECT_FALSE(Screen.cmdPrintEnabled);
        EXPECT_EQ(Screen.Model.Points.Count(), 0);
    }

    static void ExpectFormerFiles() {
        for (const std::string& name : Four)
            EXPECT_EQ(FileContent(Job + name), "former " + name);
        EXPECT_EQ(AllFiles(Job), Four);
    }

    void Create() { CreateInputFile(Screen, Services()); }

    InputScreen Screen;
};

class CreateInputTarget : public CreateInputFailure, public ::testing::WithParamInterface<std::string> {};

TEST_P(CreateInputTarget, ThatIsAFolderLeavesNoneOfTheFour) {
    MakeFolders(Job + GetParam() + "\\");
    ExpectName(false);
    ExpectFailure(GetParam());
    Create();
    EXPECT_NE(Desktop.Shown[0].Text.find(ReporterOf(GetParam())), std::string::npos) << Desktop.Shown[0].Text;
    ExpectNothingTaken(StatusOf(GetParam()));
    EXPECT_TRUE(AllFiles(Job).empty());
}

TEST_P(CreateInputTarget, ThatIsReadOnlyLeavesTheFormerFour) {
    PutFormerFiles();
    Permit(Job, 0777);
    for (const std::string& name : Four)
        Permit(Job + name, name == GetParam() ? 0444 : 0666);
    AsNobody([this] {
        ExpectName(true);
        ExpectFailure(GetParam());
        Create();
        EXPECT_NE(Desktop.Shown[1].Text.find(ReporterOf(GetParam())), std::string::npos);
        ExpectNothingTaken(StatusOf(GetParam()));
        ExpectFormerFiles();
    });
}

// In a folder where each may only replace files of his own, a foreign file can be opened and not be replaced,
// which is known only when the others have taken their places.
TEST_P(CreateInputTarget, ThatCanNotBeReplacedAtTheLastMomentLeavesTheFormerFour) {
    PutFormerFiles();
    Permit(Job, 01777);
    for (const std::string& name : Four) {
        Permit(Job + name, 0666);
        if (name == GetParam())
            continue;
        ASSERT_EQ(chown(Drives::HostPath(Job + name).c_str(), 65534, 65534), 0);
    }
    AsNobody([this] {
        ExpectName(true);
        Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
        Create();
        EXPECT_NE(LastReport(Desktop).find("Dorvane-frmInput-cmdCreate_Click"), std::string::npos)
            << LastReport(Desktop);
        ExpectNothingTaken("Input file NOT written");
        ExpectFormerFiles();
    });
}

INSTANTIATE_TEST_SUITE_P(EachOfTheFour, CreateInputTarget, ::testing::ValuesIn(Four),
                         [](const auto& target) { return target.param.substr(4); });

TEST_F(CreateInputFailure, OfAFullDiskLeavesTheFormerFour) {
    std::string lines;
    for (int i = 0; i < 3000; ++i)
        lines += "ST1 P7 123.4567 99.1234 25.12345\r\n";
    PutFile(Survey + "TOTAL.RES", lines);
    OnSmallDisk(Job, 256, [this] {
        PutFormerFiles();
        ExpectName(true);
        Desktop.ExpectMessageTitled("Program Error", Answer::No);
        Create();
        EXPECT_EQ(LastReport(Desktop), "61 Dorvane-frmInput-cmdCreate_Click");
        ExpectNothingTaken("Input file NOT written");
        ExpectFormerFiles();
    });
}

TEST_F(CreateInputFailure, OfAFullDiskCanBeTriedAgain) {
    std::string lines;
    for (int i = 0; i < 3000; ++i)
        lines += "ST1 P7 123.4567 99.1234 25.12345\r\n";
    PutFile(Survey + "TOTAL.RES", lines);
    OnSmallDisk(Job, 1024, [this] {
        PutFile(Job + "FILL", std::string(900000, 'x'));
        PutFormerFiles();
        ExpectName(true);
        Desktop.ExpectMessageTitled("Program Error", Answer::Yes);
        Desktop.ExpectMessageTitled("Input File Creation");
        Desktop.OnMessage = [this] {
            if (Desktop.Shown.back().Title == "Program Error")
                Drives::DeleteFile(Job + "FILL");
        };
        Create();
        EXPECT_EQ(AllFiles(Job), Four);
        EXPECT_EQ(FileLines(Job + "NET.ORG").size(), 3000u + 8 + 2 + 1);
        EXPECT_EQ(FileLines(Job + "NET.VER").size(), 8u);
        EXPECT_EQ(FileInHand(Screen), Job + "NET.INP");
    });
}

TEST_F(CreateInputFailure, OfRightsInTheFolderLeavesTheFormerFour) {
    PutFormerFiles();
    AsNobody([this] {
        ExpectName(true);
        ExpectFailure("NET.INP");
        Create();
        ExpectNothingTaken("Error writing header to input file");
        ExpectFormerFiles();
    });
}

}  // namespace
}  // namespace Dorvane::Testing
