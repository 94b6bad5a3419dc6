// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileThere.h"

#include "core/Drives.h"

namespace Dorvane::Drives {

bool IsFile(std::string_view path) {
    Entry entry;
    return Find(path, entry) && !entry.IsFolder;
}

std::string ReadFileIfThere(std::string_view path) {
    return IsFile(path) ? ReadFile(path) : "";
}

}  // namespace Dorvane::Drives
