// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace Dorvane {

/// A moment of local time, to the second.
struct DateTime {
    int Year = 1980;  // four digits
    int Month = 1;    // 1 to 12
    int Day = 1;      // 1 to 31
    int Hour = 0;     // 0 to 23
    int Minute = 0;
    int Second = 0;

    bool operator==(const DateTime&) const = default;
};

/// "11/20/2026": the system's short date format.
std::string ShortDate(const DateTime& moment);
/// "3:04:05 PM": the system's long time format.
std::string LongTime(const DateTime& moment);
/// "11/20/2026 3:04:05 PM": the system's general format. A time of exactly midnight gives the date alone.
std::string GeneralDate(const DateTime& moment);
/// "11-20-26", as the registries and the update file carry it.
std::string DashedDate(const DateTime& moment);

/// The moment of a date text and a time text of the formats above, either of which may be empty, as whole
/// seconds since 30 December 1899; error 13 when a text is neither.
long long SecondsOf(std::string_view date, std::string_view time);

/// True when the second moment is later than the first by at least one second. Error 13 as SecondsOf.
bool IsNewer(std::string_view date1, std::string_view time1, std::string_view date2, std::string_view time2);

}  // namespace Dorvane
