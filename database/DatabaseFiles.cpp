// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/DatabaseFiles.h"

#include "core/RunTimeError.h"
#include "core/basGeneral.h"

namespace Dorvane {

const DatabaseType& DatabaseTypeOf(std::int32_t typeCode) {
    for (const DatabaseType& type : DatabaseTypes)
        if (type.Code == typeCode)
            return type;
    throw RunTimeError(InvalidProcedureCall, "coordinate type " + std::to_string(typeCode));
}

std::string LocationOfFolder(const std::string& folder) {
    List1<std::string> parts;
    return parts[SplitPathParts(folder, parts)];
}

}  // namespace Dorvane
