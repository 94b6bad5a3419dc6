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

// Splits a time stamp at its first blank. A stamp of midnight has none and is meant to be split at the blank
// of the file before it, which `blank` carries over; the first file has nothing to go by and raises error 5.
void SplitStamp(const std::string& stamp, int& blank, FileEntry& file) {
    const int found = InStr(Left(stamp, StampWidth), " ");
    if (found > 0)
        blank = found;
    if (blank < 1)
        throw RunTimeError(InvalidProcedureCall);
    if (blank < StampWidth) {
        file.Date = Trim(Left(stamp, blank));
        file.Time = Trim(Mid(stamp, blank, StampWidth));
    } else {
        file.Date = stamp;
    }
}

std::int32_t SizeOf(const Drives::Entry& found) {
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(found.Size, most));
}

}  // namespace

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
            SplitStamp(GeneralDate(found.Modified), blank, file);
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
