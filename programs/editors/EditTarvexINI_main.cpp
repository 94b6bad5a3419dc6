// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EditorProgram.h"
#include "programs/editors/frmEditTarvexINI.h"

int main(int count, char** arguments) {
    return Dorvane::RunEditor(count, arguments, "EditTarvexINI",
                              []() -> Dorvane::ScreenDialog* { return new Dorvane::frmEditTarvexINI; });
}
