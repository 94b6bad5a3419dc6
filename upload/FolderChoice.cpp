// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/FolderChoice.h"

#include "core/PathType.h"
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
    return AskManualFolder(folder, "ReducePath", "Data Reduction Directory Selection");
}

std::string AskDownloadFolder() {
    std::string chosen = BrowseForFolder("", "DownloadPath", "Download Data To ...");
    return FolderExists(chosen) ? chosen : "";
}

}  // namespace Dorvane
