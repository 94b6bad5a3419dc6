// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/road/ConsoleDesktop.h"

#include <algorithm>
#include <chrono>
#include <ostream>
#include <thread>

#include "core/CommandLine.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane::Road {

namespace {

// Says once for whom is waited. There is nobody who could leave the wait, so it ends by itself.
class PrintedWait : public SharedWait {
  public:
    explicit PrintedWait(std::ostream& out) : Out(out) {}

    bool GoOn(const std::string& text) override {
        if (Pauses == 0)
            Out << "      waiting: " << Utf8FromText(text) << std::endl;
        std::this_thread::sleep_for(Pause);
        return ++Pauses < Longest / Pause;
    }

  private:
    static constexpr std::chrono::milliseconds Pause{50};
    static constexpr std::chrono::minutes Longest{2};
    std::ostream& Out;
    int Pauses = 0;
};

}  // namespace

ConsoleDesktop::ConsoleDesktop(std::ostream& out) : Out(out), Former(Global().OwnDesktop) {
    InstallDesktop(this);
}

ConsoleDesktop::~ConsoleDesktop() {
    InstallDesktop(Former);
}

Answer ConsoleDesktop::ShowMessage(const Message& message) {
    LastTitle = message.Title;
    if (message.Title == "Program Error")
        ++Failures;
    std::string text = message.Text;
    std::replace(text.begin(), text.end(), '\r', ' ');
    std::replace(text.begin(), text.end(), '\n', ' ');
    const bool question = message.Choices == Buttons::YesNo || message.Choices == Buttons::YesNoCancel;
    Out << "      [" << Utf8FromText(message.Title) << "] " << Utf8FromText(text)
        << (question ? " -> Yes" : "") << "\n";
    if (question)
        return message.Title == "Program Error" ? Answer::No : Answer::Yes;
    return message.Choices == Buttons::RetryCancel ? Answer::Cancel : Answer::Ok;
}

std::optional<std::string> ConsoleDesktop::AskText(const std::string& prompt, const std::string&,
                                                   const std::string&) {
    Out << "      " << Utf8FromText(prompt) << ": " << Utf8FromText(TextToEnter) << "\n";
    return TextToEnter;
}

std::optional<std::string> ConsoleDesktop::AskFile(const FileDialog& dialog) {
    const std::string chosen =
        dialog.Purpose == FileDialog::Kind::Save ? dialog.Folder + dialog.FileName : FileToOpen;
    if (chosen.empty())
        return std::nullopt;
    return chosen;
}

bool ConsoleDesktop::SetupPrinter(PrinterChoice&) {
    return false;
}

std::unique_ptr<PrintJob> ConsoleDesktop::BeginPrint(const std::string&, int) {
    throw RunTimeError(DeviceUnavailable, "no printer");
}

void ConsoleDesktop::ShowHelp(const std::string&, const std::string&, int) {}

void ConsoleDesktop::ShowHelpPage(const std::string&, const std::string&) {}

void ConsoleDesktop::SearchHelp(const std::string&) {}

void ConsoleDesktop::RunAndWait(const std::string& commandLine) {
    Out << "      runs " << Utf8FromText(commandLine) << "\n" << std::flush;
    try {
        StartCommandLine(commandLine, true);
    } catch (const RunTimeError& error) {
        Out << "      which did not start: " << Utf8FromText(error.Description) << "\n";
    }
}

void ConsoleDesktop::StartProgram(const std::string& commandLine) {
    StartCommandLine(commandLine, false);
}

std::unique_ptr<SharedWait> ConsoleDesktop::BeginSharedWait() {
    return std::make_unique<PrintedWait>(Out);
}

DateTime ConsoleDesktop::Now() {
    return Host::Now();
}

}  // namespace Dorvane::Road
