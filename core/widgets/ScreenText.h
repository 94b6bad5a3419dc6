// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>

// The door between the system's text (code page 1252) and the screens.
namespace Dorvane {

QString ToScreen(const std::string& text);

/// A character that code page 1252 does not hold becomes "?".
std::string FromScreen(const QString& text);

/// A text for a control that reads "&" as a mnemonic, so that a name with "&" shows as it stands.
QString ToCaption(const std::string& text);

/// A text for a tool tip, which shows as it stands, whatever markup is in it.
QString ToTip(const std::string& text);

}  // namespace Dorvane
