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

void DeleteResults(const std::string& folder, const List1<std::string>& reduceTokens, Guard& guard) {
    for (int i = 2; i <= reduceTokens.Count(); ++i) {
        const std::string path = folder + reduceTokens[i];
        if (FileExists(path))
            guard.Run([&] { Drives::DeleteFile(path); });
    }
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

}  // namespace

bool RunReduction(ReduceState& state, int tab) {
    bool redraw = false;
    Guarded("frmReduce-cmdReduce_Click", [&](Guard& guard) {
        ReduceTab& own = state.Tabs[tab];
        std::string surveyIndexName;
        if (!InitReduce(state.Folder, surveyIndexName, state.DataTypeName, own.Extension))
            return;
        List1<std::string> reduceTokens;
        ParseFields(reduceTokens, own.ReduceList);
        DeleteResults(state.Folder, reduceTokens, guard);
        List1<std::string> paramTokens;
        ParseFields(paramTokens, ReadTypeKey(state.DataTypeName, own.Extension, "_Param"));
        if (!WriteParamFile(state.Folder, paramTokens, reduceTokens, surveyIndexName, own.CalibrationType,
                            own.Epochs[own.Epoch]))
            return;
        if (!RunProgram(reduceTokens[1], guard))
            return;
        ReduceIconSetup(state.Folder, own.Reduction, own.ReduceList, own.Extension, state.ExtraExtension);
        redraw = true;
    });
    return redraw;
}

}  // namespace Dorvane
