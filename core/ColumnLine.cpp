// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ColumnLine.h"

namespace Dorvane {

ColumnLine& ColumnLine::At(int column, std::string_view field) {
    const std::size_t wanted = column > 1 ? static_cast<std::size_t>(column - 1) : 0;
    if (Content.size() - LineStart > wanted) {
        Content += "\r\n";
        LineStart = Content.size();
    }
    Content.append(wanted - (Content.size() - LineStart), ' ');
    Content += field;
    return *this;
}

ColumnLine& ColumnLine::Then(std::string_view text) {
    Content += text;
    return *this;
}

}  // namespace Dorvane
