// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Globals.h"
#include "programs/editors/frmEditInp.h"
#include "programs/window/ArgumentPath.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

// editinp.exe FILE: the editor of an adjustment input file.
int main(int count, char** arguments) {
    return RunEditor(count, arguments, "editinp", [&]() -> ScreenDialog* {
        const std::string path = ArgumentPath(count, arguments);
        if (!path.empty())
            return new frmEditInp(path);
        TheDesktop().ShowMessage({.Text = "No input file was named to be edited.",
                                  .Title = "Edit Input File",
                                  .Picture = Icon::Exclamation});
        return nullptr;
    });
}
