// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>
#include <string>

#include "core/Desktop.h"

namespace Dorvane::Road {

/// A desktop without windows: prints every message and answers it as an operator on a straight road would. A
/// question is answered Yes, a failure is never retried. Printing is not on offer.
class ConsoleDesktop : public Desktop {
  public:
    explicit ConsoleDesktop(std::ostream& out);
    ~ConsoleDesktop() override;

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                       const std::string& initial) override;
    std::optional<std::string> AskFile(const FileDialog& dialog) override;
    int PrinterCount() override { return 0; }
    bool SetupPrinter(PrinterChoice& choice) override;
    std::unique_ptr<PrintJob> BeginPrint(const std::string& font, int points) override;
    void ShowHelp(const std::string& file, const std::string& window, int command) override;
    void ShowHelpPage(const std::string& file, const std::string& page) override;
    void SearchHelp(const std::string& file) override;
    void RunAndWait(const std::string& commandLine) override;
    void StartProgram(const std::string& commandLine) override;
    std::unique_ptr<SharedWait> BeginSharedWait() override;
    DateTime Now() override;
    void YieldEvents() override {}

    std::string TextToEnter;  // what the next input box is answered with
    std::string FileToOpen;   // what an open dialog is answered with; a save dialog takes its proposal
    int Failures = 0;         // reports of the title "Program Error" so far
    std::string LastTitle;    // of the message shown last

  private:
    std::ostream& Out;
    Desktop* Former;
};

}  // namespace Dorvane::Road
