// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeMode.h"

#include "core/Text.h"

namespace Dorvane {

TreeMode TreeModeOf(const std::string& title) {
    if (title == "Access Subdirectories ...")
        return TreeMode::Browse;
    if (title == "System Configuration ...")
        return TreeMode::Configure;
    if (title == "Data Reduction Directory Selection")
        return TreeMode::Reduce;
    if (title == "Upload Data To")
        return TreeMode::Upload;
    if (title == "VARN input file location" ||
        (Contains(title, "Input") && Contains(title, "field data from")))
        return TreeMode::Input;
    return TreeMode::Other;
}

TreeButtons VisibleTreeButtons(const std::string& title) {
    switch (TreeModeOf(title)) {
        case TreeMode::Browse:
            return {.Home = true, .Copy = true, .Delete = true, .Print = true, .Edit = true, .Archive = true};
        case TreeMode::Configure: return {.Home = true, .Add = true, .Remove = true};
        case TreeMode::Input: return {.OK = true, .Cancel = true};
        case TreeMode::Reduce:
        case TreeMode::Upload:
        case TreeMode::Other: break;
    }
    return {.OK = true, .Home = true};
}

TreeButtons EnabledTreeButtons(const std::string& title, const std::string& file, bool printerPresent) {
    const bool files = TreeModeOf(title) != TreeMode::Browse || !file.empty();
    return {.OK = true,
            .Cancel = true,
            .Home = true,
            .Copy = files,
            .Delete = files,
            .Print = files && printerPresent,
            .Edit = files,
            .Add = true,
            .Remove = true,
            .Archive = files};
}

}  // namespace Dorvane
