// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextSource.h"

namespace Dorvane {

std::string_view FileSource::View(Offset from, Offset count) const {
    const auto wanted = static_cast<std::size_t>(count);
    for (const Stretch& stretch : Kept)
        if (stretch.From == from && stretch.Bytes.size() >= wanted)
            return std::string_view(stretch.Bytes).substr(0, wanted);
    Stretch& stretch = Kept[Next];
    Next = (Next + 1) % Kept.size();
    stretch.From = -1;
    stretch.Bytes = File.Read(from, wanted);
    stretch.Bytes.resize(wanted, '\0');
    stretch.From = from;
    return stretch.Bytes;
}

}  // namespace Dorvane
