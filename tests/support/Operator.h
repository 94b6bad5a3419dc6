// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/Desktop.h"

class QDialog;
class QMessageBox;
class QWidget;

namespace Dorvane::Testing {

/// Somebody at the desk: answers the real dialogs that open, in the order expected, by clicking their buttons
/// and typing into their fields. A dialog that was not expected fails the test and is dismissed, and so does
/// one that is expected and does not open before the operator leaves. All texts are code page 1252, paths are
/// drive paths.
class Operator : public QObject {
  public:
    Operator();
    ~Operator() override;

    /// The next dialog must be this message, with these words, and is answered by the answer's own button.
    void ExpectMessage(const std::string& title, const std::string& text, Answer answer = Answer::Ok);
    /// The next message must have this title; its text is not compared (Shown holds it).
    void ExpectMessageTitled(const std::string& title, Answer answer = Answer::Ok);
    /// The next dialog must be the input box with this prompt; nothing cancels it.
    void ExpectText(const std::string& prompt, const std::optional<std::string>& typed);
    /// The next dialog must be the file dialog of this title. `typed` is typed into its name field and
    /// confirmed by Enter; an empty text leaves the proposed name, nothing cancels.
    void ExpectFile(const std::string& title, const std::optional<std::string>& typed);
    /// The next dialog must have this title; `act` has to bring it to its end.
    void ExpectDialog(const std::string& title, const std::function<void(QWidget&)>& act);

    /// Before the next expected dialog is answered, `act` is done with it.
    void Before(const std::function<void(QWidget&)>& act) { First = act; }

    std::vector<std::string> Shown;     // the text of every message, in order
    std::vector<std::string> Proposed;  // the text that stood in every input box and name field, in order

  private:
    struct Expected {
        enum class Kind { Message, Text, File, Dialog } Of;
        std::string Title;
        std::string Text;
        bool CompareText = false;
        Answer Reply = Answer::Ok;
        std::optional<std::string> Typed;
        std::function<void(QWidget&)> Act;
    };

    void LookAgain();
    void Look();
    void Attend(QDialog& dialog);
    void AnswerMessage(QMessageBox& box, const Expected& expected);
    void AnswerText(QDialog& box, const Expected& expected);
    void AnswerFile(QDialog& box, const Expected& expected);

    std::deque<Expected> Script;
    std::function<void(QWidget&)> First;
    std::vector<QPointer<QDialog>> Attended;
    int LooksSince = 0;  // how often the same dialog was seen again
};

}  // namespace Dorvane::Testing
