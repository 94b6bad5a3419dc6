// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The data types of the site, as dv_datatype.ini names them. Each use reads the profile anew.
namespace Dorvane {

/// One data type: its name, which is also the name of its profile section, and the upper-case file extensions
/// that belong to it.
struct DataType {
    std::string Name;
    List1<std::string> Extensions;

    bool operator==(const DataType&) const = default;
};

/// Reads the data types in the order of key "Epochs" of section "Data Types". Returns their number, 0 when
/// the key is empty. More than 50 words in a key are error 9, reported as "basRead-ReadIniDataTypes"; no type
/// is given then.
std::int16_t ReadIniDataTypes(List1<DataType>& types);

/// The index of the first data type whose name occurs anywhere in the path, case counting, or 0. A name that
/// is a part of another one, or of some folder's name, is found there too.
int FindDataType(const List1<DataType>& types, const std::string& path);

/// The value of key `<extension><suffix>`, looked up in the data type's section and, when that is empty, in
/// section "File Types".
std::string ReadTypeKey(const std::string& dataTypeName, const std::string& extension,
                        const std::string& suffix);

/// What the profile says about the upload of one extension. (A key `<ext>_Points` exists too; it has no
/// consequence.)
struct UploadKeys {
    std::string PrintProgram;    // upper case; empty: not printed, "GENERIC": by the program's own printing
    bool InSurveyIndex = false;  // the file is listed in the survey index
    bool Append = false;         // an existing target is extended rather than refused
};
UploadKeys ReadUploadKeys(const std::string& dataTypeName, const std::string& extension);

}  // namespace Dorvane
