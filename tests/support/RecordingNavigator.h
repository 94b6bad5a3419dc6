// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/Navigator.h"

namespace Dorvane::Testing {

/// A navigator that opens nothing and writes down what it was asked for, as "OpenTree Upload Data To|D:\X\".
/// The callback of the last call that had one is kept, so that a test can close the screen that it stands
/// for.
class RecordingNavigator : public Navigator {
  public:
    void ShowHome() override { Calls.emplace_back("ShowHome"); }
    void ShowPathType() override { Calls.emplace_back("ShowPathType"); }
    void EndProgram() override { Calls.emplace_back("EndProgram"); }
    void OpenAbout() override { Calls.emplace_back("OpenAbout"); }
    void OpenConstruct(const std::string& title, const std::string& text, const Then& then) override {
        Calls.push_back("OpenConstruct " + title + "|" + text);
        WhenClosed = then;
    }
    void OpenSystemOptions() override { Calls.emplace_back("OpenSystemOptions"); }
    void OpenDownload() override { Calls.emplace_back("OpenDownload"); }
    void OpenUpload() override { Calls.emplace_back("OpenUpload"); }
    void OpenInput() override { Calls.emplace_back("OpenInput"); }
    void OpenAdjustment(const std::string& inputPath) override {
        Calls.push_back(inputPath.empty() ? "OpenAdjustment" : "OpenAdjustment " + inputPath);
    }
    void OpenDatabase() override { Calls.emplace_back("OpenDatabase"); }
    void OpenRetrieval() override { Calls.emplace_back("OpenRetrieval"); }
    void OpenUpdate() override { Calls.emplace_back("OpenUpdate"); }
    void OpenCalibration() override { Calls.emplace_back("OpenCalibration"); }
    void OpenReduction(const std::string& folder) override { Calls.push_back("OpenReduction " + folder); }
    void OpenTree(const std::string& title, const std::string& folder, const Then& then) override {
        Calls.push_back("OpenTree " + title + "|" + folder);
        WhenClosed = then;
    }
    void OpenTreeAndWait(const std::string& title, const std::string& folder) override {
        Calls.push_back("OpenTreeAndWait " + title + "|" + folder);
        if (OnTreeWaited)
            OnTreeWaited();
    }
    void OpenWeights(const std::function<void(bool)>& then) override {
        Calls.emplace_back("OpenWeights");
        WeightsAnswered = then;
    }
    void OpenVersions(const std::string& inputPath, const std::string& version, const Then& then) override {
        Calls.push_back("OpenVersions " + inputPath + "|" + version);
        WhenClosed = then;
    }
    void ReturnToUpload(const std::string& folder) override { Calls.push_back("ReturnToUpload " + folder); }
    void ReturnToInput(const std::string& folder) override { Calls.push_back("ReturnToInput " + folder); }
    void AskSurvey(const std::string& directory,
                   const std::function<void(const SurveyAnswer&)>& then) override {
        Calls.push_back("AskSurvey " + directory);
        SurveyAnswered = then;
    }
    void AskCalibration(const std::string& directory,
                        const std::function<void(const CalibrationAnswer&)>& then) override {
        Calls.push_back("AskCalibration " + directory);
        CalibrationAnswered = then;
    }
    void ShowSearch(const std::string& text) override { Calls.push_back("ShowSearch " + text); }
    void CloseSearch() override { Calls.emplace_back("CloseSearch"); }
    std::unique_ptr<FileMeter> MoveMeter() override { return Meter("MoveMeter"); }
    std::unique_ptr<FileMeter> CopyMeter(const std::string& title) override {
        return Meter("CopyMeter " + title);
    }
    std::unique_ptr<FileMeter> DeleteMeter() override { return Meter("DeleteMeter"); }

    std::vector<std::string> Calls;
    Then WhenClosed;
    std::function<void()> OnTreeWaited;  // what the operator does in the folder picker meanwhile
    std::function<void(bool)> WeightsAnswered;
    std::function<void(const SurveyAnswer&)> SurveyAnswered;
    std::function<void(const CalibrationAnswer&)> CalibrationAnswered;

  private:
    struct RecordingMeter : FileMeter {
        explicit RecordingMeter(std::vector<std::string>& calls) : Calls(calls) {}
        void Open(int fileCount) override { Calls.push_back("Open " + std::to_string(fileCount)); }
        void ShowFile(const std::string& from, const std::string& to) override {
            Calls.push_back("ShowFile " + from + "|" + to);
        }
        void Advance(int filesDone) override { Calls.push_back("Advance " + std::to_string(filesDone)); }
        void Close() override { Calls.emplace_back("Close"); }
        std::vector<std::string>& Calls;
    };

    std::unique_ptr<FileMeter> Meter(const std::string& call) {
        Calls.push_back(call);
        return std::make_unique<RecordingMeter>(Calls);
    }
};

}  // namespace Dorvane::Testing
