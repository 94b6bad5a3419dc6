// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/road/RoadWalk.h"

#include <functional>
#include <ostream>

#include <fmt/format.h>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane::Road {

void Walk::Step(const std::string& title) {
    Out << fmt::format("\n{:2}  {}\n", ++Steps, title);
}

void Walk::Say(const std::string& text) {
    Out << "      " << Utf8FromText(text) << "\n";
}

void Walk::Done() {
    Files.PrintChanges(Out);
    Out << std::flush;
    Need(Screen.Failures == 0, "a failure was reported");
}

void Walk::Need(bool condition, const std::string& what) const {
    if (!condition)
        throw RoadBlocked(what);
}

namespace {

void OpenSite(const std::string& site, const std::string& programFolder) {
    const std::string drives = site + "/drives";
    Drives::Open(drives);
    if (!Host::Inspect(drives + "/d:").Exists)
        Host::CreateFolder(drives + "/d:");
    Global().ProgramFolder = Drives::DrivePath(programFolder + "/");
    // The walk has a site of its own and stands in the way neither of the program itself nor of a walk on
    // another site.
    if (Global().InstanceName == Globals().InstanceName)
        Global().InstanceName += fmt::format("-road-{:x}", std::hash<std::string>()(Host::RealPath(drives)));
}

void WalkAll(Walk& walk, const std::string& fieldBook) {
    StartUp(walk);
    LayOutSite(walk, fieldBook);
    AddTheSurvey(walk);
    UploadTheBook(walk);
    ReduceTheBook(walk);
    CreateTheInput(walk, "FIRST", false);
    AdjustTheInput(walk, "FIRST");
    ReadTheListing(walk);
    ExportAll(walk);
    UpdateTheDatabase(walk);
    RetrieveInAllUnits(walk);
    CreateTheInput(walk, "SECOND", true);
    AdjustTheInput(walk, "SECOND");
}

}  // namespace

bool WalkTheRoad(const std::string& site, const std::string& fieldBook, const std::string& programFolder,
                 std::ostream& out) {
    std::string blocked;
    try {
        OpenSite(site, programFolder);
        Walk walk(out);
        try {
            WalkAll(walk, fieldBook);
        } catch (const RoadBlocked& block) {
            walk.Files.PrintChanges(out);
            throw;
        }
        out << fmt::format("\nThe adjustment: {}\n", Utf8FromText(walk.Verdict));
        out << fmt::format("\nROAD COMPLETE: {} observations, {} points, m0 {}\n", walk.Observations,
                           walk.Points, walk.M0);
        return true;
    } catch (const RoadBlocked& block) {
        blocked = block.what();
    } catch (const RunTimeError& error) {
        blocked = fmt::format("error {}: {}", error.Number, Utf8FromText(error.Description));
    }
    out << "\nROAD BLOCKED: " << blocked << "\n";
    return false;
}

}  // namespace Dorvane::Road
