// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "adjustment/AdjustmentResults.h"
#include "core/LineWriter.h"
#include "core/Pattern.h"

// What the writers of export files share.
namespace Dorvane {

/// A number field: digits by a pattern, right-justified in a width that never cuts.
class NumberField {
  public:
    NumberField(std::string_view pattern, int width) : Digits(pattern), Width(width) {}

    std::string operator()(double value) const { return Digits(value, Width); }

  private:
    Pattern Digits;
    int Width;
};

/// Writes a whole file by `body` as the procedure named. False when it was not written; a retry writes it
/// anew.
bool WriteExportFile(std::string_view procedure, const std::string& path,
                     const std::function<void(LineWriter&)>& body);

/// Calls `write` for each station, then for each point.
template <class Write>
void ForAllPoints(const AdjustmentResults& results, const Write& write) {
    for (const AdjustedPoint& station : results.Stations)
        write(station);
    for (const AdjustedPoint& point : results.Points)
        write(point);
}

}  // namespace Dorvane
