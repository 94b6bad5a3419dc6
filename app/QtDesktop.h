// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/Desktop.h"

class QPrinter;

namespace Dorvane {

class HelpViewer;

/// The desktop by the toolkit's windows. It is the installed desktop as long as it lives. Dialogs block the
/// caller and take all windows out of reach but the help.
class QtDesktop : public Desktop {
  public:
    static constexpr int UsualPatience = 5000;  // milliseconds

    /// An outside program that is waited for longer than `patience` can be given up.
    explicit QtDesktop(int patience = UsualPatience);
    ~QtDesktop() override;
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                       const std::string& initial) override;
    std::optional<std::string> AskFile(const FileDialog& dialog) override;

    int PrinterCount() override;
    /// The printer chosen here is the one of all later documents. Error 68 when the system has none.
    bool SetupPrinter(PrinterChoice& choice) override;
    std::unique_ptr<PrintJob> BeginPrint(const std::string& font, int points) override;

    /// Opens the help that stands in the place of `file`: the toolkit's help file of the same base name.
    /// Error 53 when it is not there, 57 when it cannot be read as help. All requests share one window.
    void ShowHelp(const std::string& file, const std::string& window, int command) override;
    void ShowHelpPage(const std::string& file, const std::string& page) override;
    void SearchHelp(const std::string& file) override;

    /// The windows are painted in the meantime and answer to nothing; see ProgramWait.h.
    void RunAndWait(const std::string& commandLine) override;
    void StartProgram(const std::string& commandLine) override;

    /// A small window says who is waited for, and lets the operator leave the wait.
    std::unique_ptr<SharedWait> BeginSharedWait() override;

    DateTime Now() override;
    void YieldEvents() override;

  private:
    HelpViewer& OpenHelp(const std::string& file);
    QPrinter& Printer();

    int Patience;
    Desktop* Former;
    std::unique_ptr<HelpViewer> Help;
    std::unique_ptr<QPrinter> ChosenPrinter;
};

}  // namespace Dorvane
