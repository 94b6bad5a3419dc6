// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/List1.h"
#include "database/CoordinateRecord.h"

namespace Dorvane {

/// One line of a retrieval.
struct RetrievedValue {
    CoordinateRecord Record;  // as stored
    bool Current = true;      // the latest of its point
};

/// What a retrieval's result file tells at its head.
struct RetrievalHeading {
    std::string Location;
    std::int32_t TypeCode = 0;
    std::int32_t UnitsCode = 0;
    List1<double> Bias;      // four values; only those of meters are applied
    bool AllValues = false;  // all stored values, else the current ones alone
};

/// Writes the result file of a retrieval: a heading, the columns' titles and units, and one line a value,
/// aligned by their columns. A number longer than its column runs on and is never cut.
void WriteRetrievalFile(const std::string& path, const RetrievalHeading& heading,
                        const std::vector<RetrievedValue>& values);

}  // namespace Dorvane
