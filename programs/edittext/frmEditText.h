// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

#include "core/widgets/Screen.h"
#include "programs/edittext/TextFile.h"

class QLabel;
class QProgressBar;

namespace Dorvane {

namespace Ui {
class frmEditText;
}
class TextWork;
class TextView;

/// The text editor: one file, its headings beside it, and a line to find and replace words.
class frmEditText : public Screen {
    Q_OBJECT

  public:
    explicit frmEditText(TextFile file);
    ~frmEditText() override;

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void SetUpSize();
    void SetUpStatusBar();
    void SetUpWork();
    void ConnectFileMenu();
    void ConnectEditMenu();
    void ConnectSearchMenu();
    void ConnectViewMenu();

    // The file
    void Show(TextFile file);
    void Open();
    bool Save();
    bool SaveAs();
    void Reload();
    void AskReload();
    void Print();
    void Close();
    bool MayLeave();
    void LookAtDisk();
    void AnswerToDisk(DiskState state);

    // What is found
    void OpenFindBar(bool replaces);
    void Find(bool backward);
    void ShowMatch(std::optional<Offset> place, Offset length, bool wrapped, bool backward);
    void Replace();
    void ReplaceAll();
    void GoToLine();
    void ShowWantedLine();
    void GoToSection(int step);
    void ListSections();
    void MarkSection();
    void Escape();

    // What is seen
    void ShowState();
    void ShowTitle();
    void ShowProgress(double share);
    void Say(const QString& text);
    void Zoom(int steps);
    TextDocument& Text() { return *File.Document; }
    TextView& View();

    std::unique_ptr<Ui::frmEditText> Form;
    TextFile File;
    TextWork* Work;
    QLabel* Message = nullptr;
    QLabel* Place = nullptr;
    QLabel* LineEnds = nullptr;
    QLabel* Typing = nullptr;
    QLabel* Access = nullptr;
    QProgressBar* Progress = nullptr;
    std::optional<Offset> WantedLine;  // to be shown when it is counted
    int UsualPoints;
    bool Asking = false;  // a question about the file on the disk is open
};

}  // namespace Dorvane
