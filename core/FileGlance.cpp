// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileGlance.h"

#include "core/Drives.h"
#include "core/basGeneral.h"

namespace Dorvane {

std::string FileStamp(std::string_view path) {
    return FileExists(path) ? Drives::ChangeMark(path) : "";
}

std::string FileHead(std::string_view path, std::size_t most) {
    return Drives::PiecewiseFile(path).Read(0, most);
}

}  // namespace Dorvane
