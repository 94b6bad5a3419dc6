// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basTarvex.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr int StampWidth = 20;

std::int32_t SizeOf(const Drives::Entry& found) {
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(found.Size, most));
}

}  // namespace

void SplitTimeStamp(const std::string& stamp, int& blank, std::string& date, std::string& time) {
    const int found = InStr(Left(stamp, StampWidth), " ");
    if (found > 0)
        blank = found;
    if (blank < 1)
        throw RunTimeError(InvalidProcedureCall);
    if (blank < StampWidth) {
        date = Trim(Left(stamp, blank));
        time = Trim(Mid(stamp, blank, StampWidth));
    } else {
        date = stamp;
        time = "";
    }
}

std::int16_t GetFiles(List1<FileEntry>& entries, const std::string& folder, const std::string& pattern) {
    entries.Clear();
    const bool finished = Guarded("basTarvex-GetFiles", [&](Guard& guard) {
        std::vector<Drives::Entry> listing;
        guard.Run([&] { listing = Drives::List(folder, pattern); });
        int blank = 0;
        for (const Drives::Entry& found : listing) {
            if (found.IsFolder)
                continue;
            FileEntry file;
            file.Name = UpperCase(found.Name);
            SplitTimeStamp(GeneralDate(found.Modified), blank, file.Date, file.Time);
            file.Size = SizeOf(found);
            entries.Add(std::move(file));
        }
    });
    if (!finished)
        entries.Clear();
    return entries.Count();
}

std::int16_t GetDirectories(List1<std::string>& names, const std::string& path) {
    names.Clear();
    const bool finished = Guarded("basTarvex-GetDirectories", [&](Guard& guard) {
        std::vector<Drives::Entry> listing;
        guard.Run([&] { listing = Drives::List(path); });
        for (Drives::Entry& found : listing)
            if (found.IsFolder)
                names.Add(std::move(found.Name));
    });
    if (!finished)
        names.Clear();
    return names.Count();
}

}  // namespace Dorvane
