// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadRun.h"

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "upload/Messages.h"
#include "upload/basUpload.h"

namespace Dorvane {

namespace {

// The checks before an upload. False after a message; else `files` and `surveyIndexName` are ready.
bool PrepareUpload(UploadState& state, List1<FileEntry>& files, std::string& surveyIndexName) {
    const std::string& selection = state.FileSelection;
    if (selection.empty()) {
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
    if (CollectFiles(files, state.FromPath, selection) == 0) {
        ShowWarning("No " + selection + " files exist in " + state.FromPath + " .  Can not upload",
                    "No files exist");
        return false;
    }
    bool created = false;
    surveyIndexName = GetSurveyIdxName(state.ToPath, created);
    if (surveyIndexName.empty()) {
        ShowWarning("No survey index files exist in " + state.ToPath + " .  Can not upload",
                    "No files exist");
        return false;
    }
    return true;
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
    Guarded("frmUploadMenu-cmdUpload_Click", [&](Guard&) {
        List1<FileEntry> files;
        std::string surveyIndexName;
        if (!PrepareUpload(state, files, surveyIndexName))
            return;
        OpenMeter open(meter, files.Count());
        for (int i = 1; i <= files.Count(); ++i) {
            const FileEntry& file = files[i];
            open.Begin(state.FromPath + file.Name, state.ToPath + file.Name);
            UploadFile(state.FromPath, state.ToPath, file.Name, file.Date, surveyIndexName,
                       state.PrintUpload ? 1 : 0, state.CurrentDataType.Name);
            open.Advance(i);
        }
    });
    Update(state);
}

void DeleteUploaded(UploadState& state, FileMeter& meter) {
    bool begun = false;
    Guarded("frmUploadMenu-cmdDelete999_Click", [&](Guard& guard) {
        List1<FileEntry> files;
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
            guard.Run([&] { Drives::DeleteFile(path); });
            open.Advance(i);
        }
    });
    if (begun)
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
        const std::string program = ReadGeneralEditor().Program();
        guard.Run([&] { TheDesktop().StartProgram(program + " " + state.FromPath + state.FileSelection); });
    });
}

}  // namespace Dorvane
