// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Globals.h"
#include "programs/editors/frmEditCalib.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

int main(int count, char** arguments) {
    return RunEditor(count, arguments, "EditCalib", []() -> ScreenDialog* {
        return HasInitPath() ? new frmEditCalib(Global().Init_path, Global().Calib_path) : nullptr;
    });
}
