// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/FileMeter.h"

// How screens open one another without knowing one another. The pattern is always the same: the caller hides
// or closes itself, and a label of the screen that opens is set. All texts and folders are code page 1252.
namespace Dorvane {

/// What the dialog "Select Survey to Add" answers. One of the first four is empty when it was cancelled.
struct SurveyAnswer {
    std::string Root;
    std::string Location;
    std::string TypeMulti;  // the chosen data types, each followed by one blank
    std::string Epoch;
    std::string NewHistory;

    bool operator==(const SurveyAnswer&) const = default;
};

/// What the dialog "Select Calibration to Add" answers. One is empty when it was cancelled.
struct CalibrationAnswer {
    std::string Type;
    std::string Epoch;

    bool operator==(const CalibrationAnswer&) const = default;
};

class Navigator {
  public:
    using Then = std::function<void()>;

    virtual ~Navigator() = default;

    /// Makes the home menu visible again. It is never closed before the end.
    virtual void ShowHome() = 0;
    /// Lets the home menu show the path type that another screen has set.
    virtual void ShowPathType() = 0;
    /// Ends the program at once, whatever screen is open.
    virtual void EndProgram() = 0;

    /// A box that stands until it is confirmed; `then` runs when it is closed.
    virtual void OpenAbout() = 0;
    virtual void OpenConstruct(const std::string& title, const std::string& text, const Then& then = {}) = 0;

    /// The screens behind the home menu. One that is still loaded is shown as it is.
    virtual void OpenSystemOptions() = 0;
    virtual void OpenDownload() = 0;
    virtual void OpenUpload() = 0;
    virtual void OpenInput() = 0;
    /// `inputPath` is the input file to begin with, or empty.
    virtual void OpenAdjustment(const std::string& inputPath = "") = 0;
    virtual void OpenDatabase() = 0;
    virtual void OpenRetrieval() = 0;
    virtual void OpenUpdate() = 0;
    virtual void OpenCalibration() = 0;
    virtual void OpenReduction(const std::string& folder) = 0;

    /// The folder picker. Its title is its mode, `folder` where it goes to; `then` runs when it is closed.
    virtual void OpenTree(const std::string& title, const std::string& folder, const Then& then = {}) = 0;
    /// The folder picker in the middle of a procedure: returns when it is closed.
    virtual void OpenTreeAndWait(const std::string& title, const std::string& folder) = 0;
    /// What the folder picker answers: the label of the caller is set, and the caller made visible.
    virtual void ReturnToUpload(const std::string& folder) = 0;
    virtual void ReturnToInput(const std::string& folder) = 0;

    virtual void AskSurvey(const std::string& directory,
                           const std::function<void(const SurveyAnswer&)>& then) = 0;
    virtual void AskCalibration(const std::string& directory,
                                const std::function<void(const CalibrationAnswer&)>& then) = 0;

    /// The weights of the observation kinds; `then` is told whether they were saved.
    virtual void OpenWeights(const std::function<void(bool saved)>& then) = 0;
    /// The versions of an input file: the texts of txtInput and cmbVersion of the adjustment screen.
    virtual void OpenVersions(const std::string& inputPath, const std::string& version, const Then& then) = 0;

    /// The waiting window while something long is read.
    virtual void ShowSearch(const std::string& text) = 0;
    virtual void CloseSearch() = 0;

    /// The meters. Each stands until it is closed, and takes the screens behind it out of reach.
    virtual std::unique_ptr<FileMeter> MoveMeter() = 0;
    virtual std::unique_ptr<FileMeter> CopyMeter(const std::string& title) = 0;
    virtual std::unique_ptr<FileMeter> DeleteMeter() = 0;
};

}  // namespace Dorvane
