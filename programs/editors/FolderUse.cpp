// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/FolderUse.h"

#include <vector>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/RegistryLine.h"

namespace Dorvane {

namespace {

// The names of a line of a registry, from the system down.
std::vector<std::string> NamesOf(std::string_view line, std::size_t depth) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < depth; ++i)
        names.push_back(RegistryName(line, static_cast<int>(i)));
    return names;
}

std::string Joined(const std::vector<std::string>& names, std::size_t from) {
    std::string path;
    for (std::size_t i = from; i < names.size(); ++i)
        path += names[i] + "\\";
    return path;
}

// A name and where it would stand; names of a registry are as many as the levels of its tree.
struct Search {
    std::string System;
    std::string Root;       // the folder below which the first level lies
    std::size_t First = 0;  // that level
    std::size_t Depth = 4;
    std::size_t Level = 0;
    std::string Code;
};

std::string RegisteredUse(const Search& search) {
    const std::string path = Global().Init_path + search.System + ".PTH";
    if (!FileExists(path))
        return "";
    LineReader reader(path);
    while (!reader.AtEnd()) {
        const std::vector<std::string> names = NamesOf(reader.ReadLine(), search.Depth);
        if (names[search.Level] == search.Code)
            return search.Root + Joined(names, search.First) + " is registered in " + path;
    }
    return "";
}

std::string UseBelow(const std::string& folder, std::size_t level, const Search& search) {
    if (level == search.Level) {
        std::string named = folder + search.Code;
        return FolderExists(named) ? named + " exists" : "";
    }
    for (const Drives::Entry& entry : Drives::List(folder)) {
        if (!entry.IsFolder)
            continue;
        if (std::string use = UseBelow(folder + entry.Name + "\\", level + 1, search); !use.empty())
            return use;
    }
    return "";
}

std::string UseOf(const Search& search) {
    const std::string registered = RegisteredUse(search);
    if (!registered.empty() || search.Root.empty())
        return registered;
    return UseBelow(search.Root, search.First, search);
}

}  // namespace

std::string UseOfName(const std::string& system, NameLevel level, const std::string& code) {
    Search search{system, Global().Data_drive, 0, 4, static_cast<std::size_t>(level), code};
    // All levels below the system lie in its own folder.
    if (level != NameLevel::System && !search.Root.empty()) {
        search.Root += system + "\\";
        search.First = 1;
    }
    return UseOf(search);
}

std::string UseOfCalibName(const std::string& system, NameLevel level, const std::string& code) {
    Search search{system, Global().Calib_path, 1, 3, static_cast<std::size_t>(level), code};
    if (level != NameLevel::System)
        return UseOf(search);
    if (std::string registered = RegisteredUse(search); !registered.empty())
        return registered;
    for (const Drives::Entry& entry : Drives::List(search.Root))
        if (entry.IsFolder)
            return search.Root + entry.Name + "\\ exists";
    return "";
}

}  // namespace Dorvane
