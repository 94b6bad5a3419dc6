// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "core/CommandLine.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"

namespace Dorvane::Testing {

namespace {

class RecordedJob : public PrintJob {
  public:
    explicit RecordedJob(std::vector<std::string>& printed) : Printed(printed) {}
    void Line(const std::string& text) override { Lines.push_back(text); }
    void End() override { Printed.insert(Printed.end(), Lines.begin(), Lines.end()); }

  private:
    std::vector<std::string>& Printed;
    std::vector<std::string> Lines;
};

class ScriptedWait : public SharedWait {
  public:
    explicit ScriptedWait(ScriptedDesktop& desktop) : Desk(desktop) {}

    bool GoOn(const std::string& text) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return !Desk.OnWait || Desk.OnWait(text);
    }

  private:
    ScriptedDesktop& Desk;
};

}  // namespace

ScriptedDesktop::ScriptedDesktop() : Former(Global().OwnDesktop) {
    InstallDesktop(this);
}

ScriptedDesktop::~ScriptedDesktop() {
    InstallDesktop(Former);
    for (const Expected& left : Script)
        ADD_FAILURE() << "never asked: " << left.Title << " | " << left.Text;
}

void ScriptedDesktop::ExpectMessage(const std::string& title, const std::string& text, Answer answer) {
    Script.push_back({Expected::Kind::Message, title, text, true, answer, std::nullopt});
}

void ScriptedDesktop::ExpectMessageTitled(const std::string& title, Answer answer) {
    Script.push_back({Expected::Kind::Message, title, "", false, answer, std::nullopt});
}

void ScriptedDesktop::ExpectText(const std::string& prompt, std::optional<std::string> answer) {
    Script.push_back({Expected::Kind::Text, "", prompt, true, Answer::Ok, std::move(answer)});
}

void ScriptedDesktop::ExpectFile(const std::string& title, std::optional<std::string> answer) {
    Script.push_back({Expected::Kind::File, title, "", false, Answer::Ok, std::move(answer)});
}

Answer ScriptedDesktop::ShowMessage(const Message& message) {
    Shown.push_back(message);
    if (OnMessage)
        OnMessage();
    if (Script.empty() || Script.front().Of != Expected::Kind::Message) {
        ADD_FAILURE() << "unexpected message: " << message.Title << " | " << message.Text;
        return message.Choices == Buttons::Ok ? Answer::Ok : Answer::Cancel;
    }
    const Expected expected = Script.front();
    Script.pop_front();
    EXPECT_EQ(message.Title, expected.Title);
    if (expected.CompareText) {
        EXPECT_EQ(message.Text, expected.Text);
    }
    return expected.Reply;
}

std::optional<std::string> ScriptedDesktop::AskText(const std::string& prompt, const std::string& title,
                                                    const std::string& initial) {
    Initials.push_back(initial);
    if (Script.empty() || Script.front().Of != Expected::Kind::Text) {
        ADD_FAILURE() << "unexpected input box: " << title << " | " << prompt;
        return std::nullopt;
    }
    const Expected expected = Script.front();
    Script.pop_front();
    EXPECT_EQ(prompt, expected.Text);
    return expected.TextReply;
}

std::optional<std::string> ScriptedDesktop::AskFile(const FileDialog& dialog) {
    Dialogs.push_back(dialog);
    if (Script.empty() || Script.front().Of != Expected::Kind::File) {
        ADD_FAILURE() << "unexpected file dialog: " << dialog.Title;
        return std::nullopt;
    }
    const Expected expected = Script.front();
    Script.pop_front();
    EXPECT_EQ(dialog.Title, expected.Title);
    return expected.TextReply;
}

bool ScriptedDesktop::SetupPrinter(PrinterChoice& choice) {
    choice = {1, 0, 0};
    return PrinterConfirmed;
}

std::unique_ptr<PrintJob> ScriptedDesktop::BeginPrint(const std::string& font, int points) {
    PrintFonts.push_back(font + " " + std::to_string(points));
    return std::make_unique<RecordedJob>(PrintedLines);
}

void ScriptedDesktop::ShowHelp(const std::string& file, const std::string& window, int command) {
    Started.push_back("help " + file + ">" + window + " " + std::to_string(command));
}

void ScriptedDesktop::ShowHelpPage(const std::string& file, const std::string& page) {
    Started.push_back("help " + file + "::" + page);
}

void ScriptedDesktop::SearchHelp(const std::string& file) {
    Started.push_back("help " + file + " search");
}

void ScriptedDesktop::RunAndWait(const std::string& commandLine) {
    Started.push_back(commandLine);
    if (OnRun)
        OnRun(commandLine);
    if (!RunsPrograms)
        return;
    try {
        StartCommandLine(commandLine, true);
    } catch (const RunTimeError&) {
        // A program that cannot be started is silent here, as it is for the operator.
    }
}

void ScriptedDesktop::StartProgram(const std::string& commandLine) {
    Started.push_back(commandLine);
    if (OnRun)
        OnRun(commandLine);
    if (RunsPrograms)
        StartCommandLine(commandLine, false);
}

std::unique_ptr<SharedWait> ScriptedDesktop::BeginSharedWait() {
    return std::make_unique<ScriptedWait>(*this);
}

void ScriptedDesktop::YieldEvents() {
    ++Yields;
    if (OnYield)
        OnYield();
}

}  // namespace Dorvane::Testing
