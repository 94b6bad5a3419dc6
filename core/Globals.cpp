// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Globals.h"

namespace Dorvane {

Globals& Global() {
    static Globals globals;
    return globals;
}

Desktop& TheDesktop() {
    if (Global().OwnDesktop == nullptr)
        throw RunTimeError(InternalError, "no desktop is installed");
    return *Global().OwnDesktop;
}

void InstallDesktop(Desktop* desktop) {
    Global().OwnDesktop = desktop;
}

}  // namespace Dorvane
