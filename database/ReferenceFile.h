// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "core/ReplaceFiles.h"

namespace Dorvane {

/// Where one update came from.
struct ReferenceRecord {
    std::string Date;  // as it stands in the update file
    std::string Project;
    std::string Task;
};

/// The location's reference file, which has to be there, with one update more; `updates` takes the number
/// that it then tells of. RecordRefused for a text that does not fit its columns (8 of the date, 10 each of
/// project and task) or holds a control character, DatabaseDamaged for a file that is not of its form,
/// DatabaseFull when its count has no column left.
FileChange ReferenceWith(const std::string& folder, const std::string& location,
                         const ReferenceRecord& reference, long& updates);

/// True when the reference file tells of an update with the same date, project and task. Raises as above.
bool HasReference(const std::string& folder, const std::string& location, const ReferenceRecord& reference);

/// The latest update that the reference file tells of. Raises as above.
std::optional<ReferenceRecord> LastReference(const std::string& folder, const std::string& location);

}  // namespace Dorvane
