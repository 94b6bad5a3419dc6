// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteMend.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/LineWriter.h"
#include "core/ReplaceFiles.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/DatabaseFiles.h"
#include "database/basDatabase.h"
#include "datatree/basTree.h"
#include "programs/editors/CalibEdit.h"
#include "programs/editors/TarvexProfile.h"
#include "programs/sitecheck/SiteCheck.h"
#include "programs/sitecheck/SiteDatabases.h"
#include "programs/sitecheck/SiteRegistries.h"
#include "upload/SurveyIndex.h"

namespace Dorvane {

namespace {

bool IsCalibration(const std::string& system) {
    return system == CalibSystemName(Global().Calib_path);
}

std::string InitFile(const std::string& system, const char* extension) {
    return Global().Init_path + system + extension;
}

std::string SystemOfRegistry(const std::string& path) {
    return UpperCase(BeforeFirstPoint(path.substr(Drives::FolderPart(path).size())));
}

// The files that mending a finding may change.
std::vector<std::string> FilesChanged(const Finding& finding) {
    switch (finding.How) {
        case Mend::DropLines: return {finding.File};
        case Mend::Register:
            return {InitFile(finding.Names.System, ".PTH"), InitFile(finding.Names.System, ".HIS")};
        case Mend::EnterHistory: return {InitFile(finding.Names.System, ".HIS")};
        case Mend::EnterBook: return {finding.Target};
        case Mend::MakeDatabaseFiles:
        case Mend::AddBias: return {Global().Init_path + "BIAS.STR"};
        case Mend::RebuildReference: return {finding.Target + finding.Names.Location + ".REF"};
        case Mend::RebuildDatabase: {
            const DatabaseType& type = DatabaseTypeOf(finding.Type);
            return {finding.Target + type.DataFile(), finding.Target + type.IndexFile(),
                    finding.Target + type.ListFile()};
        }
        case Mend::FinishChange: {
            std::vector<std::string> files;
            for (const StagedContent& file : ReadChangeNote(finding.Target).Files)
                files.push_back(file.Path);
            return files;
        }
        default: return {};
    }
}

// "D:\A\B.TXT" below the folder of the copies.
std::string CopyPath(const std::string& copies, const std::string& path) {
    std::string below = path;
    below.erase(std::remove(below.begin(), below.end(), ':'), below.end());
    return copies + below;
}

std::string NewFolderOfCopies() {
    const DateTime now = TheDesktop().Now();
    const std::string stamp = fmt::format("{:04}{:02}{:02}_{:02}{:02}{:02}", now.Year, now.Month, now.Day,
                                          now.Hour, now.Minute, now.Second);
    const std::string folder = Global().Work_path + "SITECHK\\" + stamp;
    std::string path = folder + "\\";
    for (int number = 2; Drives::IsThere(path); ++number)
        path = fmt::format("{}_{}\\", folder, number);
    return path;
}

// The folder of the copies, empty where nothing was there to be copied.
std::string CopyAll(const std::vector<Finding>& findings) {
    std::set<std::string> files;
    for (const Finding& finding : findings)
        for (const std::string& file : FilesChanged(finding))
            if (FileExists(file))
                files.insert(file);
    if (files.empty())
        return "";
    if (Global().Work_path.empty())
        throw RunTimeError(PathNotFound, "Work_path is not set, so there is no folder for the copies");
    const std::string copies = NewFolderOfCopies();
    for (const std::string& file : files) {
        const std::string copy = CopyPath(copies, file);
        MakeFolderPath(Drives::FolderPart(copy));
        Drives::CopyFile(file, copy);
    }
    return copies;
}

void DropEmptyLines(const std::string& path) {
    const FolderLock lock(Drives::FolderPart(path));
    const std::vector<std::string> lines = LinesOf(path);
    const std::vector<long> empty = EmptyLines(lines, IsCalibration(SystemOfRegistry(path)));
    LineWriter file(path);
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (std::find(empty.begin(), empty.end(), static_cast<long>(i) + 1) == empty.end())
            file.Line(lines[i]);
    file.Close();
}

// Its date is that of the folder, since nobody knows another one.
void EnterHistory(const SurveyNames& names, const std::string& folder) {
    Drives::Entry entry;
    if (!Drives::Find(folder, entry))
        return;
    UpdateHisFileAdd(names.System, names.Location, names.Type, names.Epoch, "", DashedDate(entry.Modified));
}

void Register(const Finding& finding) {
    const SurveyNames& names = finding.Names;
    if (IsCalibration(names.System))
        return UpdateCalibPthFileAdd(names.System, names.Type, names.Epoch);
    UpdatePthFileAdd(names.System, names.Location, names.Type, names.Epoch);
    if (!IsInHistory({names.System, names.Location, "", names.Epoch, ""}, names.Type))
        EnterHistory(names, finding.File);
}

void EnterBook(const Finding& finding) {
    Drives::Entry book;
    if (!Drives::Find(finding.File, book))
        return;
    const std::string name = UpperCase(book.Name);
    const std::string base = BeforeFirstPoint(name);
    const std::string folder = Drives::FolderPart(finding.Target);
    UpdateSrvIdx(folder, finding.Target.substr(folder.size()), base, BehindFirstPoint(name), base,
                 ShortDate(book.Modified));
}

void MakeDatabaseFiles(const Finding& finding) {
    MakeFolderPath(finding.Target);
    WriteLocationNew(finding.Target, finding.Names.Location);
}

void MendOne(const Finding& finding) {
    switch (finding.How) {
        case Mend::None: return;
        case Mend::DropLines: return DropEmptyLines(finding.File);
        case Mend::MakeFolder: return MakeFolderPath(finding.Target);
        case Mend::Register: return Register(finding);
        case Mend::EnterHistory: return EnterHistory(finding.Names, finding.Target);
        case Mend::MakeIndex: return WriteSrvNew(finding.Target, finding.Names.Epoch + ".IDX");
        case Mend::EnterBook: return EnterBook(finding);
        case Mend::MakeDatabaseFiles: return MakeDatabaseFiles(finding);
        case Mend::RebuildDatabase: RebuildDatabase(finding.Target, finding.Type); return;
        case Mend::RebuildReference: RebuildReference(finding.Target, finding.Names.Location); return;
        case Mend::AddBias: return AddStandardBias(finding.Names.Location);
        case Mend::FinishChange: {
            const FolderLock lock(finding.Target);  // whoever takes it finishes what was broken off
            return;
        }
    }
}

// Findings of which mending one mends all: the lines of a registry, the files of a database.
std::string WorkOf(const Finding& finding) {
    const bool byFile = finding.How == Mend::DropLines || finding.How == Mend::RebuildDatabase;
    return fmt::format("{} {} {} {} {}", static_cast<int>(finding.How), byFile ? "" : LineOf(finding),
                       finding.How == Mend::DropLines ? finding.File : "", finding.Target, finding.Type);
}

// Lines move when others go, so a finding is known again without its line.
bool IsStillThere(const Finding& finding, const std::vector<Finding>& now) {
    return std::any_of(now.begin(), now.end(), [&](const Finding& other) {
        return other.File == finding.File && other.What == finding.What && other.Target == finding.Target &&
               other.Names == finding.Names && other.Type == finding.Type;
    });
}

}  // namespace

MendReport MendSite(const std::vector<Finding>& findings) {
    MendReport mended;
    mended.Copies = CopyAll(findings);
    std::map<std::string, std::string> failures;
    std::set<std::string> works;
    for (const Finding& finding : findings) {
        if (finding.How == Mend::None || !works.insert(WorkOf(finding)).second)
            continue;
        try {
            MendOne(finding);
        } catch (const RunTimeError& error) {
            failures[WorkOf(finding)] = error.Description;
        }
    }
    SiteReport now;
    CheckSite(now);
    for (const Finding& finding : findings) {
        const auto failure = failures.find(WorkOf(finding));
        if (failure != failures.end())
            mended.Failed.push_back(LineOf(finding) + ": " + failure->second);
        else if (IsStillThere(finding, now.Findings))
            mended.Failed.push_back(LineOf(finding) + ": it is still so");
        else
            mended.Done.push_back(LineOf(finding));
    }
    return mended;
}

}  // namespace Dorvane
