// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteCheck.h"

#include <functional>

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "programs/sitecheck/SiteDatabases.h"
#include "programs/sitecheck/SiteIndexes.h"
#include "programs/sitecheck/SiteRegistries.h"
#include "programs/sitecheck/SiteStructures.h"

namespace Dorvane {

namespace {

// What cannot be read is told, and the check goes on with the rest.
void Try(SiteReport& report, const std::string& file, const std::function<void()>& check) {
    try {
        check();
    } catch (const RunTimeError& error) {
        report.Findings.push_back({file, 0, "cannot be read: " + error.Description});
    }
}

void CheckBrokenChange(SiteReport& report, const std::string& folder) {
    if (!folder.empty() && Drives::IsThere(ChangeNotePath(folder)))
        report.Findings.push_back(
            {folder, 0, "holds a change that was broken off", Mend::FinishChange, folder});
}

void CheckSurvey(SiteReport& report, const SiteSystem& system, const SurveyNames& names) {
    const std::string folder = FolderOf(system, names);
    CheckBrokenChange(report, folder);
    if (!system.IsCalibration)
        CheckIndex(report, folder, names);
}

}  // namespace

void CheckSite(SiteReport& report) {
    const std::string init = Global().Init_path;
    if (init.empty()) {
        report.Findings.push_back({"dv_tarvex.ini", 0, "names no folder of structure files"});
        return;
    }
    Try(report, init, [&] { CheckBrokenChange(report, init); });
    std::vector<SiteSystem> systems;
    Try(report, init + "CHOICES.SYS", [&] { systems = CheckStructures(report); });
    std::vector<SurveyNames> all;
    for (const SiteSystem& system : systems) {
        std::vector<SurveyNames> surveys;
        Try(report, init + system.Name + ".PTH", [&] { surveys = CheckRegistry(report, system); });
        for (const SurveyNames& names : surveys)
            Try(report, FolderOf(system, names), [&] { CheckSurvey(report, system, names); });
        all.insert(all.end(), surveys.begin(), surveys.end());
    }
    for (const std::string& location : DatabaseLocations(all)) {
        const std::string folder = Global().Coord_path + location + "\\";
        Try(report, folder, [&] {
            CheckBrokenChange(report, folder);
            CheckDatabase(report, location);
        });
    }
}

}  // namespace Dorvane
