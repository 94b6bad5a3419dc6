// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The survey index SRV*.IDX, one in each survey folder: a line with the folder's path without drive, a line
// of one blank, and then one line for each data file, with the base name at column 1, the extension at 10,
// the base name again at 20 and the file's date at 40. Lines are only ever added. Folders end in a backslash.
namespace Dorvane {

/// What is read of one index line.
struct SurveyIndexEntry {
    std::string Name;       // columns 1 to 9, trimmed, upper case
    std::string Extension;  // columns 10 to 13, trimmed, upper case

    bool operator==(const SurveyIndexEntry&) const = default;
};

/// The name of a folder's index file. Without one the operator is asked whether to create it; `created`
/// becomes true when the answer is yes, and the new index is named by the part of the folder's path that
/// begins with the first "SRV", or "SRV.IDX". Of several the one named like the folder counts. Empty when
/// there is none to use. Reports as "basUpload-GetSurveyIdxName".
std::string GetSurveyIdxName(const std::string& folder, bool& created);

/// Writes a new index of the two header lines, in place of an existing one. Reports as
/// "basWrite-WriteSrvNew".
void WriteSrvNew(const std::string& folder, const std::string& surveyIndexName);

/// Adds one line to an index; a missing one is made without header lines. A base name of 10 characters or
/// more breaks the layout: the fields behind it go to the next line. False when a failure, reported as
/// "basWrite-UpdateSrvIdx", kept the line out.
bool UpdateSrvIdx(const std::string& folder, const std::string& surveyIndexName, const std::string& baseName,
                  const std::string& extension, const std::string& description, const std::string& date);

/// The line that UpdateSrvIdx adds, with its end.
std::string SurveyIndexLine(const std::string& baseName, const std::string& extension,
                            const std::string& description, const std::string& date);

/// Reads an index. Returns the number of its data lines, blank ones included, or -1 when there is no such
/// file. A file without its two header lines is error 62; a failure is reported as
/// "basRead-ReadSurveyIdxFile" and gives 0.
std::int16_t ReadSurveyIdxFile(List1<SurveyIndexEntry>& entries, const std::string& folder,
                               const std::string& surveyIndexName);

}  // namespace Dorvane
