// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include "krenn/HostFile.h"

namespace Krenn {

bool FlushToDisk(std::FILE* file) {
    return fsync(fileno(file)) == 0;
}

}  // namespace Krenn
