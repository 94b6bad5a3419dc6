// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Globals.h"
#include "programs/editors/frmEditBias.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

int main(int count, char** arguments) {
    return RunEditor(count, arguments, "EditBias", []() -> ScreenDialog* {
        return HasInitPath() ? new frmEditBias(Global().Init_path) : nullptr;
    });
}
