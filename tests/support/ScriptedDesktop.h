// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "core/Desktop.h"

namespace Dorvane::Testing {

/// A desktop that answers from a script and fails the test on any question that was not expected, and at its
/// end on any answer that was not asked for. It installs itself as the desktop and leaves it at its end.
class ScriptedDesktop : public Desktop {
  public:
    ScriptedDesktop();
    ~ScriptedDesktop() override;

    /// The next message must have this title and this text, and is answered so.
    void ExpectMessage(const std::string& title, const std::string& text, Answer answer = Answer::Ok);
    /// The next message must have this title; its text is not compared (Shown holds it).
    void ExpectMessageTitled(const std::string& title, Answer answer = Answer::Ok);
    void ExpectText(const std::string& prompt, std::optional<std::string> answer);
    void ExpectFile(const std::string& title, std::optional<std::string> answer);

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                       const std::string& initial) override;
    std::optional<std::string> AskFile(const FileDialog& dialog) override;
    int PrinterCount() override { return Printers; }
    bool SetupPrinter(PrinterChoice& choice) override;
    std::unique_ptr<PrintJob> BeginPrint(const std::string& font, int points) override;
    void ShowHelp(const std::string& file, const std::string& window, int command) override;
    void ShowHelpPage(const std::string& file, const std::string& page) override;
    void SearchHelp(const std::string& file) override;
    void RunAndWait(const std::string& commandLine) override;
    void StartProgram(const std::string& commandLine) override;
    std::unique_ptr<SharedWait> BeginSharedWait() override;
    DateTime Now() override { return Clock; }
    void YieldEvents() override;

    std::vector<Message> Shown;             // every message, in order
    std::vector<FileDialog> Dialogs;        // every file dialog, in order
    std::vector<std::string> Initials;      // the initial text of every input box
    std::vector<std::string> Started;       // every command line that was started or run, in order
    std::vector<std::string> PrintedLines;  // lines of every finished print job
    std::vector<std::string> PrintFonts;    // "Courier 12" of every job begun
    int Yields = 0;
    int Printers = 1;
    bool PrinterConfirmed = true;
    bool RunsPrograms = false;  // really start what is asked for, by the host
    DateTime Clock{2026, 11, 20, 9, 5, 7};
    std::function<void(const std::string&)> OnRun;  // called for each started command line
    std::function<void()> OnYield;
    std::function<void()> OnMessage;  // called before each message is answered
    std::function<bool(const std::string&)>
        OnWait;  // called while another workstation is waited for; goes on by true

  private:
    struct Expected {
        enum class Kind { Message, Text, File } Of;
        std::string Title;
        std::string Text;
        bool CompareText;
        Answer Reply;
        std::optional<std::string> TextReply;
    };
    std::deque<Expected> Script;
    Desktop* Former;
};

}  // namespace Dorvane::Testing
