// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The folder listings that the rest of the system works with. Lists count from 1.
namespace Dorvane {

/// One file of a listing.
struct FileEntry {
    std::string Name;       // upper case
    std::string Date;       // "11/20/2026", the date part of the file's time stamp
    std::string Time;       // "3:04:05 PM", the time part of it
    std::int32_t Size = 0;  // bytes; a longer file shows 2147483647

    bool operator==(const FileEntry&) const = default;
};

/// Splits a time stamp of the general format into its date and its time at the first blank of its first 20
/// characters, whose position goes into `blank`. A stamp without one, as midnight has it, is meant to be
/// split at the position that `blank` still holds from the stamp before; error 5 when that is 0. From
/// position 20 on the whole stamp is the date.
void SplitTimeStamp(const std::string& stamp, int& blank, std::string& date, std::string& time);

/// Lists the files (no folders) of a folder that ends in a backslash, those whose names match a DOS pattern,
/// and returns their number. A folder that is not there has no files. A failure is reported as
/// "basTarvex-GetFiles" and leaves an empty listing: error 6 past 32767 files, error 5 when the first file is
/// stamped exactly at midnight. Any other file stamped at midnight is split where the stamp of the file
/// before it was.
std::int16_t GetFiles(List1<FileEntry>& entries, const std::string& folder, const std::string& pattern);

/// Lists the folders inside a folder that ends in a backslash, as they are spelled on the disk, and returns
/// their number. A folder that is not there has none. A failure is reported as "basTarvex-GetDirectories" and
/// leaves an empty listing.
std::int16_t GetDirectories(List1<std::string>& names, const std::string& path);

}  // namespace Dorvane
