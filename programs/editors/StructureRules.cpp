// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/StructureRules.h"

#include <algorithm>
#include <utility>

#include "core/Globals.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "upload/DataTypes.h"

namespace Dorvane {

namespace {

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += " " + name;
    return list.empty() ? " nothing" : list;
}

std::string Profile() {
    return GetWindowsPath() + "dv_datatype.ini";
}

}  // namespace

KnownNames ReadKnownNames() {
    KnownNames known;
    List1<DataType> types;
    ReadIniDataTypes(types);
    for (const DataType& type : types) {
        known.DataTypes.push_back(type.Name);
        for (const std::string& extension : type.Extensions) {
            const std::string calibration = ReadTypeKey(type.Name, extension, "_Calib");
            if (!calibration.empty() && !Holds(known.CalibrationTypes, calibration))
                known.CalibrationTypes.push_back(calibration);
        }
    }
    return known;
}

std::string SystemFault(const std::string& code, bool isData) {
    if (code == "BIAS")
        return "would have the file BIAS.STR, which holds the bias values";
    if (!isData)
        return "";
    const Globals& global = Global();
    const std::pair<const char*, const std::string&> folders[] = {
        {"Calib_path", global.Calib_path},      {"Coord_path", global.Coord_path},
        {"Init_path", global.Init_path},        {"Param_path", global.Param_path},
        {"Temp_path", global.Temp_path},        {"Work_path", global.Work_path},
        {"Download_path", global.Download_path}};
    for (const auto& [key, folder] : folders)
        if (!folder.empty() && EqualIgnoringCase(folder, global.Data_drive + code + "\\"))
            return std::string("would have the folder of ") + key;
    return "";
}

std::string LocationFault(const std::string& code) {
    return code == "STDBIAS" ? "stands in BIAS.STR for every location without a line" : "";
}

std::string DataTypeFault(const KnownNames& known, const std::string& code) {
    if (code == "ADJUST")
        return "is the folder of the projects";
    if (Holds(known.DataTypes, code))
        return "";
    return "is no data type: key Epochs in section Data Types of " + Profile() + " names" +
           Listed(known.DataTypes);
}

std::string EpochFault(const std::string& code) {
    return code.starts_with("SRV") ? "" : "does not begin with SRV, by which survey folders are known";
}

std::string CalibrationTypeFault(const KnownNames& known, const std::string& code) {
    if (Holds(known.CalibrationTypes, code))
        return "";
    return "is no calibration type: the keys <extension>_Calib in the sections of the data types of " +
           Profile() + " name" + Listed(known.CalibrationTypes);
}

std::string CalibrationEpochFault(const std::string& code) {
    return code == "NONE" ? "is the word for no calibration" : "";
}

std::string MisleadingName(const KnownNames& known, const std::string& code) {
    if (Contains(code, "SRV"))
        return "holds SRV, by which survey folders are known, so that other folders are taken for them";
    for (const std::string& type : known.DataTypes)
        if (Contains(code, type))
            return "holds the name of data type " + type + ", so that uploads below it can be taken for " +
                   type;
    return "";
}

}  // namespace Dorvane
