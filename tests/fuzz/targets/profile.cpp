// SPDX-License-Identifier: GPL-3.0-or-later
// The profile store and all that is read from a profile: the first byte tells which value is written into it.
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "input/InputTypes.h"
#include "input/Weights.h"
#include "programs/editors/TarvexProfile.h"
#include "programs/editors/Utilities.h"
#include "tests/fuzz/targets/FuzzSite.h"
#include "upload/DataTypes.h"
#include "upload/Download.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

const std::string Folder = "C:\\WINDOWS\\";
constexpr std::size_t MostRead = 127;

void ReadAll() {
    List1<DataType> types;
    ReadIniDataTypes(types);
    for (const DataType& type : types)
        ReadUploadKeys(type.Name, "GSI");
    List1<InputType> inputTypes;
    ReadIniInputTypes(inputTypes);
    DownloadState download;
    LoadDownloadState(download);
    for (const char* file : {"dv_tarvex.ini", "dv_datatype.ini", "dv_input.ini"})
        ReadUtilities(file);
    ReadTarvexProfile();
    ReadGeneralEditor();
}

// A value that is written reads back, and no other key changes.
void Change(const std::string& value) {
    const std::string file = "dv_tarvex.ini";
    const auto other = IniFindString(file, "Tarvex Info", "Data_drive");
    const auto inOther = IniFindString(file, "General Editor", "Temp_path");
    IniWriteString(file, "tarvex info", "temp_path", value);
    HoldSame(value, IniReadString(file, "Tarvex Info", "Temp_path"), "a value that is written reads back");
    Hold(other == IniFindString(file, "Tarvex Info", "Data_drive"), "another key keeps its value");
    Hold(inOther == IniFindString(file, "General Editor", "Temp_path"), "another section keeps its value");
    const std::string once = Content(Folder + file);
    IniWriteString(file, "tarvex info", "temp_path", value);
    HoldSame(once, Content(Folder + file), "to write a value twice changes nothing");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<std::string> values{"C:\\TEMP\\",    "",    "a b", "x=y",
                                                 "[Tarvex Info]", ";no", "\"",  "1.5"};
    LayOutOnce();
    Choices choices(data, size);
    const std::string value = choices.OneOf(values);
    const std::string content = choices.Tail();
    for (const char* file : {"dv_datatype.ini", "dv_input.ini"})
        Put(Folder + file, content);
    Reading(Folder + "dv_tarvex.ini", content, [&] {
        ReadAll();
        Hold(IniReadString("dv_tarvex.ini", "Tarvex Info", "Data_drive").size() <= MostRead,
             "a value has its greatest length");
        IniReadNumber("dv_tarvex.ini", "Tarvex Info", "Path_type");
    });
    Change(value);
    return 0;
}
