// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/DataTypes.h"

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr const char* DataTypeProfile = "dv_dataType.ini";

}  // namespace

std::int16_t ReadIniDataTypes(List1<DataType>& types) {
    types.Clear();
    const bool complete = Guarded("basRead-ReadIniDataTypes", [&](Guard&) {
        List1<std::string> names;
        ParseFields(names, IniReadString(DataTypeProfile, "Data Types", "Epochs"));
        for (const std::string& name : names) {
            DataType& type = types.Add({name, {}});
            ParseFields(type.Extensions, IniReadString(DataTypeProfile, name, "Extension"));
        }
    });
    if (!complete)
        types.Clear();
    return types.Count();
}

int FindDataType(const List1<DataType>& types, const std::string& path) {
    for (int i = 1; i <= types.Count(); ++i) {
        if (Contains(path, types[i].Name))
            return i;
    }
    return 0;
}

std::string ReadTypeKey(const std::string& dataTypeName, const std::string& extension,
                        const std::string& suffix) {
    const std::string value = IniReadStringOrRaise(DataTypeProfile, dataTypeName, extension + suffix);
    return value.empty() ? IniReadStringOrRaise(DataTypeProfile, "File Types", extension + suffix) : value;
}

UploadKeys ReadUploadKeys(const std::string& dataTypeName, const std::string& extension) {
    const auto key = [&](const char* suffix) {
        return UpperCase(ReadTypeKey(dataTypeName, extension, suffix));
    };
    return {key("_Print"), key("_SrvIdx") == "TRUE", key("_Append") == "TRUE"};
}

}  // namespace Dorvane
