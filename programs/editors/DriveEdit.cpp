// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/DriveEdit.h"

#include <algorithm>

#include "core/DriveLinks.h"
#include "core/Drives.h"
#include "core/Host.h"
#include "core/ProfileStore.h"
#include "core/Text.h"
#include "programs/editors/TarvexProfile.h"

namespace Dorvane {

namespace {

const DriveLine* Find(const std::vector<DriveLine>& lines, const std::string& letter) {
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [&](const DriveLine& line) { return line.Letter == letter; });
    return found == lines.end() ? nullptr : &*found;
}

std::vector<DriveLine> ReadLines() {
    std::vector<DriveLine> lines;
    for (const Drives::Link& link : Drives::Links())
        lines.push_back({std::string(1, link.Letter), TextFromUtf8(link.Folder)});
    return lines;
}

bool IsUnchanged(const DriveEdit& drives, const DriveLine& line) {
    const DriveLine* former = Find(drives.Former, line.Letter);
    return former != nullptr && *former == line;
}

std::string LineProblem(const DriveEdit& drives, const DriveLine& line) {
    const std::string& letter = line.Letter;
    if (letter.size() != 1 || letter[0] < 'A' || letter[0] > 'Z')
        return letter.empty() ? "A line has no letter." : letter + " is no letter from A to Z.";
    if (std::count_if(drives.Lines.begin(), drives.Lines.end(),
                      [&](const DriveLine& other) { return other.Letter == letter; }) > 1)
        return letter + ": stands there twice.";
    if (IsUnchanged(drives, line))
        return "";
    if (line.Folder.empty())
        return letter + ": leads to no folder.";
    if (line.Folder.front() != '/')
        return letter + ": has to lead to a folder of this computer, whose name begins with /.";
    if (Drives::AccessTo(Utf8FromText(line.Folder)) == Drives::Access::Missing)
        return letter + ": " + line.Folder + " is no folder that exists.";
    return "";
}

// The letters without which the program does not find its profiles, or makes them anew.
std::string ProblemOfOwnLetter(const DriveEdit& drives, const std::string& letter, const char* reason) {
    const DriveLine* former = Find(drives.Former, letter);
    const DriveLine* now = Find(drives.Lines, letter);
    if (former == nullptr || (now != nullptr && *now == *former))
        return "";
    return letter + ": " + reason + " and has to stay as it is.";
}

// The keys of the main profile whose folders lie on a drive.
std::string KeysOn(const std::string& letter) {
    const TarvexProfile profile = ReadTarvexProfile();
    std::string keys;
    const auto add = [&](const std::string& key, const std::string& folder) {
        if (UpperCase(Left(folder, 2)) == letter + ":")
            keys += (keys.empty() ? "" : ", ") + key;
    };
    for (std::size_t i = 0; i < FolderKeys.size(); ++i)
        add(FolderKeys[i].Key, profile.Folders[i]);
    add("the general editor", profile.EditorPath);
    return keys;
}

}  // namespace

DriveEdit OpenDrives() {
    DriveEdit drives;
    drives.Folder = TextFromUtf8(Drives::LinksFolder());
    drives.Former = ReadLines();
    drives.Lines = drives.Former;
    return drives;
}

std::string StateOfDriveFolder(const std::string& folder) {
    switch (Drives::AccessTo(Utf8FromText(folder))) {
        case Drives::Access::ReadOnly: return "read only";
        case Drives::Access::Writable: return "may be written";
        default: return "missing";
    }
}

std::vector<std::string> DriveProblems(const DriveEdit& drives) {
    std::vector<std::string> problems;
    const auto add = [&](const std::string& problem) {
        if (!problem.empty() && std::find(problems.begin(), problems.end(), problem) == problems.end())
            problems.push_back(problem);
    };
    for (const DriveLine& line : drives.Lines)
        add(LineProblem(drives, line));
    add(ProblemOfOwnLetter(drives, "C", "holds the profile files"));
    add(ProblemOfOwnLetter(drives, "Z", "is the whole computer"));
    return problems;
}

std::vector<std::string> DriveWarnings(const DriveEdit& drives) {
    std::vector<std::string> warnings;
    for (const DriveLine& former : drives.Former) {
        const DriveLine* now = Find(drives.Lines, former.Letter);
        const std::string keys = KeysOn(former.Letter);
        if (keys.empty() || (now != nullptr && *now == former))
            continue;
        warnings.push_back(former.Letter + ": is in use by " + keys + " and " +
                           (now == nullptr ? "would be removed." : "would lead elsewhere."));
    }
    for (const DriveLine& line : drives.Lines)
        if (!IsUnchanged(drives, line) &&
            Drives::AccessTo(Utf8FromText(line.Folder)) == Drives::Access::ReadOnly)
            warnings.push_back(line.Letter + ": " + line.Folder + " may be read but not written.");
    return warnings;
}

std::string SaveDrives(DriveEdit& drives) {
    if (ReadLines() != drives.Former)
        return "The drive letters were changed by another program in the meantime.";
    for (const DriveLine& former : drives.Former)
        if (Find(drives.Lines, former.Letter) == nullptr)
            Drives::RemoveLink(former.Letter[0]);
    for (const DriveLine& line : drives.Lines)
        if (!IsUnchanged(drives, line))
            Drives::SetLink({line.Letter[0], Utf8FromText(line.Folder)});
    drives.Former = ReadLines();
    drives.Lines = drives.Former;
    return "";
}

std::string FreeLetter(const std::vector<DriveLine>& lines) {
    for (char letter = 'D'; letter <= 'Z'; ++letter)
        if (Find(lines, std::string(1, letter)) == nullptr)
            return std::string(1, letter);
    return "";
}

std::string HostFolderOf(const std::string& drivePath) {
    std::string folder = Host::RealPath(Drives::HostPath(drivePath));
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return TextFromUtf8(folder);
}

std::string DriveFolderOf(const std::string& hostFolder) {
    std::string folder = hostFolder.substr(0, hostFolder.find_last_not_of('/') + 1);
    std::replace(folder.begin(), folder.end(), '/', '\\');
    return hostFolder.empty() ? "Z:\\" : "Z:" + folder + "\\";
}

}  // namespace Dorvane
