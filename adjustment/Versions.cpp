// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/Versions.h"

#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/basTarvex.h"

namespace Dorvane {

namespace {

constexpr int HighestVersion = 99;

std::string TwoDigits(int number) {
    return Right("0" + std::to_string(number), 2);
}

}  // namespace

std::string WithExtension(std::string_view path, std::string_view extension) {
    return BeforeFirstPoint(path) + "." + std::string(extension);
}

bool SharesItsBase(std::string_view path) {
    const std::size_t point = path.find('.');
    return point != std::string_view::npos && path.find_first_of(".\\", point + 1) != std::string_view::npos;
}

bool VersionDigits(std::string_view versionText, std::string& digits) {
    if (versionText == MasterVersion)
        return false;
    List1<std::string> words;
    if (ParseFields(words, versionText) != 2)
        return false;
    digits = words[2];
    return true;
}

std::string OfVersion(std::string_view path, std::string_view versionText, std::string_view extension) {
    std::string digits;
    if (!VersionDigits(versionText, digits))
        return std::string(path);
    return BeforeFirstPoint(path) + "_v" + digits + "." + std::string(extension);
}

std::string OfVersion(std::string_view path, std::string_view versionText) {
    std::string digits;
    if (!VersionDigits(versionText, digits))
        return std::string(path);
    const std::string base = BeforeFirstPoint(path);
    return base + "_v" + digits + std::string(path.substr(base.size()));
}

std::int16_t GetVersions(std::string_view inputPath, List1<std::string>& versions) {
    versions.Clear();
    std::string folder;
    std::string file;
    SplitFolderFile(inputPath, folder, file);
    if (FileExists(inputPath))
        versions.Add(std::string(MasterVersion));

    List1<FileEntry> matches;
    GetFiles(matches, folder, BeforeFirstPoint(file) + "_v??.INP");
    int left = matches.Count();
    for (int i = 1; i <= HighestVersion && left > 0; ++i) {
        const std::string ending = "_V" + TwoDigits(i) + ".INP";
        for (const FileEntry& match : matches) {
            if (!Contains(UpperCase(match.Name), ending))
                continue;
            versions.Add("Version " + TwoDigits(i));
            --left;
        }
    }
    return versions.Count();
}

}  // namespace Dorvane
