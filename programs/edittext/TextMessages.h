// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/Desktop.h"

// What the text editor tells and asks in boxes.
namespace Dorvane {

/// Tells something that keeps the operator from what he wanted.
void WarnOfText(const std::string& text);

/// Asks a question whose usual answer is the default one. True for yes.
bool ConfirmText(const std::string& text, Answer usual);

/// Asks whether a text is to be saved before it is left: yes, no or cancel.
Answer AskToSaveText(const std::string& path);

}  // namespace Dorvane
