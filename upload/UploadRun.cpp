// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadRun.h"

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "upload/LongNames.h"
#include "upload/Messages.h"
#include "upload/basUpload.h"

namespace Dorvane {

namespace {

/// What an upload works on.
struct UploadPlan {
    List1<FileEntry> Files;
    ShorterNames Shorter;
    std::string IndexName;
    bool IndexIsNew = false;
};

// False behind a message, when the selection or a folder is missing.
bool HasSource(UploadState& state) {
    if (state.FileSelection.empty()) {
        ShowWarning("No file(s) selected.  Can not upload data", "Missing File Name");
        return false;
    }
    state.ToPathMissing = !FolderExists(state.ToPath);
    if (state.ToPathMissing) {
        ShowWarning("To path is not a valid folder.  Can not upload data", "Missing Folder");
        return false;
    }
    state.FromPathMissing = !FolderExists(state.FromPath);
    if (state.FromPathMissing) {
        ShowWarning("From path is not a valid folder.  Can not upload data", "Missing Folder");
        return false;
    }
    return true;
}

// The checks before an upload. False when it is not to begin; else the plan is ready. What asks the operator
// comes before the index is made, so that a cancelled upload leaves all as it was.
bool PrepareUpload(UploadState& state, UploadPlan& plan) {
    if (!HasSource(state))
        return false;
    if (CollectFiles(plan.Files, state.FromPath, state.FileSelection) == 0) {
        ShowWarning("No " + state.FileSelection + " files exist in " + state.FromPath + " .  Can not upload",
                    "No files exist");
        return false;
    }
    plan.Shorter = ProposeShorterNames(plan.Files, state.ToPath, state.CurrentDataType.Name);
    if (!AskForShorterNames(plan.Shorter))
        return false;
    plan.IndexName = GetSurveyIdxName(state.ToPath, plan.IndexIsNew);
    if (plan.IndexName.empty()) {
        ShowWarning("No survey index files exist in " + state.ToPath + " .  Can not upload",
                    "No files exist");
        return false;
    }
    return true;
}

void UploadFiles(const UploadState& state, const UploadPlan& plan, FileMeter& meter, UploadReport& report) {
    report.Folder = state.ToPath;
    report.IndexName = plan.IndexName;
    report.IndexIsNew = plan.IndexIsNew;
    OpenMeter open(meter, plan.Files.Count());
    for (int i = 1; i <= plan.Files.Count(); ++i) {
        const FileEntry& file = plan.Files[i];
        const auto shorter = plan.Shorter.find(file.Name);
        const std::string target = shorter == plan.Shorter.end() ? file.Name : shorter->second;
        open.Begin(state.FromPath + file.Name, state.ToPath + target);
        report.Count(UploadOneFile({state.FromPath, state.ToPath, file.Name, target, file.Date,
                                    plan.IndexName, state.PrintUpload, state.CurrentDataType.Name}),
                     target != file.Name);
        open.Advance(i);
    }
}

}  // namespace

std::int16_t CollectFiles(List1<FileEntry>& files, const std::string& folder, const std::string& selection) {
    List1<std::string> patterns;
    // A single selection is taken as it stands; the blank that ends a pattern is no part of a file's name.
    if (ParseFields(patterns, selection) == 1)
        return GetFiles(files, folder, Trim(selection));
    files.Clear();
    for (const std::string& pattern : patterns) {
        List1<FileEntry> matching;
        GetFiles(matching, folder, pattern);
        for (FileEntry& file : matching)
            files.Add(std::move(file));
    }
    return files.Count();
}

void UploadSelection(UploadState& state, FileMeter& meter) {
    UploadReport report;
    Guarded("frmUploadMenu-cmdUpload_Click", [&](Guard&) {
        UploadPlan plan;
        if (PrepareUpload(state, plan))
            UploadFiles(state, plan, meter, report);
    });
    state.Outcome = DescribeUpload(report);
    Update(state);
}

void DeleteUploaded(UploadState& state, FileMeter& meter) {
    state.Outcome = {};
    bool begun = false;
    int deleted = 0;
    List1<FileEntry> files;
    Guarded("frmUploadMenu-cmdDelete999_Click", [&](Guard& guard) {
        if (GetFiles(files, state.FromPath, "*.99*") == 0) {
            ShowWarning("No *.999 file(s) to delete.", "No Files Found");
            return;
        }
        const Answer answer =
            TheDesktop().ShowMessage({.Text = "Delete *.999 file(s) from " + state.FromPath + "?",
                                      .Title = "Delete *.999 File(s)",
                                      .Picture = Icon::Question,
                                      .Choices = Buttons::YesNo});
        if (answer != Answer::Yes)
            return;
        begun = true;
        OpenMeter open(meter, files.Count());
        for (int i = 1; i <= files.Count(); ++i) {
            const std::string path = state.FromPath + files[i].Name;
            open.Begin(path, "");
            deleted += guard.Run([&] { Drives::DeleteFile(path); }) ? 1 : 0;
            open.Advance(i);
        }
    });
    if (!begun)
        return;
    state.Outcome = DescribeDeletion(deleted, files.Count() - deleted, state.FromPath);
    Update(state);
}

void EditSelection(const UploadState& state) {
    Guarded("frmUploadMenu-cmdEdit_Click", [&](Guard& guard) {
        if (state.FileSelection.empty())
            return;
        // Only the asterisk is tested, which is meant, despite the wording.
        if (Contains(state.FileSelection, "*")) {
            ShowWarning("Wildcards (* and ?) not allowed.  Must select file name", "Invalid File Name");
            return;
        }
        const GeneralEditor editor = ReadGeneralEditor();
        if (HasGeneralEditor(editor))
            guard.Run([&] {
                TheDesktop().StartProgram(editor.Program() + " " + state.FromPath + state.FileSelection);
            });
    });
}

}  // namespace Dorvane
