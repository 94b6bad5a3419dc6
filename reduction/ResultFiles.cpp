// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ResultFiles.h"

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "upload/Messages.h"

namespace Dorvane {

void EditResults(const ReduceState& state, int tab, const List1<std::string>& selected) {
    Guarded("frmReduce-cmdEdit_Click", [&](Guard& guard) {
        const GeneralEditor editor = ReadGeneralEditor();
        if (editor.Path.empty() || editor.Name.empty()) {
            ShowWarning("Editor does not exist in INI file.  Cannot edit files.", "Editor Not Found");
            return;
        }
        if (state.Tabs[tab].Reduction.ResultFiles.Empty()) {
            ShowInformation("No reduction file(s) exist.  Can not edit", "No File(s) Exist");
            return;
        }
        for (const std::string& file : selected)
            guard.Run([&] { TheDesktop().StartProgram(editor.Program() + " " + state.Folder + file); });
    });
}

void PrintResults(const ReduceState& state, int tab, const List1<std::string>& selected) {
    Guarded("frmReduce-cmdPrint_Click", [&](Guard&) {
        if (state.Tabs[tab].Reduction.ResultFiles.Empty()) {
            ShowInformation("No reduction file(s) exist.  Can not print", "No File(s) Exist");
            return;
        }
        for (const std::string& file : selected)
            PrintGenFile(state.Folder, file, state.Folder);
    });
}

}  // namespace Dorvane
