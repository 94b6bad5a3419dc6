// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditTarvexINI.h"
#include "programs/window/EditorProgram.h"

int main(int count, char** arguments) {
    return Dorvane::RunEditor(count, arguments, "EditTarvexINI",
                              []() -> Dorvane::ScreenDialog* { return new Dorvane::frmEditTarvexINI; });
}
