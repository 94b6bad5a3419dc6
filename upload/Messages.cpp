// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/Messages.h"

#include "core/Globals.h"

namespace Dorvane {

void ShowWarning(const std::string& text, const std::string& title) {
    TheDesktop().ShowMessage({.Text = text, .Title = title, .Picture = Icon::Exclamation});
}

void ShowInformation(const std::string& text, const std::string& title) {
    TheDesktop().ShowMessage({.Text = text, .Title = title, .Picture = Icon::Information});
}

}  // namespace Dorvane
