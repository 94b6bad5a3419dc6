// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DriveLinks.h"
#include "programs/editors/frmEditDrives.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

int main(int count, char** arguments) {
    return RunEditor(count, arguments, "EditDrives",
                     []() -> ScreenDialog* { return Drives::CanLayOut() ? new frmEditDrives : nullptr; });
}
