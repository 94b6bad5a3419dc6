// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/About.h"

#include "core/Globals.h"
#include "core/basGeneral.h"

namespace Dorvane {

std::string ProgramVersion() {
    return DORVANE_VERSION;
}

void StartSystemInformation() {
    for (const char* tool : {"C:\\WINDOWS\\system32\\msinfo32.exe", "Z:\\usr\\bin\\kinfocenter",
                             "Z:\\usr\\bin\\hardinfo2", "Z:\\usr\\bin\\hardinfo"})
        if (FileExists(tool)) {
            TheDesktop().StartProgram(tool);
            return;
        }
    TheDesktop().ShowMessage({"System Information Is Unavailable At This Time", "About Dorvane"});
}

}  // namespace Dorvane
