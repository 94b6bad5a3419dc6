// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <memory>
#include <string>

#include "core/Navigator.h"

namespace Dorvane {

class frmInput;
class frmMain;
class frmSearch;
class frmUploadMenu;
class frmTree;

/// Opens the screens for one another. A screen that is open is known here until it is unloaded.
class AppNavigator : public Navigator {
  public:
    AppNavigator();
    ~AppNavigator() override;

    /// The dialogs of the start-up, each shown until it is closed, and the home menu.
    void ShowSplash();
    void ShowInit();
    void ShowMain();
    bool HomeIsOpen() const { return Home != nullptr; }

    void ShowHome() override;
    void ShowPathType() override;
    void EndProgram() override;

    void OpenAbout() override;
    void OpenConstruct(const std::string& title, const std::string& text, const Then& then) override;

    void OpenSystemOptions() override;
    void OpenDownload() override;
    void OpenUpload() override;
    void OpenInput() override;
    void OpenAdjustment(const std::string& inputPath) override;
    void OpenDatabase() override;
    void OpenRetrieval() override;
    void OpenUpdate() override;
    void OpenCalibration() override;
    void OpenReduction(const std::string& folder) override;
    void OpenTree(const std::string& title, const std::string& folder, const Then& then) override;
    void OpenTreeAndWait(const std::string& title, const std::string& folder) override;
    void OpenWeights(const std::function<void(bool saved)>& then) override;
    void OpenVersions(const std::string& inputPath, const std::string& version, const Then& then) override;
    void ReturnToUpload(const std::string& folder) override;
    void ReturnToInput(const std::string& folder) override;

    void AskSurvey(const std::string& directory,
                   const std::function<void(const SurveyAnswer&)>& then) override;
    void AskCalibration(const std::string& directory,
                        const std::function<void(const CalibrationAnswer&)>& then) override;

    void ShowSearch(const std::string& text) override;
    void CloseSearch() override;
    std::unique_ptr<FileMeter> MoveMeter() override;
    std::unique_ptr<FileMeter> CopyMeter(const std::string& title) override;
    std::unique_ptr<FileMeter> DeleteMeter() override;

  private:
    frmTree* LoadTree(const std::string& title, const std::string& folder);
    std::string UploadDataType() const;

    std::unique_ptr<frmMain> Home;
    QPointer<frmUploadMenu> Upload;
    QPointer<frmInput> Input;
    QPointer<frmSearch> Search;
};

}  // namespace Dorvane
