// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppNavigator.h"

#include <QApplication>
#include <QEventLoop>

#include "adjustment/frmOpenInput.h"
#include "adjustment/frmVarn.h"
#include "core/basMain.h"
#include "core/frmAbout.h"
#include "core/frmConstruct.h"
#include "core/frmInit.h"
#include "core/frmMain.h"
#include "core/frmSplash.h"
#include "core/frmSysOption.h"
#include "core/widgets/Later.h"
#include "core/widgets/ScreenText.h"
#include "database/CoordinateRetriever.h"
#include "database/basDatabase.h"
#include "database/frmDbOption.h"
#include "database/frmDbRetrieve.h"
#include "database/frmDbUpdate.h"
#include "datatree/basTree.h"
#include "datatree/frmAddSurvey.h"
#include "datatree/frmTree.h"
#include "input/frmInput.h"
#include "input/frmObsWeights.h"
#include "reduction/frmAddCalib.h"
#include "reduction/frmCalibTree.h"
#include "reduction/frmReduce.h"
#include "upload/SurveyIndex.h"
#include "upload/frmCopyMeter.h"
#include "upload/frmDeleteMeter.h"
#include "upload/frmDownload.h"
#include "upload/frmMoveMeter.h"
#include "upload/frmSearch.h"
#include "upload/frmUploadMenu.h"

namespace Dorvane {

namespace {

// The procedure that opens such a window stands still until it is closed, which may be while it is shown.
template <class Window>
void ShowUntilUnloaded(Window* window) {
    QEventLoop loop;
    bool unloaded = false;
    QObject::connect(window, &Window::Unloaded, &loop, [&] {
        unloaded = true;
        loop.quit();
    });
    window->ShowModal();
    if (!unloaded)
        loop.exec();
}

// Every screen that is loaded, hidden ones too.
QWidgetList AllScreens() {
    QWidgetList screens;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<Screen*>(window) != nullptr || qobject_cast<ScreenDialog*>(window) != nullptr)
            screens.append(window);
    return screens;
}

template <class Window>
void CallWhenUnloaded(Window* window, const Navigator::Then& then) {
    if (then)
        QObject::connect(window, &Window::Unloaded, qApp, [then] { CallLater(qApp, then); });
}

// The same for a dialog that answers something.
template <class Dialog, class Then>
void AnswerWhenUnloaded(Dialog* dialog, const Then& then) {
    QObject::connect(dialog, &Dialog::Unloaded, qApp, [dialog, then] {
        CallLater(qApp, [answer = dialog->Answer(), then] { then(answer); });
    });
}

}  // namespace

AppNavigator::AppNavigator() = default;

AppNavigator::~AppNavigator() {
    for (QWidget* window : AllScreens())
        if (window != Home.get())
            delete window;
}

void AppNavigator::ShowSplash() {
    ShowUntilUnloaded(new frmSplash);
}

void AppNavigator::ShowInit() {
    ShowUntilUnloaded(new frmInit);
}

void AppNavigator::ShowMain() {
    Home = std::make_unique<frmMain>(*this, [this] {
        ReloadPathRecords({[this](const std::string& text) { ShowSearch(text); }, [this] { CloseSearch(); }},
                          "Searching for existing Tarvex data folders.");
    });
    ShowHome();
}

void AppNavigator::ShowHome() {
    Home->show();
    Home->raise();
    Home->activateWindow();
}

void AppNavigator::ShowPathType() {
    Home->ShowPathType();
}

void AppNavigator::EndProgram() {
    for (QWidget* window : AllScreens())
        window->hide();
    QApplication::exit();
}

void AppNavigator::OpenAbout() {
    (new frmAbout)->ShowModal();
}

void AppNavigator::OpenConstruct(const std::string& title, const std::string& text, const Then& then) {
    auto* notice = new frmConstruct(title, text);
    CallWhenUnloaded(notice, then);
    notice->ShowModal();
}

void AppNavigator::OpenSystemOptions() {
    (new frmSysOption(*this))->ShowModal();
}

void AppNavigator::OpenDownload() {
    (new frmDownload(*this))->show();
}

void AppNavigator::OpenUpload() {
    if (Upload.isNull())
        Upload = new frmUploadMenu(*this);
    Upload->show();
    Upload->activateWindow();
}

void AppNavigator::OpenInput() {
    if (Input.isNull())
        Input = new frmInput(*this, [] { return std::make_unique<CoordinateRetriever>(); });
    Input->ShowModal();
}

