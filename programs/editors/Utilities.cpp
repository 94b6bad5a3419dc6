// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/Utilities.h"

#include <algorithm>
#include <map>

#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr const char* Section = "Utilities";
constexpr int MostUtilities = 40;

std::map<std::string, std::string> Names() {
    const Globals& global = Global();
    return {{"APPPATH", AppPath()},
            {"WINDOWSPATH", GetWindowsPath()},
            {"EDITOR", ReadGeneralEditor().Program()},
            {"DATA_DRIVE", global.Data_drive},
            {"CALIB_PATH", global.Calib_path},
            {"COORD_PATH", global.Coord_path},
            {"INIT_PATH", global.Init_path},
            {"PARAM_PATH", global.Param_path},
            {"TEMP_PATH", global.Temp_path},
            {"WORK_PATH", global.Work_path},
            {"DOWNLOAD_PATH", global.Download_path}};
}

bool IsThere(std::string path) {
    return FileExists(path) || FolderExists(path);
}

}  // namespace

std::vector<Utility> ReadUtilities(const std::string& profile) {
    std::vector<Utility> utilities;
    const double number = IniReadNumber(profile, Section, "Number");
    for (int i = 1; i <= std::min(number, static_cast<double>(MostUtilities)); ++i) {
        const auto key = [&](const char* name) {
            return IniReadString(profile, Section, name + std::to_string(i));
        };
        Utility utility{key("Title"), key("Tip"), key("Needs"), key("Command")};
        if (!utility.Title.empty() && !utility.Command.empty())
            utilities.push_back(std::move(utility));
    }
    return utilities;
}

std::string ExpandNames(const std::string& text) {
    const std::map<std::string, std::string> names = Names();
    std::string result;
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t end = text[place] == '%' ? text.find('%', place + 1) : std::string::npos;
        const auto name = end == std::string::npos
                              ? names.end()
                              : names.find(UpperCase(text.substr(place + 1, end - place - 1)));
        if (name == names.end()) {
            result += text[place++];
        } else {
            result += name->second;
            place = end + 1;
        }
    }
    return result;
}

void StartUtility(const Utility& utility) {
    const std::string needed = ExpandNames(utility.Needs);
    if (!utility.Needs.empty() && !IsThere(needed)) {
        TheDesktop().ShowMessage(
            {.Text = needed.empty() ? utility.Needs + " is not set." : needed + " does not exist.",
             .Title = utility.Title,
             .Picture = Icon::Information});
        return;
    }
    const bool edits = ContainsIgnoringCase(utility.Command, "%Editor%");
    if (!edits || HasGeneralEditor(ReadGeneralEditor()))
        TheDesktop().StartProgram(ExpandNames(utility.Command));
}

}  // namespace Dorvane
