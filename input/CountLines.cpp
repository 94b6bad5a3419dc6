// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CountLines.h"

#include <limits>

#include "core/LineReader.h"
#include "core/RunTimeError.h"

namespace Dorvane {

std::int16_t CountLines(const std::string& path, int skipped) {
    LineReader lines(path);
    for (int i = 0; i < skipped; ++i)
        lines.ReadLine();
    std::int16_t count = 0;
    for (; !lines.AtEnd(); lines.ReadLine()) {
        if (count == std::numeric_limits<std::int16_t>::max())
            throw RunTimeError(Overflow);
        ++count;
    }
    return count;
}

}  // namespace Dorvane
