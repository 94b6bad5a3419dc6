// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a site for one step, or does the step on it under the fault that the environment names:
//     faults_driver prepare STEP FOLDER
//     faults_driver do STEP FOLDER [again]
//     faults_driver settle STEP FOLDER
// The last one holds each folder of the site once, as the next change there does.
// It prints how many calls of each kind there were, whether the fault was met, whether the step was told as
// done, and each message.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "tests/faults/FaultLibrary.h"
#include "tests/faults/Steps.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

namespace fs = std::filesystem;

// The data drive is a link, as it is on workstations; it leads on within the site, so that a site can be
// copied.
void LayOut(const std::string& site) {
    const std::string drives = site + "/drives";
    fs::create_directories(drives + "/p:/DORVANE");
    fs::create_directories(site + "/data");
    fs::create_directory_symlink("../data", drives + "/d:");
}

void OpenSite(const std::string& site) {
    Drives::Open(site + "/drives");
    Globals& global = Global();
    global.ProgramFolder = "P:\\DORVANE\\";
    global.Data_drive = "D:\\TARVEX\\";
    global.Calib_path = "D:\\TARVEX\\CALIB\\";
    global.Coord_path = "D:\\TARVEX\\COORD\\";
    global.Init_path = "D:\\TARVEX\\INIT\\";
    global.Download_path = "D:\\TARVEX\\DOWNLOAD\\";
    global.Param_path = "C:\\TARVEX\\PARAM\\";
    global.Temp_path = "C:\\TARVEX\\TEMP\\";
    global.Work_path = "C:\\TARVEX\\WORK\\";
}

void Prepare(const Step& step, const std::string& site) {
    LayOut(site);
    OpenSite(site);
    const Globals& global = Global();
    for (const std::string& folder :
         {global.Calib_path, global.Coord_path, global.Init_path, global.Download_path, global.Param_path,
          global.Temp_path, global.Work_path})
        MakeFolders(folder);
    PutLines("D:\\TARVEX\\DAM\\SOUTH\\LEVEL\\SRV11\\OTHER.LEV", {"of somebody else"});
    step.Prepare();
}

void Settle(const std::string& site) {
    OpenSite(site);
    std::vector<std::string> folders;
    for (const char* drive : {"c:", "d:", "p:"})
        for (const auto& entry : fs::recursive_directory_iterator(site + "/drives/" + drive + "/"))
            if (entry.is_directory())
                folders.push_back(Drives::DrivePath(entry.path().string() + "/"));
    for (const std::string& folder : folders)
        const FolderLock lock(folder);
}

std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return text;
}

void TellCounts() {
    for (int kind = 0; FaultsKindName(kind) != nullptr; ++kind)
        std::printf("calls %s %ld\n", FaultsKindName(kind), FaultsCounted(kind));
    if (FaultsHit() != 0)
        std::printf("met\n");
}

// As the screens call what they are to do.
bool DoWatched(const Step& step, TellingDesktop& desktop) {
    bool done = false;
    try {
        Guarded("faults-Click", [&](Guard&) {
            FaultsBegin();
            done = step.Do(desktop);
        });
        FaultsEnd();
    } catch (const std::exception& error) {
        FaultsEnd();
        std::printf("escaped %s\n", error.what());
    }
    return done;
}

void Do(const Step& step, const std::string& site, bool triesAgain) {
    OpenSite(site);
    TellingDesktop desktop(triesAgain);
    InstallDesktop(&desktop);
    const bool done = DoWatched(step, desktop);
    TellCounts();
    std::printf("%s\n", done ? "done" : "not done");
    for (const Message& message : desktop.Told)
        std::printf("message %s | %s\n", message.Title.c_str(), OneLine(message.Text).c_str());
}

int Run(int count, char** words) {
    const std::string purpose = count > 1 ? words[1] : "";
    const Step* const step = count > 3 ? FindStep(words[2]) : nullptr;
    if (step == nullptr || (purpose != "prepare" && purpose != "do" && purpose != "settle")) {
        std::fprintf(stderr, "faults_driver prepare|do|settle STEP FOLDER [again]\n");
        return 2;
    }
    TellingDesktop desktop(false);
    InstallDesktop(&desktop);
    if (purpose == "prepare")
        Prepare(*step, words[3]);
    else if (purpose == "settle")
        Settle(words[3]);
    else
        Do(*step, words[3], count > 4);
    for (const Message& message : desktop.Told)
        if (message.Title != "Unfinished Change") {
            std::fprintf(stderr, "%s\n", message.Text.c_str());
            return 1;
        }
    return 0;
}

}  // namespace

}  // namespace Dorvane::Testing

int main(int count, char** words) {
    return Dorvane::Testing::Run(count, words);
}
