// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/TarvexProfile.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "datatree/TreeSelection.h"

namespace Dorvane {

namespace {

constexpr const char* File = "dv_tarvex.ini";
constexpr const char* FolderSection = "Tarvex Info";
constexpr const char* EditorSection = "General Editor";
constexpr std::size_t LongestValue = 127;

// One key of the profile and its value.
struct KeyValue {
    const char* Section;
    const char* Key;
    const std::string& Value;
};

std::vector<KeyValue> KeysOf(const TarvexProfile& profile) {
    std::vector<KeyValue> keys;
    for (std::size_t i = 0; i < FolderKeys.size(); ++i)
        keys.push_back({FolderSection, FolderKeys[i].Key, profile.Folders[i]});
    keys.push_back({FolderSection, "Path_type", profile.PathType});
    keys.push_back({FolderSection, "Editor_type", profile.EditorType});
    keys.push_back({EditorSection, "Path", profile.EditorPath});
    keys.push_back({EditorSection, "Name", profile.EditorName});
    return keys;
}

}  // namespace

TarvexProfile ReadTarvexProfile() {
    TarvexProfile profile;
    for (std::size_t i = 0; i < FolderKeys.size(); ++i)
        profile.Folders[i] = IniReadString(File, FolderSection, FolderKeys[i].Key);
    profile.PathType = IniReadString(File, FolderSection, "Path_type");
    profile.EditorType = IniReadString(File, FolderSection, "Editor_type");
    profile.EditorPath = IniReadString(File, EditorSection, "Path");
    profile.EditorName = IniReadString(File, EditorSection, "Name");
    return profile;
}

std::string WriteTarvexProfile(const TarvexProfile& profile) {
    const std::vector<KeyValue> keys = KeysOf(profile);
    for (const KeyValue& key : keys)
        if (key.Value.size() > LongestValue)
            return std::string(key.Key) + " has more than 127 characters.";
    for (const KeyValue& key : keys) {
        if (IniReadString(File, key.Section, key.Key) == key.Value)
            continue;
        IniWriteString(File, key.Section, key.Key, key.Value);
        if (IniReadString(File, key.Section, key.Key) != key.Value)
            return std::string(key.Key) + " cannot be written to " + GetWindowsPath() + File + ".";
    }
    return "";
}

std::string WithBackslash(std::string folder) {
    if (!folder.empty() && folder.back() != '\\')
        folder += '\\';
    return folder;
}

std::vector<std::string> MissingFolders(const TarvexProfile& profile) {
    std::vector<std::string> missing;
    for (std::string folder : profile.Folders)
        if (!folder.empty() && !FolderExists(folder) &&
            std::find(missing.begin(), missing.end(), folder) == missing.end())
            missing.push_back(folder);
    return missing;
}

void MakeFolderPath(const std::string& folder) {
    for (std::string above : AncestorChain(folder))
        if (!FolderExists(above))
            Drives::CreateFolder(above);
}

}  // namespace Dorvane
