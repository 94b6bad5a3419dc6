// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/Desktop.h"

namespace Dorvane::Testing {

/// A desktop that keeps what it is told and answers as an operator who wants his step done, but for failures,
/// which he gives up or tries again. Its own calls are none of the step's.
class TellingDesktop : public Desktop {
  public:
    explicit TellingDesktop(bool triesAgain) : TriesAgain(triesAgain) {}

    bool HasTold(const std::string& title) const;

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                       const std::string& initial) override;
    std::optional<std::string> AskFile(const FileDialog& dialog) override;
    int PrinterCount() override { return 0; }
    bool SetupPrinter(PrinterChoice&) override { return false; }
    std::unique_ptr<PrintJob> BeginPrint(const std::string& font, int points) override;
    void ShowHelp(const std::string&, const std::string&, int) override {}
    void ShowHelpPage(const std::string&, const std::string&) override {}
    void SearchHelp(const std::string&) override {}
    void RunAndWait(const std::string&) override {}
    void StartProgram(const std::string&) override {}
    std::unique_ptr<SharedWait> BeginSharedWait() override;
    DateTime Now() override { return {2026, 11, 20, 9, 5, 7}; }
    void YieldEvents() override {}

    std::vector<Message> Told;
    std::string AskedText;
    std::string AskedFile;

  private:
    bool TriesAgain;
    int Failures = 0;
};

}  // namespace Dorvane::Testing
