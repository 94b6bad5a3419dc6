// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/PathType.h"

#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr const char* Profile = "dv_tarvex.ini";
constexpr const char* LastPath = "Last Path";

}  // namespace

std::string PathTypeText() {
    return Global().Path_type == 1 ? "Tarvex" : "Manual";
}

void StorePathType(std::int16_t pathType) {
    Global().Path_type = pathType;
    IniWriteString(Profile, "Tarvex Info", "Path_type", std::to_string(pathType));
}

std::string LastTreePath() {
    return IniReadString(Profile, "Tarvex", LastPath);
}

std::string LastManualPath() {
    return IniReadString(Profile, "Manual", LastPath);
}

void StoreLastTreePath(const std::string& folder) {
    IniWriteString(Profile, "Tarvex", LastPath, folder);
}

void StoreLastManualPath(const std::string& folder) {
    IniWriteString(Profile, "Manual", LastPath, folder);
}

bool AskManualFolder(std::string& folder, const std::string& proposedName, const std::string& title) {
    std::string chosen = BrowseForFolder(LastManualPath(), proposedName, title);
    if (!FolderExists(chosen))
        return false;
    StoreLastManualPath(chosen);
    folder = chosen;
    return true;
}

}  // namespace Dorvane
