// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadState.h"

#include <fmt/format.h>

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/basTarvex.h"

namespace Dorvane {

namespace {

constexpr const char* Profile = "dv_tarvex.ini";
constexpr const char* Section = "Upload Select";

// The patterns of the type: one item for each when there are several, and always one of all of them, each
// followed by a blank. Without extensions that last item is empty, and so is the selection.
void ListPatterns(const DataType& type, List1<std::string>& items) {
    std::string combined;
    for (const std::string& extension : type.Extensions) {
        const std::string pattern = "*." + extension;
        if (type.Extensions.Count() > 1)
            items.Add(pattern);
        combined += pattern + " ";
    }
    items.Add(combined);
}

}  // namespace

void LoadUploadState(UploadState& state) {
    state.FromPath = IniReadString(Profile, Section, "From_path");
    state.ToPath = IniReadString(Profile, Section, "To_path");
    state.FromPathMissing = !FolderExists(state.FromPath);
    state.ToPathMissing = !FolderExists(state.ToPath);
    Guarded("frmUploadMenu-LoadForm", [&](Guard&) {
        const double print = IniReadNumber(Profile, Section, "Print");
        if (print == 0 || print == 1)
            state.PrintUpload = print == 1;
    });
    TotalUpdate(state);
}

void SaveUploadState(UploadState& state) {
    if (FolderExists(state.FromPath))
        IniWriteString(Profile, Section, "From_path", state.FromPath);
    if (FolderExists(state.ToPath))
        IniWriteString(Profile, Section, "To_path", state.ToPath);
    IniWriteString(Profile, Section, "Print", state.PrintUpload ? "1" : "0");
}

void TotalUpdate(UploadState& state) {
    state.Outcome = {};
    Guarded("frmUploadMenu-TotalUpdate", [&](Guard&) {
        List1<DataType> types;
        ReadIniDataTypes(types);
        state.DataTypeName.clear();
        if (const int found = FindDataType(types, state.ToPath); found > 0) {
            state.CurrentDataType = types[found];
            state.DataTypeName = types[found].Name;
        }
    });
    Update(state);
}

void Update(UploadState& state) {
    Guarded("frmUploadMenu-Update", [&](Guard&) {
        if (!FolderExists(state.FromPath))
            return;
        List1<FileEntry> files;
        GetFiles(files, state.FromPath, "*.*");
        state.FileNames.Clear();
        state.FileCount = files.Count();
        ListPatterns(state.CurrentDataType, state.FileNames);
        for (const FileEntry& file : files)
            state.FileNames.Add(file.Name);
        state.FileSelection = state.FileNames[1];
        const bool waiting = GetFiles(files, state.FromPath, "*.99*") > 0;
        state.WasteBin = waiting ? "trashfull.ico" : "trashempty.ico";
    });
}

std::string UploadStatus(const UploadState& state) {
    if (state.FromPathMissing)
        return "Source folder not found";
    if (state.ToPathMissing)
        return "Target folder not found";
    if (!state.Outcome.Short.empty())
        return state.Outcome.Short;
    return fmt::format("{} file(s) in the source folder", state.FileCount);
}

std::string CopyAnimation(const std::string& dataTypeName) {
    const std::string own = IniReadString("Datatype.ini", dataTypeName, "FileCopy");
    const bool isName = own.find_first_of("\\/:*?") == std::string::npos;
    return isName && FileExists(AppPath() + "graphics\\" + own) ? own : ShippedCopyAnimation;
}

}  // namespace Dorvane
