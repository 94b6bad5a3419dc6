// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/List1.h"
#include "core/Navigator.h"

// What the operator is told when a survey was added: it is compared from what stood on the disk before and
// behind.
namespace Dorvane {

/// What an addition made, what it found there, and what it should have made and did not; a line each.
struct SurveyReport {
    std::vector<std::string> Made;
    std::vector<std::string> Found;
    std::vector<std::string> Lacking;
};

/// True when the registry of the survey's system has its line for a data type, or its history the heading. A
/// file that cannot be read has neither: the step that writes it tells that.
bool IsRegistered(const SurveyAnswer& survey, const std::string& type);
bool IsInHistory(const SurveyAnswer& survey, const std::string& type);

/// Takes stock of what a survey needs, before it is added.
class SurveyStock {
  public:
    SurveyStock(const SurveyAnswer& survey, const List1<std::string>& types);

    /// Compares with what is there now.
    SurveyReport Compare() const;

  private:
    struct Thing {
        std::string Name;  // "folder D:\DAM"
        std::string Path;
        bool WasThere = false;
    };
    void NeedFolder(const std::string& path);
    void NeedFile(const std::string& kind, const std::string& path);
    void CompareLines(SurveyReport& report, const std::string& path, std::int64_t before,
                      bool ofEachType) const;
    void CompareHistory(SurveyReport& report) const;
    void CompareCoordinateFiles(SurveyReport& report) const;

    SurveyAnswer Survey;
    List1<std::string> Names;  // of the types
    int Types = 0;
    int Registered = 0;  // of them
    std::string Registry;
    std::string History;
    std::int64_t RegistryLines = 0;
    std::int64_t HistoryLines = 0;
    std::string CoordinateFolder;
    std::vector<std::string> CoordinateFiles;
    std::vector<Thing> Things;
};

/// Tells the operator; nothing when the report is empty.
void TellSurveyAdded(const SurveyAnswer& survey, const SurveyReport& report);

/// The same in a few words, for the status bar.
std::string SurveyStatus(const SurveyAnswer& survey, const SurveyReport& report);

}  // namespace Dorvane
