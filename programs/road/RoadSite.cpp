// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <ostream>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/basMain.h"
#include "programs/road/RoadWalk.h"

namespace Dorvane::Road {

namespace {

// The largest file of a folder: the field book among its notes.
std::string LargestFile(const std::string& folder) {
    std::string name;
    std::int64_t size = -1;
    for (const Drives::Entry& entry : Drives::List(folder, "*.GSI"))
        if (!entry.IsFolder && entry.Size > size) {
            name = entry.Name;
            size = entry.Size;
        }
    return name;
}

// A name as field files bear it: at most 8 characters, a point, at most 3, upper case. The survey index has
// no room for more.
std::string FieldFileName(const std::string& name) {
    const std::size_t point = name.find_last_of('.');
    std::string base = UpperCase(Left(BeforeFirstPoint(name), 8));
    std::replace(base.begin(), base.end(), ' ', '_');
    return base + "." + UpperCase(Left(point == std::string::npos ? "" : name.substr(point + 1), 3));
}

}  // namespace

void StartUp(Walk& walk) {
    walk.Step("Start-up installs the profiles and creates the default folders");
    StartUpScreens screens;
    screens.ShowSplash = [] {};
    screens.ShowInit = [&walk] {
        walk.Say("folders are missing: data on drive D:, local folders on drive C:");
        CreateDefaultFolders("D", "C");
    };
    screens.ShowMain = [] {};
    walk.Need(Main(screens), "another copy of the program is running");
    walk.Need(!Global().InitFailed, "the default folders could not be created");
    walk.Done();
}

void LayOutSite(Walk& walk, const std::string& fieldBook) {
    walk.Step("The structure files and a field book are laid in their folders");
    const std::string shipped = AppPath() + "samples\\site\\";
    for (const Drives::Entry& entry : Drives::List(shipped + "INIT\\"))
        Drives::CopyFile(shipped + "INIT\\" + entry.Name, Global().Init_path + entry.Name);

    walk.FieldFolder = "D:\\FIELD\\";
    Drives::CreateFolder(walk.FieldFolder);
    std::string source;
    if (fieldBook.empty()) {
        walk.FieldFile = UpperCase(LargestFile(shipped + "FIELD\\"));
        source = shipped + "FIELD\\" + walk.FieldFile;
    } else {
        std::string folder;
        source = Drives::DrivePath(fieldBook);
        std::string name;
        SplitFolderFile(source, folder, name);
        walk.FieldFile = FieldFileName(name);
        walk.Say(source + " -> " + walk.FieldFolder + walk.FieldFile);
    }
    walk.Need(FileExists(source), "there is no field book " + source);
    Drives::CopyFile(source, walk.FieldFolder + walk.FieldFile);
    walk.Done();
}

}  // namespace Dorvane::Road
