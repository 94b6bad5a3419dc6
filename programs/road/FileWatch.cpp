// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/road/FileWatch.h"

#include <functional>
#include <ostream>
#include <vector>

#include "core/Drives.h"
#include "core/Text.h"

namespace Dorvane::Road {

FileWatch::FileWatch() : Files(Look()) {}

std::map<std::string, FileWatch::State> FileWatch::Look() {
    std::map<std::string, State> files;
    std::vector<std::string> folders{"C:\\", "D:\\"};
    while (!folders.empty()) {
        const std::string folder = folders.back();
        folders.pop_back();
        for (const Drives::Entry& entry : Drives::List(folder)) {
            const std::string path = folder + entry.Name;
            if (entry.IsFolder) {
                folders.push_back(path + "\\");
                files[path + "\\"] = {};
            } else {
                const std::string content = Drives::ReadFile(path);
                files[path] = {content.size(), std::hash<std::string>()(content)};
            }
        }
    }
    return files;
}

void FileWatch::PrintChanges(std::ostream& out) {
    std::map<std::string, State> now = Look();
    const auto print = [&out](const char* what, const std::string& path) {
        out << "      " << what << " " << Utf8FromText(path) << "\n";
    };
    for (const auto& [path, state] : Files)
        if (!now.contains(path))
            print("gone   ", path);
    for (const auto& [path, state] : now) {
        const auto former = Files.find(path);
        if (former == Files.end())
            print("new    ", path);
        else if (former->second != state)
            print("changed", path);
    }
    Files = std::move(now);
}

}  // namespace Dorvane::Road
