// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basHelp.h"

#include "core/Globals.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr int Contents = 1;
constexpr int Index = 2;

}  // namespace

std::string HelpFile() {
    return AppPath() + "help\\DorvaneHelp.chm";
}

void ShowHelpContents(const std::string& window) {
    TheDesktop().ShowHelp(HelpFile(), window, Contents);
}

void ShowHelpIndex(const std::string& window) {
    TheDesktop().ShowHelp(HelpFile(), window, Index);
}

}  // namespace Dorvane
