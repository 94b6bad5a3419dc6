// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

class QHelpContentWidget;
class QHelpEngine;
class QHelpIndexWidget;
class QTemporaryDir;
class QUrl;

namespace Dorvane {

namespace Ui {
class HelpViewer;
}

/// The help window: the manual's contents, index and search at the left, its pages at the right. It stands
/// beside all other windows and stays within reach while one of them keeps the others out of reach.
class HelpViewer : public QMainWindow {
    Q_OBJECT

  public:
    /// `file` is the help file's drive path; the toolkit's help file (.qch) of the same base name stands in
    /// its place. Error 53 when it is not there, 57 when it cannot be read as help. The program's folder is
    /// only read.
    explicit HelpViewer(std::string file);
    ~HelpViewer() override;

    const std::string& File() const { return FileName; }

    void ShowContents();
    void ShowIndex();
    void ShowSearch();
    /// A page by its file name, with a place on it: "input.html#weights".
    void ShowPage(const QString& page);
    /// What the manual says about an error number.
    void ShowError(int number);

  protected:
    bool event(QEvent* event) override;

  private:
    void OpenFile();
    void SetUpToolBar();
    void SetUpContents();
    void SetUpIndex();
    void SetUpSearch();
    void SetUpPage();
    void SetUpFindBar();
    void Open(const QString& page);
    void Present();
    void PageChanged();
    void FindText(bool backward);
    void ShowFindBar(bool shown);
    void JoinModalWindow();
    void JoinModalWindowLater();

    std::string FileName;
    std::unique_ptr<QTemporaryDir> Scratch;  // the toolkit's own notes about the help file
    QHelpEngine* Engine = nullptr;
    std::unique_ptr<Ui::HelpViewer> Form;
    QHelpContentWidget* Contents = nullptr;
    QHelpIndexWidget* Index = nullptr;
};

}  // namespace Dorvane
