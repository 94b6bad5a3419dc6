// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Globals.h"
#include "programs/editors/frmEditChoice.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

int main(int count, char** arguments) {
    return RunEditor(count, arguments, "EditChoice", []() -> ScreenDialog* {
        return HasInitPath() ? new frmEditChoice(Global().Init_path) : nullptr;
    });
}
