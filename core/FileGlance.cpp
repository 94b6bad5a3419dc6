// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileGlance.h"

#include "core/Drives.h"
#include "core/basGeneral.h"

namespace Dorvane {

std::string FileStamp(std::string_view path) {
    return FileExists(path) ? Host::FileStamp(Drives::HostPath(path)) : "";
}

std::string FileHead(std::string_view path, std::size_t most) {
    return Host::FileHead(Drives::HostPath(path), most);
}

}  // namespace Dorvane
