// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basMain.h"

#include <array>
#include <cmath>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr const char* MainProfile = "dv_tarvex.ini";
constexpr const char* InfoSection = "Tarvex Info";

struct Profile {
    const char* Name;
    const char* OlderName;  // nullptr when there never was one
};

constexpr std::array<Profile, 6> Profiles = {{{"dv_datatype.ini", "datatype.ini"},
                                              {"dv_input.ini", "input.ini"},
                                              {"dv_main.ini", "main.ini"},
                                              {"dv_tarvex.ini", "tarvex.ini"},
                                              {"dv_download.ini", "download.ini"},
                                              {"dv_special.ini", nullptr}}};

struct PathKey {
    const char* Key;
    std::string Globals::*Value;
};

constexpr std::array<PathKey, 8> PathKeys = {{{"Data_drive", &Globals::Data_drive},
                                              {"Calib_path", &Globals::Calib_path},
                                              {"Coord_path", &Globals::Coord_path},
                                              {"Init_path", &Globals::Init_path},
                                              {"Param_path", &Globals::Param_path},
                                              {"Temp_path", &Globals::Temp_path},
                                              {"Work_path", &Globals::Work_path},
                                              {"Download_path", &Globals::Download_path}}};

void InstallProfile(const Profile& profile, const std::string& windowsPath) {
    const std::string installed = windowsPath + profile.Name;
    if (FileExists(installed))
        return;
    if (profile.OlderName != nullptr && FileExists(windowsPath + profile.OlderName))
        Drives::RenameFile(windowsPath + profile.OlderName, installed);
    else
        Drives::CopyFile(AppPath() + "system\\" + profile.Name, installed);
}

// The program's own folders, and those that the profile names: key "Folders" of section "Links", with ";"
// between them.
std::vector<std::string> ReadLinkFolders() {
    std::vector<std::string> folders{GetWindowsPath(), AppPath()};
    std::string names = IniReadString(MainProfile, "Links", "Folders") + ";";
    for (std::size_t end = names.find(';'); end != std::string::npos; end = names.find(';')) {
        std::string folder = Trim(names.substr(0, end));
        if (!folder.empty())
            folders.push_back(folder.back() == '\\' ? folder : folder + "\\");
        names.erase(0, end + 1);
    }
    std::erase(folders, "");
    return folders;
}

void ReadGlobals() {
    for (const PathKey& path : PathKeys)
        Global().*path.Value = IniReadString(MainProfile, InfoSection, path.Key);
    // Any other value than the two, one beyond 16 bits as well, stands for the managed tree.
    Global().Path_type = std::nearbyint(IniReadNumber(MainProfile, InfoSection, "Path_type")) == 2 ? 2 : 1;
    Global().LinkFolders = ReadLinkFolders();
}

// A path that leads nowhere becomes empty; every one is tested, whatever the others gave.
bool TestPaths() {
    bool all = true;
    for (const PathKey& path : PathKeys) {
        if (FolderExists(Global().*path.Value))
            continue;
        (Global().*path.Value).clear();
        all = false;
    }
    return all;
}

void SetAndCreate(Guard& guard, std::string& global, const std::string& value) {
    global = value;
    if (!FolderExists(global))
        guard.Run([&] { Drives::CreateFolder(global); });
}

void SetAndCreateAll(Guard& guard, const std::string& mainRoot, const std::string& localRoot) {
    Globals& global = Global();
    SetAndCreate(guard, global.Data_drive, mainRoot + "TARVEX\\");
    SetAndCreate(guard, global.Calib_path, global.Data_drive + "CALIB\\");
    SetAndCreate(guard, global.Coord_path, global.Data_drive + "COORD\\");
    SetAndCreate(guard, global.Init_path, global.Data_drive + "INIT\\");
    SetAndCreate(guard, global.Download_path, global.Data_drive + "DOWNLOAD\\");
    std::string localFolder;
    SetAndCreate(guard, localFolder, localRoot + "TARVEX\\");
    SetAndCreate(guard, global.Param_path, localRoot + "TARVEX\\PARAM");
    SetAndCreate(guard, global.Temp_path, localRoot + "TARVEX\\TEMP");
    SetAndCreate(guard, global.Work_path, localRoot + "TARVEX\\WORK");
}

}  // namespace

bool Main(const StartUpScreens& screens) {
    bool first = true;
    Guarded("basMain-Main", [&](Guard& guard) {
        guard.Run([&] { first = ClaimOnlyCopy(); });
        if (!first) {
            TheDesktop().ShowMessage({"Cannot load program agian.  The requested application is already open",
                                      "Tarvex Already Running", Icon::Exclamation});
            return;
        }
        guard.Run([&] { screens.ShowSplash(); });
        std::string windowsPath;
        guard.Run([&] { windowsPath = GetWindowsPath(); });
        if (windowsPath.empty())
            TheDesktop().ShowMessage(
                {"Could not locate Windows directory.", "Windows Path Not Found", Icon::Stop});
        else
            InstallProfiles(windowsPath, guard);
        if (InitializeGolbals())
            Global().InitFailed = false;
        else
            guard.Run([&] { screens.ShowInit(); });
        guard.Run([&] { RenameKeldLibraries(); });
        guard.Run([&] { screens.ShowMain(); });
    });
    return first;
}

bool ClaimOnlyCopy() {
    if (Global().InstanceClaim == -1)
        Global().InstanceClaim = Host::ClaimSingleInstance(Global().InstanceName);
    return Global().InstanceClaim != -1;
}

void InstallProfiles(const std::string& windowsPath, Guard& guard) {
    for (const Profile& profile : Profiles)
        guard.Run([&] { InstallProfile(profile, windowsPath); });
}

bool InitializeGolbals() {
    bool result = true;
    const bool finished = Guarded("basMain-InitializeGolbals", [&](Guard& guard) {
        guard.Run([] { ReadGlobals(); });
        result = TestPaths();
        guard.Run([] { Global().PrinterPresent = TheDesktop().PrinterCount() > 0; });
    });
    return finished && result;
}

bool CreateDefaultFolders(const std::string& mainDrive, const std::string& localDrive) {
    Global().InitFailed = true;
    return Guarded("frmInit-cmdOK_Click", [&](Guard& guard) {
        SetAndCreateAll(guard, Left(mainDrive, 1) + ":\\", Left(localDrive, 1) + ":\\");
        for (const PathKey& path : PathKeys)
            IniWriteString(MainProfile, InfoSection, path.Key, Global().*path.Value);
        Global().InitFailed = false;
    });
}

void RenameKeldLibraries() {
    for (const char* name : {"feedback", "varn", "project"}) {
        const std::string base = AppPath() + "Keld\\" + name;
        if (FileExists(base + "2.dll") && !FileExists(base + ".dll"))
            Drives::RenameFile(base + "2.dll", base + ".dll");
    }
}

}  // namespace Dorvane
