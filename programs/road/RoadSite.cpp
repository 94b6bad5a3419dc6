// SPDX-License-Identifier: GPL-3.0-or-later
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
        SplitFolderFile(source, folder, walk.FieldFile);
        walk.FieldFile = UpperCase(walk.FieldFile);
    }
    walk.Need(FileExists(source), "there is no field book " + source);
    Drives::CopyFile(source, walk.FieldFolder + walk.FieldFile);
    walk.Done();
}

}  // namespace Dorvane::Road
