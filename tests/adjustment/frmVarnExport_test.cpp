// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/adjustment/Listing.h"
#include "tests/adjustment/VarnScreenSite.h"

namespace Dorvane::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Entry {
    const char* Name;
    const char* File;
    const char* Text;
};
constexpr Entry Exports[] = {{"mnuDbs", "NET.DBS", "Dbs file "},
                             {"mnuXyz", "NET.XYZ", "Xyz file "},
                             {"mnuInu", "NET.INU", "7Fit Inu file "},
                             {"mnuKeld", "NET.TRG", "Keld Trg file "},
                             {"MnuSta", "NET.STA", "Sta file "}};

struct frmVarnExport : VarnScreenSite {
    frmVarnExport() { PutLines(Output, GoodListingLines()); }

    void Export(frmVarn& screen, const Entry& entry, const std::string& title = "") {
        Desktop.ExpectFile(title, std::string("D:\\ADJ\\") + entry.File);
        Desktop.ExpectMessage("Finished", std::string(entry.Text) + "D:\\ADJ\\" + entry.File + " completed.");
        if (entry.Name == std::string("mnuDbs"))
            Desktop.ExpectMessageTitled("Dbs File Warning");  // there are no folders for project and task
        Choose(screen, entry.Name);
    }
    static bool AnyTicked(frmVarn& screen) {
        return std::any_of(std::begin(Exports), std::end(Exports),
                           [&](const Entry& entry) { return IsTicked(screen, entry.Name); });
    }
};

TEST_F(frmVarnExport, WritesItsFileAndIsTicked) {
    frmVarn& screen = OpenNet();
    for (const Entry& entry : Exports) {
        EXPECT_FALSE(IsTicked(screen, entry.Name));
        Export(screen, entry);
        EXPECT_TRUE(IsTicked(screen, entry.Name)) << entry.Name;
        EXPECT_NE(FileContent(std::string("D:\\ADJ\\") + entry.File), "");
        EXPECT_EQ(Desktop.Dialogs.back().FileName, entry.File);
    }
}

TEST_F(frmVarnExport, WaitsUntilTheClickEnds) {
    frmVarn& screen = OpenNet();
    bool waits = false;
    Desktop.OnMessage = [&] { waits = screen.cursor().shape() == Qt::WaitCursor; };
    Export(screen, Exports[0]);
    EXPECT_TRUE(waits);
    EXPECT_NE(screen.cursor().shape(), Qt::WaitCursor);
    Desktop.ExpectFile("", std::nullopt);
    Choose(screen, "mnuXyz");
    EXPECT_NE(screen.cursor().shape(), Qt::WaitCursor);
}

TEST_F(frmVarnExport, CancelledIsNotTicked) {
    frmVarn& screen = OpenNet();
    for (const Entry& entry : Exports) {
        Desktop.ExpectFile("", std::nullopt);
        Choose(screen, entry.Name);
    }
    EXPECT_FALSE(AnyTicked(screen));
}

TEST_F(frmVarnExport, StaysTickedAfterALaterClick) {
    frmVarn& screen = OpenNet();
    Export(screen, Exports[2]);
    for (int i = 0; i < 2; ++i) {
        Desktop.ExpectFile("", std::nullopt);
        Choose(screen, "mnuInu");
        EXPECT_TRUE(IsTicked(screen, "mnuInu"));
    }
}

TEST_F(frmVarnExport, LosesTheTicksOfTwoEntriesWithAnotherInput) {
    Put("B.INP");
    Put("B.OUT");
    frmVarn& screen = OpenNet();
    for (const Entry& entry : Exports)
        Export(screen, entry);
    screen.SetInput("D:\\ADJ\\B.INP");
    EXPECT_FALSE(IsTicked(screen, "mnuXyz"));
    EXPECT_FALSE(IsTicked(screen, "mnuInu"));
    for (const char* kept : {"mnuDbs", "mnuKeld", "MnuSta"})
        EXPECT_TRUE(IsTicked(screen, kept)) << kept;
}

TEST_F(frmVarnExport, AsksBeforeItOverwrites) {
    PutFile("D:\\ADJ\\NET.STA", "former");
    frmVarn& screen = OpenNet();
    Desktop.ExpectFile("", "D:\\ADJ\\NET.STA");
    Desktop.ExpectMessage("Project Exists",
                          "File D:\\ADJ\\NET.STA already exists!  Do you wish to overwrite?", Answer::No);
    Choose(screen, "MnuSta");
    EXPECT_EQ(FileContent("D:\\ADJ\\NET.STA"), "former");
    EXPECT_FALSE(AnyTicked(screen));
}

TEST_F(frmVarnExport, OfAVersionReadsTheMastersListing) {
    Put("NET_v01.INP");
    PutLines("D:\\ADJ\\NET_v01.OUT", {"Final results", "skipped", "VERSION 1 2 3", ""});
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 2);
    std::string before;
    Desktop.OnMessage = [&] { before = TextOf(screen, "lblStatus"); };
    Export(screen, Exports[2], "Export of the master's NET.OUT");
    EXPECT_EQ(before, "Export of the master's NET.OUT, not of Version 01");
    EXPECT_EQ(TextOf(screen, "lblStatus"), before);
    EXPECT_THAT(FileContent("D:\\ADJ\\NET.INU"), StartsWith("ST1 "));
    Drives::DeleteFile(Output);
    EXPECT_TRUE(ExportsEnabled(screen));
    Choose(screen, "mnuXyz");
    EXPECT_EQ(TextOf(screen, "lblStatus"),
              "Nothing exported: D:\\ADJ\\NET.OUT does not exist; a listing of Version 01 is not exported");
    EXPECT_FALSE(IsTicked(screen, "mnuXyz"));
}

