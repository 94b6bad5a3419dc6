// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QChar>
#include <QString>
#include <optional>
#include <string>

// The door between the bytes of an edited file (code page 1252) and what people see and type.
namespace Dorvane {

/// How a byte is shown: always one character, also for those that have no picture of their own.
QChar ShownByte(unsigned char byte);

/// True for bytes that are shown by a sign that stands for them: control characters, tabs and what the code
/// page leaves undefined.
bool IsStandIn(unsigned char byte);

/// What the bytes are for other programs; a line ends in LF there.
QString TextForOthers(const std::string& bytes);

/// The bytes of a text; nothing when code page 1252 lacks one of its characters, which `lacking` takes.
std::optional<std::string> BytesOf(const QString& text, QString& lacking);

}  // namespace Dorvane
