// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "datatree/basTree.h"

namespace Dorvane {

namespace {

std::string Below(const std::string& folder, const std::string& name) {
    return folder + "\\" + name;
}

// True when the folder was missing; it is made then.
bool MakeMissingFolder(Guard& guard, const std::string& path) {
    std::string tested = path;
    if (FolderExists(tested))
        return false;
    guard.Run([&] { Drives::CreateFolder(path); });
    return true;
}

// What a survey that broke off has entered already is not entered again.
void Register(const SurveyAnswer& survey, const List1<std::string>& types) {
    const std::string today = DashedDate(TheDesktop().Now());
    for (const std::string& type : types) {
        const bool registered = IsRegistered(survey, type);
        if (!registered)
            UpdatePthFileAdd(survey.Root, survey.Location, type, survey.Epoch);
        if (!registered || !IsInHistory(survey, type))
            UpdateHisFileAdd(survey.Root, survey.Location, type, survey.Epoch, survey.NewHistory, today);
    }
}

void MakeCoordinateFiles(Guard& guard, const std::string& location, const SurveyServices& services) {
    const std::string folder = Global().Coord_path + location;
    // A folder that is there is left as it is, but for what a making that was broken off did not come to.
    if (MakeMissingFolder(guard, folder) ||
        (services.LacksCoordFiles && services.LacksCoordFiles(folder + "\\", location)))
        guard.Run([&] { services.WriteCoordNew(folder + "\\", location); });
}

void MakeEpochFolder(Guard& guard, const std::string& typeFolder, const std::string& epoch,
                     const SurveyServices& services) {
    const std::string folder = Below(typeFolder, epoch);
    MakeMissingFolder(guard, folder);
    const std::string index = epoch + ".IDX";
    if (!FileExists(Below(folder, index)))
        guard.Run([&] { services.WriteSrvNew(folder + "\\", index); });
}

// Makes what is missing on the disk, each folder behind the one that holds it.
void MakeFolders(Guard& guard, const SurveyAnswer& survey, const List1<std::string>& types,
                 const SurveyServices& services) {
    const std::string root = Global().Data_drive + survey.Root;
    const std::string location = Below(root, survey.Location);
    const std::string projects = Below(location, "ADJUST");
    MakeMissingFolder(guard, root);
    MakeMissingFolder(guard, location);
    MakeCoordinateFiles(guard, survey.Location, services);
    for (const std::string& type : types)
        MakeMissingFolder(guard, Below(location, type));
    MakeMissingFolder(guard, projects);
    for (const std::string& type : types)
        MakeEpochFolder(guard, Below(location, type), survey.Epoch, services);
    MakeMissingFolder(guard, Below(projects, survey.Epoch));
}

}  // namespace

SurveyReport AddSurvey(const SurveyAnswer& survey, const SurveyServices& services, TreeModel& tree) {
    if (survey.Root.empty() || survey.Location.empty() || survey.TypeMulti.empty() || survey.Epoch.empty())
        return {};
    List1<std::string> types;
    const bool counted =
        Guarded("frmTree-cmdAdd_Click", [&](Guard&) { ParseFields(types, survey.TypeMulti); });
    if (!counted)
        return {};
    const SurveyStock stock(survey, types);
    Guarded("frmTree-cmdAdd_Click", [&](Guard& guard) {
        {
            const FolderLock lock(Global().Init_path);
            Register(survey, types);
            MakeFolders(guard, survey, types, services);
        }
        ReloadPathRecords(services.Waiting, "Updating Tarvex data folders.");
        tree.Clear();
        TarvexTreeSetup(Global().PathRecords, Global().PathRecords.Count(), tree);
    });
    return stock.Compare();
}

}  // namespace Dorvane
