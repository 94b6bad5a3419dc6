// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <filesystem>

#include "adjustment/ExportRun.h"
#include "adjustment/Package.h"
#include "adjustment/VarnRun.h"
#include "adjustment/basVarn.h"
#include "core/Drives.h"
#include "tests/adjustment/Listing.h"
#include "tests/faults/FaultLibrary.h"
#include "tests/faults/Steps.h"
#include "tests/krenn/InputText.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string Job = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV12\\";

void PrepareExport() {
    PutLines(Job + "NET.INP", {"NORL", "", "  PROJECT = North Dam", "     TASK = Level 2",
                               "     DATE = the run", "LISTING = STATS"});
    PutLines(Job + "NET.OUT", GoodListingLines());
    for (const char* name : {"NET.XYZ", "NET.INU", "NET.DBS"})
        PutLines(Job + name, {std::string("former ") + name});
}

void OpenScreen(VarnState& state) {
    FaultsPause();
    LoadVarn(state);
    ChangeInput(state, Job + "NET.INP");
    FaultsResume();
}

bool Export(TellingDesktop& desktop, const ExportKind& kind) {
    VarnState state;
    OpenScreen(state);
    desktop.AskedFile = Job + "NET" + kind.Extension;
    ExportResults(state, kind, {});
    // A refusal is told in the status bar.
    if (!state.Notice.empty())
        desktop.Told.push_back({state.Notice, "Notice"});
    return desktop.HasTold("Finished");
}

bool WriteXyz(TellingDesktop& desktop) {
    return Export(desktop, ExportXyz);
}
bool WriteInu(TellingDesktop& desktop) {
    return Export(desktop, ExportInu);
}
bool WriteDbs(TellingDesktop& desktop) {
    return Export(desktop, ExportDbs);
}

// A point by its distances from four corners and its height above one.
void PrepareRun() {
    using KrennTest::InputText;
    InputText input;
    const double corners[4][2] = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    for (const auto& [x, y] : corners) {
        const std::string name(1, static_cast<char>('A' + input.points.size()));
        input.points.push_back(InputText::Given(name, x, y, 0));
        input.fixed.push_back(name);
        input.Distance(name, "P1", std::hypot(x - 40, y - 50, 1), 0.001);
    }
    input.points.push_back(InputText::Given("P1", 40, 50, 1));
    input.Height("A", "P1", 1, 0.001);
    PutFile(Job + "NET.INP", input.Text());
    std::filesystem::create_symlink(DORVANE_FOLDER "/" + KrennPackage::LibraryName(),
                                    Drives::HostPath("P:\\DORVANE\\") + KrennPackage::LibraryName());
    // The first run writes its parameters beside the input.
    KrennPackage package;
    std::string path = Job + "NET.INP";
    package.Start(path);
    package.Go(1);
    package.Stop();
    PutLines(Job + "NET.OUT", {"former listing"});
}

bool Adjust(TellingDesktop& desktop) {
    VarnState state;
    OpenScreen(state);
    KrennPackage package;
    RunVarn(state, package, {});
    return desktop.HasTold("Varn Successful");
}

}  // namespace

const std::vector<Step> AdjustmentSteps = {{"xyz", PrepareExport, WriteXyz},
                                           {"inu", PrepareExport, WriteInu},
                                           {"dbs", PrepareExport, WriteDbs},
                                           {"adjust", PrepareRun, Adjust}};

}  // namespace Dorvane::Testing
