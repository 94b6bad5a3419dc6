// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ReduceTabs.h"

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/Sorter.h"
#include "datatree/basRead.h"
#include "upload/DataTypes.h"

namespace Dorvane {

namespace {

constexpr int ControlLoadedAlready = 360;
constexpr const char* NoEpoch = "none";
constexpr const char* Memory = "dv_tarvex.ini";
constexpr const char* MemorySection = "Reduction Tabs";

// The tab definition of an extension in one section; the five keys are never mixed between sections. False
// when the section gives the extension no name.
bool ReadTab(const std::string& section, const std::string& extension, ReduceTab& tab) {
    const auto key = [&](const char* suffix) {
        return IniReadString("dv_dataType.ini", section, extension + suffix);
    };
    tab.Name = key("_Name");
    if (tab.Name.empty())
        return false;
    tab.Extension = extension;
    tab.CalibrationType = key("_Calib");
    tab.ReduceList = key("_Reduce");
    tab.RunTip = key("_RedTip");
    tab.RunPicture = key("_RedIcon");
    List1<std::string> errorFile;
    if (ParseFields(errorFile, key("_RedError")) > 0)
        tab.ErrorFile = errorFile[1];
    return true;
}

void ReadTabs(const std::string& folder, ReduceState& state) {
    List1<DataType> types;
    ReadIniDataTypes(types);
    const int found = FindDataType(types, folder);
    if (found == 0)
        return;
    state.DataTypeName = types[found].Name;
    for (const std::string& extension : types[found].Extensions) {
        ReduceTab tab;
        if (ReadTab(state.DataTypeName, extension, tab) || ReadTab("File Types", extension, tab))
            state.Tabs.Add(tab);
        else  // what stood there is overwritten, which is meant: only the last one remains, behind a blank
            state.ExtraExtension = state.ExtraExtension.empty() ? extension : " " + extension;
    }
}

// Copied controls are not taken down while the screen lives, so that asking for them again fails, which is
// meant.
void CopyControls(ReduceState& state) {
    const int copies = state.Tabs.Count() - 1;
    if (copies > 0 && state.CopiedTabs > 0) {
        RunTimeError error(ControlLoadedAlready);
        error.Description = "Object was already loaded";
        throw error;
    }
    if (copies > 0)
        state.CopiedTabs = copies;
}

void FillEpochs(const List1<PathRecord>& calibrations, ReduceTab& tab) {
    tab.Epochs.Add(NoEpoch);
    if (!tab.CalibrationType.empty()) {
        for (const PathRecord& calibration : calibrations) {
            if (calibration.Location == tab.CalibrationType)
                tab.Epochs.Add(calibration.Type);
        }
    }
    tab.Epoch = tab.Epochs.Count();
}

}  // namespace

bool SetupReduceTabs(const std::string& folder, ReduceState& state) {
    bool ready = false;
    Guarded("frmReduce-lblSelectedDirectory_Change", [&](Guard&) {
        const int copied = state.CopiedTabs;
        state = {};
        state.CopiedTabs = copied;
        state.Folder = folder;
        ReadTabs(folder, state);
        const int count = state.Tabs.Count();
        if (count < 1) {
            TheDesktop().ShowMessage({.Text = "Problem with number of Tabs.  Phone home.",
                                      .Title = "Critical Error",
                                      .Picture = Icon::Stop});
            return;
        }
        state.TabsPerRow = count >= 2 && count <= 5 ? count : 0;
        CopyControls(state);
        List1<PathRecord> calibrations;
        Sorter lstSort;
        ReadPthFile(calibrations, Global().Init_path, "CALIB.PTH", lstSort);
        for (ReduceTab& tab : state.Tabs)
            FillEpochs(calibrations, tab);
        for (int i = 1; i <= count; ++i) {
            DataIconSetup(folder, state.Tabs[i].Extension, state.ExtraExtension, state.Tabs[i].Data);
            ShowReduced(state, i);
        }
        ready = true;
    });
    return ready;
}

int LastUsedTab(const ReduceState& state) {
    const std::string extension = IniReadString(Memory, MemorySection, state.DataTypeName);
    for (int i = 1; i <= state.Tabs.Count(); ++i)
        if (EqualIgnoringCase(state.Tabs[i].Extension, extension))
            return i;
    return 1;
}

void RememberTab(const ReduceState& state, int tab) {
    IniWriteString(Memory, MemorySection, state.DataTypeName, state.Tabs[tab].Extension);
}

void ShowReduced(ReduceState& state, int tab) {
    ReduceTab& own = state.Tabs[tab];
    ReduceIconSetup(state.Folder, own.Reduction, own.ReduceList, own.Extension, state.ExtraExtension);
    Drives::Entry file;
    own.TellsErrors = !own.ErrorFile.empty() && Drives::Find(state.Folder + own.ErrorFile, file) &&
                      !file.IsFolder && file.Size > 0;
}

}  // namespace Dorvane
