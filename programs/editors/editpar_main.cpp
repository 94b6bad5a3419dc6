// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Globals.h"
#include "programs/editors/frmEditPar.h"
#include "programs/window/ArgumentPath.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

// editpar.exe FILE: the editor of an adjustment's parameter file, which need not exist.
int main(int count, char** arguments) {
    return RunEditor(count, arguments, "editpar", [&]() -> ScreenDialog* {
        const std::string path = ArgumentPath(count, arguments);
        if (!path.empty())
            return new frmEditPar(path);
        TheDesktop().ShowMessage({.Text = "No parameter file was named to be edited.",
                                  .Title = "Edit Parameter File",
                                  .Picture = Icon::Exclamation});
        return nullptr;
    });
}
