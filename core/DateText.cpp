// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DateText.h"

#include <array>
#include <charconv>
#include <chrono>

#include <fmt/format.h>

#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr long long SecondsPerDay = 86400;

// Reads `count` whole numbers divided by single separators from the head of a text; the rest stays in `text`.
template <std::size_t count>
bool ReadNumbers(std::string_view& text, char separator, std::array<int, count>& numbers) {
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) {
            if (text.empty() || text.front() != separator)
                return false;
            text.remove_prefix(1);
        }
        const auto result = std::from_chars(text.data(), text.data() + text.size(), numbers[i]);
        if (result.ec != std::errc() || numbers[i] < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    }
    return true;
}

constexpr int LastYear = 9999;

long long DaysOf(const std::string& date) {
    std::string_view rest = date;
    std::array<int, 3> part{};
    // The calendar's own parts are narrower than the numbers of a text: a month of 257 would be January.
    const bool read = ReadNumbers(rest, '/', part) && rest.empty();
    if (!read || part[0] > 12 || part[1] > 31 || part[2] > LastYear)
        throw RunTimeError(TypeMismatch, date);
    const std::chrono::year_month_day day{std::chrono::year(part[2]),
                                          std::chrono::month(static_cast<unsigned>(part[0])),
                                          std::chrono::day(static_cast<unsigned>(part[1]))};
    if (!day.ok())
        throw RunTimeError(TypeMismatch, date);
    constexpr auto first = std::chrono::sys_days(std::chrono::year(1899) / 12 / 30);
    return (std::chrono::sys_days(day) - first).count();
}

long long SecondsInDay(const std::string& time) {
    std::string_view rest = time;
    std::array<int, 3> part{};
    const bool read = ReadNumbers(rest, ':', part);
    const std::string half = UpperCase(Trim(rest));
    const bool twelveHours = half == "AM" || half == "PM";
    const bool inRange =
        part[0] < 24 && part[1] < 60 && part[2] < 60 && (!twelveHours || (part[0] >= 1 && part[0] <= 12));
    if (!read || !inRange || !(half.empty() || twelveHours))
        throw RunTimeError(TypeMismatch, time);
    int hour = part[0];
    if (twelveHours)
        hour = hour % 12 + (half == "PM" ? 12 : 0);
    return (hour * 60LL + part[1]) * 60 + part[2];
}

}  // namespace

std::string ShortDate(const DateTime& moment) {
    return fmt::format("{}/{}/{}", moment.Month, moment.Day, moment.Year);
}

std::string LongTime(const DateTime& moment) {
    const int hour = moment.Hour % 12 == 0 ? 12 : moment.Hour % 12;
    return fmt::format("{}:{:02}:{:02} {}", hour, moment.Minute, moment.Second,
                       moment.Hour < 12 ? "AM" : "PM");
}

std::string GeneralDate(const DateTime& moment) {
    if (moment.Hour == 0 && moment.Minute == 0 && moment.Second == 0)
        return ShortDate(moment);
    return ShortDate(moment) + " " + LongTime(moment);
}

std::string DashedDate(const DateTime& moment) {
    return fmt::format("{:02}-{:02}-{:02}", moment.Month, moment.Day, moment.Year % 100);
}

long long SecondsOf(std::string_view date, std::string_view time) {
    const std::string dateText = Trim(date);
    const std::string timeText = Trim(time);
    return (dateText.empty() ? 0 : DaysOf(dateText)) * SecondsPerDay +
           (timeText.empty() ? 0 : SecondsInDay(timeText));
}

bool IsNewer(std::string_view date1, std::string_view time1, std::string_view date2, std::string_view time2) {
    return SecondsOf(date2, time2) - SecondsOf(date1, time1) > 0;
}

}  // namespace Dorvane
