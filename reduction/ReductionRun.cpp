// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ReductionRun.h"

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "reduction/ParamFile.h"
#include "upload/DataTypes.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

void DeleteFileIfThere(const std::string& path, Guard& guard) {
    if (FileExists(path))
        guard.Run([&] { Drives::DeleteFile(path); });
}

void DeleteResults(const std::string& folder, const List1<std::string>& reduceTokens, Guard& guard) {
    for (int i = 2; i <= reduceTokens.Count(); ++i)
        DeleteFileIfThere(folder + reduceTokens[i], guard);
}

// False after a message when there is no such program.
bool RunProgram(const std::string& program, Guard& guard) {
    const std::string path = AppPath() + "Programs\\" + program;
    if (!FileExists(path)) {
        ShowWarning("Reduction exe " + program + " does not exist.  Can not continue.", "EXE Not Found");
        return false;
    }
    guard.Run([] { Drives::ChangeDrive(Global().Param_path[0]); });
    RunAndWait(path);
    return true;
}

// From the deletion of the old results to the end of the program. Own.Run says how far it came.
void RunTab(const ReduceState& state, ReduceTab& own, const std::string& surveyIndexName, Guard& guard) {
    own.Run = LastRun::Stopped;
    List1<std::string> reduceTokens;
    ParseFields(reduceTokens, own.ReduceList);
    DeleteResults(state.Folder, reduceTokens, guard);
    if (!own.ErrorFile.empty())
        DeleteFileIfThere(state.Folder + own.ErrorFile, guard);
    List1<std::string> paramTokens;
    ParseFields(paramTokens, ReadTypeKey(state.DataTypeName, own.Extension, "_Param"));
    if (!WriteParamFile(state.Folder, paramTokens, reduceTokens, surveyIndexName, own.CalibrationType,
                        own.Epochs[own.Epoch]))
        return;
    own.Run = RunProgram(reduceTokens[1], guard) ? LastRun::Ended : LastRun::NoProgram;
}

}  // namespace

bool RunReduction(ReduceState& state, int tab) {
    const char* const procedure = "frmReduce-cmdReduce_Click";
    bool redraw = false;
    Guarded(procedure, [&](Guard&) {
        ReduceTab& own = state.Tabs[tab];
        std::string surveyIndexName;
        if (!InitReduce(state.Folder, surveyIndexName, state.DataTypeName, own.Extension))
            return;
        Guarded(procedure, [&](Guard& run) { RunTab(state, own, surveyIndexName, run); });
        // A missing program alone leaves the tab as it was, which is meant.
        redraw = own.Run != LastRun::NoProgram;
        if (redraw)
            ShowReduced(state, tab);
    });
    return redraw;
}

}  // namespace Dorvane