TEST_F(frmVarnExport, OfADamagedListingSaysWhyInTheStatusBarAlone) {
    frmVarn& screen = OpenNet();
    for (const std::string& damaged :
         {std::string(), std::string("\xFF\xFE\x00\x1A\r\r\n", 7), std::string(1000000, 'x'),
          std::string("Final results\r\n") + std::string(1000000, '\0'),
          std::string("Final results\r\nskipped\r\n  P1 1.0 2.0")}) {
        PutFile(Output, damaged);
        for (const Entry& entry : Exports) {
            Choose(screen, entry.Name);
            EXPECT_EQ(TextOf(screen, "lblStatus"),
                      "Nothing exported: NET.OUT has no results, or ends before they do");
            Click(screen, "chkInputFile");
            EXPECT_EQ(TextOf(screen, "lblStatus"), "Output file present");
        }
        EXPECT_FALSE(AnyTicked(screen));
        EXPECT_NE(screen.cursor().shape(), Qt::WaitCursor);
    }
    EXPECT_THAT(Desktop.Dialogs, IsEmpty());
}

TEST_F(frmVarnExport, ToAFolderThatVanishedIsReported) {
    frmVarn& screen = OpenNet();
    Desktop.ExpectFile("", "D:\\GONE\\NET.TRG");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Choose(screen, "mnuKeld");
    EXPECT_THAT(Desktop.Shown[0].Text, HasSubstr("Error : 76"));
    EXPECT_FALSE(AnyTicked(screen));
}

TEST_F(frmVarnExport, ToAFolderThatMayNotBeWrittenIsReported) {
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            frmVarn& screen = OpenNet();
            desktop.ExpectFile("", "D:\\ADJ\\NET.DBS");
            desktop.ExpectMessageTitled("Program Error");
            Choose(screen, "mnuDbs");
            EXPECT_THAT(desktop.Shown[0].Text, EndsWith("Source : Dorvane-basWrite-WriteDbsFile"));
            EXPECT_FALSE(AnyTicked(screen));
            EXPECT_TRUE(screen.isVisible());
        });
    });
}

TEST_F(frmVarnExport, ToAFullDiskIsReported) {
    MakeFolders("D:\\FULL\\");
    InFreshProcess([&] {
        OnSmallDisk("D:\\FULL\\", 16, [&] {
            ScriptedDesktop desktop;
            frmVarn& screen = OpenNet();
            try {
                for (int i = 1; i < 100; ++i)
                    PutFile("D:\\FULL\\FILL." + std::to_string(i), std::string(4096, 'f'));
                ADD_FAILURE() << "the disk took all of it";
            } catch (const RunTimeError& error) {
                EXPECT_EQ(error.Number, DiskFull);
            }
            desktop.ExpectFile("", "D:\\FULL\\NET.STA");
            desktop.ExpectMessageTitled("Program Error", Answer::No);
            Choose(screen, "MnuSta");
            EXPECT_THAT(desktop.Shown[0].Text, HasSubstr("Error : 61"));
            EXPECT_FALSE(AnyTicked(screen));
            EXPECT_NE(screen.cursor().shape(), Qt::WaitCursor);
        });
    });
}

TEST_F(frmVarnExport, TakesAccentsInPathsAndMarkupInTexts) {
    const std::string folder = "D:\\D\xE9p\xF4t & b\\ADJ\\";
    PutLines(folder + "R\xE9s.INP",
             {"NORL", "", "  PROJECT = P\xFC & <i>", "     TASK = T", "     DATE = D", "LISTING = STATS"});
    PutLines(folder + "R\xE9s.OUT", GoodListingLines());
    frmVarn& screen = Open(folder + "R\xE9s.INP");
    Desktop.ExpectFile("", folder + "R\xE9s.XYZ");
    Desktop.ExpectMessage("Finished", "Xyz file " + folder + "R\xE9s.XYZ completed.");
    Choose(screen, "mnuXyz");
    EXPECT_EQ(FileLines(folder + "R\xE9s.XYZ")[2], "Job Id   :   P\xFC & <i>");
}

TEST_F(frmVarnExport, TakesTenThousandPoints) {
    std::vector<std::string> lines = {"Final results", "skipped"};
    for (int i = 1; i <= 10000; ++i)
        lines.push_back("  P" + std::to_string(i) + "   1500.11111   2500.22222   35.33333");
    lines.emplace_back();
    PutLines(Output, lines);
    frmVarn& screen = OpenNet();
    for (const Entry* entry : {&Exports[2], &Exports[4]}) {
        Export(screen, *entry);
        EXPECT_TRUE(IsTicked(screen, entry->Name));
    }
    const std::vector<std::string> written = FileLines("D:\\ADJ\\NET.INU");
    EXPECT_EQ(written.size(), 10000U);
    EXPECT_THAT(written.back(), StartsWith("P10000 "));
}

}  // namespace
}  // namespace Dorvane::Testing
