// SPDX-License-Identifier: GPL-3.0-or-later
#include <io.h>

#include "krenn/HostFile.h"

namespace Krenn {

bool FlushToDisk(std::FILE* file) {
    return _commit(_fileno(file)) == 0;
}

}  // namespace Krenn
