// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DriveLinks.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"

namespace Dorvane::Drives {

namespace {

std::string LinkOf(char letter) {
    return LinksFolder() + static_cast<char>(letter | 0x20) + ":";
}

}  // namespace

bool CanLayOut() {
    return !Host::PathsAreDrivePaths();
}

std::string LinksFolder() {
    if (CanLayOut() && Global().DrivesFolder.empty())
        Open();
    return Global().DrivesFolder;
}

std::vector<Link> Links() {
    std::vector<Link> links;
    if (!CanLayOut())
        return links;
    for (const std::string& name : Host::FolderNames(LinksFolder())) {
        if (name.size() != 2 || name[1] != ':' || name[0] < 'a' || name[0] > 'z')
            continue;
        std::string target = Host::LinkTarget(LinksFolder() + name);
        if (target.empty())
            target = name;
        if (target.front() != '/')
            target.insert(0, LinksFolder());
        links.push_back({static_cast<char>(name[0] & ~0x20), target});
    }
    std::sort(links.begin(), links.end(),
              [](const Link& one, const Link& other) { return one.Letter < other.Letter; });
    return links;
}

void SetLink(const Link& link) {
    const std::string made = LinkOf(link.Letter) + ".dv~";
    if (!Host::LinkTarget(made).empty())
        Host::Delete(made);
    Host::CreateLink(made, link.Folder);
    Host::Rename(made, LinkOf(link.Letter));
}

void RemoveLink(char letter) {
    Host::Delete(LinkOf(letter));
}

Access AccessTo(const std::string& hostFolder) {
    if (hostFolder.empty() || !Host::Inspect(hostFolder).IsFolder)
        return Access::Missing;
    return Host::MayWrite(hostFolder) ? Access::Writable : Access::ReadOnly;
}

}  // namespace Dorvane::Drives
