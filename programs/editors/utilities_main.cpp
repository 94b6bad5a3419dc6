// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmUtilities.h"
#include "programs/window/EditorProgram.h"

// utilities.exe PROFILE: the launcher of what a profile lists, by its bare name; dv_special.ini without one.
int main(int count, char** arguments) {
    return Dorvane::RunEditor(count, arguments, "utilities", [&]() -> Dorvane::ScreenDialog* {
        return new Dorvane::frmUtilities(count > 1 ? arguments[1] : "dv_special.ini");
    });
}
