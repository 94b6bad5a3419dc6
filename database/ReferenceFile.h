// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// Where one update came from.
struct ReferenceRecord {
    std::string Date;  // as it stands in the update file
    std::string Project;
    std::string Task;
};

/// Adds one update to the location's reference file, which has to be there, and returns the number of records
/// that it then holds. The file is replaced in one step. RecordRefused for a text that does not fit its
/// columns (8 of the date, 10 each of project and task) or holds a control character, DatabaseDamaged for a
/// file that is not of its form, DatabaseFull when its count has no column left.
long AppendReference(const std::string& folder, const std::string& location,
                     const ReferenceRecord& reference);

}  // namespace Dorvane
