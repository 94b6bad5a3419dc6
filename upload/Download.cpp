// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/Download.h"

#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "datatree/basTarvex.h"

namespace Dorvane {

namespace {

constexpr const char* Profile = "dv_download.ini";

}  // namespace

std::int16_t LoadDownloadState(DownloadState& state) {
    state = {};
    Guarded("frmDownload-LoadForm", [&](Guard&) {
        List1<FileEntry> files;
        GetFiles(files, Global().Download_path, "*.*");
        DownloadGroup& all = state.Groups.Add({"All Files", {}});
        for (const FileEntry& file : files)
            all.Files.Add(file.Name);
        state.Files = all.Files;

        List1<std::string> names;
        if (ParseFields(names, IniReadString(Profile, "Titles", "List")) == 0)
            return;
        for (const std::string& name : names) {
            DownloadGroup& group = state.Groups.Add({name, {}});
            ParseFields(group.Files, IniReadString(Profile, name, "List"));
        }
        state.Option = state.Groups[1].Title;
    });
    return state.Groups.Count();
}

void ChooseDownloadGroup(DownloadState& state, const std::string& title) {
    state.Option = title;
    for (const DownloadGroup& group : state.Groups) {
        if (group.Title == title) {
            state.Files = group.Files;
            return;
        }
    }
}

}  // namespace Dorvane
