// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/FolderChoice.h"

#include "core/ProfileStore.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// True when a folder was chosen and taken.
bool BrowseFrom(std::string& path, bool& missing, const std::string& title) {
    const std::string start = FolderExists(path) ? path : "";
    const std::string chosen = BrowseForFolder(start, "UploadPath", title);
    if (chosen.empty())
        return false;
    path = chosen;
    missing = false;
    return true;
}

}  // namespace

bool BrowseUploadSource(UploadState& state) {
    return BrowseFrom(state.FromPath, state.FromPathMissing, "Upload Data From ");
}

bool BrowseUploadTarget(UploadState& state) {
    return BrowseFrom(state.ToPath, state.ToPathMissing, "Upload Data To ");
}

bool AskReductionFolder(std::string& folder) {
    const std::string last = IniReadString("dv_tarvex.ini", "Manual", "Last Path");
    std::string chosen = BrowseForFolder(last, "ReducePath", "Data Reduction Directory Selection");
    if (!FolderExists(chosen))
        return false;
    IniWriteString("dv_tarvex.ini", "Manual", "Last Path", chosen);
    folder = chosen;
    return true;
}

std::string AskDownloadFolder() {
    std::string chosen = BrowseForFolder("", "DownloadPath", "Download Data To ...");
    return FolderExists(chosen) ? chosen : "";
}

}  // namespace Dorvane
