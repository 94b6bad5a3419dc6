// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "upload/DataTypes.h"
#include "upload/SurveyIndex.h"
#include "upload/UploadReport.h"

// The upload engine: takes one field file from a collection folder into a survey folder. Folders end in a
// backslash.
namespace Dorvane {

/// Uploads one file: the file is copied to `toPath` or, when its extension says so and it is there already,
/// appended to the one there; then listed in the survey index, printed when `printFlag` is 1, and at last the
/// source is renamed out of the way. What its extension asks for stands in `dv_datatype.ini`.
///
/// True when all was done. False when the target exists and may not be extended: a message says so, and
/// nothing is touched. False also when a step failed, which was reported as "basUpload-UploadFile" or by the
/// step's own name: what was done before it stays, and the source keeps its old name. A program that is ended
/// leaves the target with its line in the index, or neither. A source is never renamed unless its copy is
/// whole on disk.
bool UploadFile(const std::string& fromPath, const std::string& toPath, const std::string& fileName,
                const std::string& fileDate, const std::string& surveyIndexName, std::int16_t printFlag,
                const std::string& dataTypeName);

/// One file of a run.
struct UploadJob {
    std::string FromPath;
    std::string ToPath;
    std::string FileName;
    std::string TargetName;  // its name in ToPath
    std::string FileDate;
    std::string SurveyIndexName;
    bool Print = false;
    std::string DataTypeName;
};

/// Does what UploadFile does, and tells what became of the file. Under another name than its own it is listed
/// and printed by that name, and an existing target is refused, whatever its extension says.
UploadedFile UploadOneFile(const UploadJob& job);

/// Renames an uploaded source: its name up to and including the first point, and the highest free number from
/// 999 down to 001. When all are taken it keeps its name, silently. False only after a failure, reported as
/// "basUpload-UploadRename".
bool UploadRename(const std::string& fromPath, const std::string& fileName);

/// Appends a file to the one of its name in `toPath`, line by line, so that each line, the last one too, ends
/// in CR LF. A target whose last line has no end is continued on that line. All of the file is appended or
/// nothing. False after a failure, reported as "basUpload-AppendDataFile".
bool AppendDataFile(const std::string& fromPath, const std::string& toPath, const std::string& fileName);

}  // namespace Dorvane
