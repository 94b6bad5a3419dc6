// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/window/ArgumentPath.h"

#include "core/Drives.h"
#include "core/Host.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

bool IsDrivePath(const std::string& path) {
    return path.size() > 2 && path[1] == ':' && path[2] == '\\';
}

}  // namespace

std::string ArgumentPath(int count, const char* const* arguments) {
    std::string path;
    for (int i = 1; i < count; ++i)
        path += (i == 1 ? "" : " ") + std::string(arguments[i]);
    if (path.empty())
        return "";
    if (IsDrivePath(path))
        return TextFromUtf8(path);
    const bool isWhole = Host::PathsAreDrivePaths() || path.front() == '/';
    return Drives::DrivePath(isWhole ? path : Host::WorkingFolder() + "/" + path);
}

}  // namespace Dorvane
