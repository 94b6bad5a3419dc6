// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// A message with a warning icon and an OK button.
void ShowWarning(const std::string& text, const std::string& title);

/// A message with an information icon and an OK button.
void ShowInformation(const std::string& text, const std::string& title);

}  // namespace Dorvane
