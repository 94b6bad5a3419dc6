// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The groups of files that the download screen offers.
namespace Dorvane {

/// A named group. Titles and file names are upper case, but for the first group's title.
struct DownloadGroup {
    std::string Title;
    List1<std::string> Files;

    bool operator==(const DownloadGroup&) const = default;
};

/// What the download screen shows.
struct DownloadState {
    List1<DownloadGroup>
        Groups;                // lstOptions: "All Files" first, then those of dv_download.ini in their order
    std::string Option;        // lblOptions, the chosen title
    List1<std::string> Files;  // lstFiles, the files of the chosen group
};

/// Opens the screen: the files of Download_path as group "All Files", and the groups that dv_download.ini
/// names. Nothing checks that their files exist. Without a named group no option is shown as chosen. Reports
/// as "frmDownload-LoadForm". Returns the number of groups.
std::int16_t LoadDownloadState(DownloadState& state);

/// The choice of a group: shows the files of the first one with exactly this title.
void ChooseDownloadGroup(DownloadState& state, const std::string& title);

}  // namespace Dorvane
