// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace Dorvane {

/// What mending does about a finding.
enum class Mend {
    None,  // only a person can tell what is right
    DropLines,
    MakeFolder,
    Register,
    EnterHistory,
    MakeIndex,
    EnterBook,
    MakeDatabaseFiles,
    RebuildDatabase,
    RebuildReference,
    AddBias,
    FinishChange
};

/// The folder of a survey, or of a calibration, which has no location.
struct SurveyNames {
    std::string System;
    std::string Location;
    std::string Type;
    std::string Epoch;

    bool operator==(const SurveyNames&) const = default;
    auto operator<=>(const SurveyNames&) const = default;
};

/// Something that is wrong in a site.
struct Finding {
    std::string File;  // drive path of a file or a folder
    long Line = 0;     // 0: it is about the whole of it
    std::string What;  // goes on behind file and line
    Mend How = Mend::None;
    std::string Target = {};  // what mending works on, where it is not the file: a folder or a file
    SurveyNames Names = {};   // what it enters
    int Type = 0;             // the type code of a database
};

/// What a check has found so far.
struct SiteReport {
    std::vector<Finding> Findings;
    long Looked = 0;  // files and folders
    bool Left = false;
    std::function<bool(const std::string& path)> Looking;  // is told what is looked at; false leaves off
};

/// Counts and shows what is looked at. False when the check is to be left off.
bool LookAt(SiteReport& report, const std::string& path);

/// True for a folder that is there.
bool IsFolder(const std::string& path);

/// A finding as a line of a list: file, line and what it is.
std::string LineOf(const Finding& finding);

/// What mending would do, empty where it can do nothing.
std::string MendText(Mend how);

}  // namespace Dorvane