void AppNavigator::OpenWeights(const std::function<void(bool saved)>& then) {
    auto* weights = new frmObsWeights;
    QObject::connect(weights, &frmObsWeights::Unloaded, qApp,
                     [weights, then] { CallLater(qApp, [saved = weights->Saved(), then] { then(saved); }); });
    weights->ShowModal();
}

void AppNavigator::OpenAdjustment(const std::string& inputPath) {
    auto* adjustment = new frmVarn(*this);
    if (!inputPath.empty())
        adjustment->SetInput(inputPath);
    adjustment->ShowModal();
}

void AppNavigator::OpenVersions(const std::string& inputPath, const std::string& version, const Then& then) {
    auto* versions = new frmOpenInput;
    versions->SetVersion(version);
    versions->SetDirectory(inputPath);
    CallWhenUnloaded(versions, then);
    versions->ShowModal();
}

void AppNavigator::OpenDatabase() {
    (new frmDbOption(*this))->ShowModal();
}

void AppNavigator::OpenRetrieval() {
    (new frmDbRetrieve(*this))->ShowModal();
}

void AppNavigator::OpenUpdate() {
    (new frmDbUpdate(*this))->ShowModal();
}

void AppNavigator::OpenReduction(const std::string& folder) {
    auto* reduction = new frmReduce(*this);
    reduction->SetSelectedDirectory(folder);
    reduction->ShowModal();
}

void AppNavigator::OpenCalibration() {
    (new frmCalibTree(*this))->ShowModal();
}

frmTree* AppNavigator::LoadTree(const std::string& title, const std::string& folder) {
    SurveyServices services;
    services.WriteSrvNew = WriteSrvNew;
    services.WriteCoordNew = WriteLocationNew;
    services.LacksCoordFiles = LacksCoordFiles;
    services.Waiting = {[this](const std::string& text) { ShowSearch(text); }, [this] { CloseSearch(); }};
    auto* tree = new frmTree(*this, services);
    tree->setWindowTitle(ToScreen(title));
    tree->SetTempDirectory(folder);
    return tree;
}

void AppNavigator::OpenTree(const std::string& title, const std::string& folder, const Then& then) {
    frmTree* tree = LoadTree(title, folder);
    CallWhenUnloaded(tree, then);
    tree->ShowModal();
}

void AppNavigator::OpenTreeAndWait(const std::string& title, const std::string& folder) {
    ShowUntilUnloaded(LoadTree(title, folder));
}

void AppNavigator::ReturnToUpload(const std::string& folder) {
    if (!Upload.isNull())
        Upload->SetToPath(folder);
    OpenUpload();
}

void AppNavigator::ReturnToInput(const std::string& folder) {
    if (!Input.isNull())
        Input->SetDirectory(folder);
    OpenInput();
}

void AppNavigator::AskSurvey(const std::string& directory,
                             const std::function<void(const SurveyAnswer&)>& then) {
    auto* dialog = new frmAddSurvey;
    AnswerWhenUnloaded(dialog, then);
    dialog->SetDirectory(directory);
    dialog->ShowModal();
}

void AppNavigator::AskCalibration(const std::string& directory,
                                  const std::function<void(const CalibrationAnswer&)>& then) {
    auto* dialog = new frmAddCalib;
    AnswerWhenUnloaded(dialog, then);
    dialog->SetDirectory(directory);
    dialog->ShowModal();
}

void AppNavigator::ShowSearch(const std::string& text) {
    if (Search.isNull())
        Search = new frmSearch;
    Search->ShowText(text);
}

void AppNavigator::CloseSearch() {
    if (Search.isNull())
        return;
    Search->Unload();
    Search.clear();
}

std::string AppNavigator::UploadDataType() const {
    return Upload.isNull() ? "" : Upload->DataTypeName();
}

std::unique_ptr<FileMeter> AppNavigator::MoveMeter() {
    return std::make_unique<frmMoveMeter>(UploadDataType());
}

std::unique_ptr<FileMeter> AppNavigator::CopyMeter(const std::string& title) {
    return std::make_unique<frmCopyMeter>(UploadDataType(), title);
}

std::unique_ptr<FileMeter> AppNavigator::DeleteMeter() {
    return std::make_unique<frmDeleteMeter>();
}

}  // namespace Dorvane
