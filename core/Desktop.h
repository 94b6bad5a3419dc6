// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/DateText.h"

namespace Dorvane {

enum class Icon { None, Stop, Question, Exclamation, Information };
enum class Buttons { Ok, RetryCancel, YesNo, YesNoCancel };
enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// A message box. All texts are code page 1252.
struct Message {
    std::string Text;
    std::string Title;
    Icon Picture = Icon::None;
    Buttons Choices = Buttons::Ok;
    Answer Default = Answer::Ok;  // the button that Enter presses; Ok stands for the first one
    bool HasHelp = false;         // a Help button that opens HelpFile at HelpContext
    std::string HelpFile = {};
    int HelpContext = 0;
};

/// A file dialog. Paths are drive paths.
struct FileDialog {
    enum class Kind { Open, Save } Purpose = Kind::Open;
    std::string Title = {};
    std::string Folder = {};    // where it starts; empty: the dialog's own start
    std::string FileName = {};  // proposed name
    std::string Filter = {};    // "text|patterns|text|patterns|"
    int FilterIndex = 1;        // from 1
    int Flags = 0;              // 4 hides the read-only box, 256 switches off validation of names
};

/// What the printer dialog holds after it closed.
struct PrinterChoice {
    int Copies = 1;
    int FromPage = 0;
    int ToPage = 0;
};

/// A text document on its way to the printer. Dropped without End, it is not printed.
class PrintJob {
  public:
    virtual ~PrintJob() = default;
    virtual void Line(const std::string& text) = 0;
    virtual void End() = 0;
};

/// A wait for another workstation, shown as long as it lives.
class SharedWait {
  public:
    virtual ~SharedWait() = default;

    /// Shows for whom is waited, and takes a short while. False when the operator leaves the wait.
    virtual bool GoOn(const std::string& text) = 0;
};

/// What the program asks of the desktop. Implemented with windows for people and with a script for tests.
class Desktop {
  public:
    virtual ~Desktop() = default;

    virtual Answer ShowMessage(const Message& message) = 0;

    /// The input box; nothing when it is cancelled.
    virtual std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                               const std::string& initial) = 0;

    /// The chosen path; nothing when the dialog is cancelled.
    virtual std::optional<std::string> AskFile(const FileDialog& dialog) = 0;

    virtual int PrinterCount() = 0;
    virtual bool SetupPrinter(PrinterChoice& choice) = 0;  // false when cancelled
    virtual std::unique_ptr<PrintJob> BeginPrint(const std::string& font, int points) = 0;

    /// `command` is 1 for the table of contents, 2 for the index; `window` the name of the help window.
    virtual void ShowHelp(const std::string& file, const std::string& window, int command) = 0;
    /// Opens the help at a page, and at a place on it: "input.html#weights".
    virtual void ShowHelpPage(const std::string& file, const std::string& page) = 0;
    /// Opens the help where a word is looked for in all pages.
    virtual void SearchHelp(const std::string& file) = 0;

    /// Starts a command line and waits for its end without limit. Nothing tells of a failed start.
    virtual void RunAndWait(const std::string& commandLine) = 0;

    /// Starts a command line as a normal window beside the program; error 53 when there is no such program.
    virtual void StartProgram(const std::string& commandLine) = 0;

    virtual std::unique_ptr<SharedWait> BeginSharedWait() = 0;

    virtual DateTime Now() = 0;
    virtual void YieldEvents() = 0;
};

}  // namespace Dorvane
