// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Operator.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "core/widgets/ScreenText.h"

namespace Dorvane::Testing {

namespace {

constexpr int LookEvery = 5;        // milliseconds
constexpr int PatientLooks = 4000;  // before a dialog that stays open is given up

QMessageBox::StandardButton ButtonOf(Answer answer) {
    switch (answer) {
        case Answer::Ok: return QMessageBox::Ok;
        case Answer::Cancel: return QMessageBox::Cancel;
        case Answer::Abort: return QMessageBox::Abort;
        case Answer::Retry: return QMessageBox::Retry;
        case Answer::Ignore: return QMessageBox::Ignore;
        case Answer::Yes: return QMessageBox::Yes;
        case Answer::No: return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

// The dialogs of the desktop. The system's own screens are dialogs, too, and are the tests' own affair.
bool IsDesktops(const QDialog* dialog) {
    return qobject_cast<const QMessageBox*>(dialog) != nullptr ||
           qobject_cast<const QFileDialog*>(dialog) != nullptr ||
           qobject_cast<const QInputDialog*>(dialog) != nullptr ||
           (dialog != nullptr && dialog->inherits("QAbstractPrintDialog"));
}

std::string WordsOf(const QDialog& dialog) {
    const auto* box = qobject_cast<const QMessageBox*>(&dialog);
    return FromScreen(dialog.windowTitle()) + (box == nullptr ? "" : " | " + FromScreen(box->text()));
}

void Dismiss(QDialog& dialog) {
    dialog.done(QDialog::Rejected);
}

void Type(QLineEdit& field, const std::string& text) {
    field.setFocus();
    field.selectAll();
    // The made-up keyboard has no accents.
    for (const QChar c : ToScreen(text)) {
        if (c.unicode() < 0x80)
            QTest::keyClick(&field, c.toLatin1());
        else
            field.insert(c);
    }
    if (text.empty())
        QTest::keyClick(&field, Qt::Key_Delete);
}

}  // namespace

Operator::Operator() {
    LookAgain();
}

Operator::~Operator() {
    for (const Expected& left : Script)
        ADD_FAILURE() << "never asked: " << left.Title << " | " << left.Text;
}

void Operator::ExpectMessage(const std::string& title, const std::string& text, Answer answer) {
    Script.push_back({Expected::Kind::Message, title, text, true, answer, std::nullopt, {}});
}

void Operator::ExpectMessageTitled(const std::string& title, Answer answer) {
    Script.push_back({Expected::Kind::Message, title, "", false, answer, std::nullopt, {}});
}

void Operator::ExpectText(const std::string& prompt, const std::optional<std::string>& typed) {
    Script.push_back({Expected::Kind::Text, "", prompt, true, Answer::Ok, typed, {}});
}

void Operator::ExpectFile(const std::string& title, const std::optional<std::string>& typed) {
    Script.push_back({Expected::Kind::File, title, "", false, Answer::Ok, typed, {}});
}

void Operator::ExpectDialog(const std::string& title, const std::function<void(QWidget&)>& act) {
    Script.push_back({Expected::Kind::Dialog, title, "", false, Answer::Ok, std::nullopt, act});
}

void Operator::LookAgain() {
    QTimer::singleShot(LookEvery, this, [this] { Look(); });
}

// An answer may open another dialog before it returns, so the next look may come inside this one.
void Operator::Look() {
    LookAgain();
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible() || !IsDesktops(dialog))
        return;
    if (std::find(Attended.begin(), Attended.end(), dialog) != Attended.end()) {
        if (++LooksSince > PatientLooks) {
            ADD_FAILURE() << "stays open: " << WordsOf(*dialog);
            Dismiss(*dialog);
        }
        return;
    }
    Attended.emplace_back(dialog);
    LooksSince = 0;
    Attend(*dialog);
}

void Operator::Attend(QDialog& dialog) {
    if (auto* const box = qobject_cast<QMessageBox*>(&dialog))
        Shown.push_back(FromScreen(box->text()));
    if (Script.empty()) {
        ADD_FAILURE() << "unexpected: " << WordsOf(dialog);
        return Dismiss(dialog);
    }
    const Expected expected = Script.front();
    Script.pop_front();
    if (const auto act = std::exchange(First, {}))
        act(dialog);
    auto* const box = qobject_cast<QMessageBox*>(&dialog);
    if (expected.Of == Expected::Kind::Dialog) {
        EXPECT_EQ(FromScreen(dialog.windowTitle()), expected.Title);
        return expected.Act(dialog);
    }
    if (expected.Of == Expected::Kind::Message && box != nullptr)
        return AnswerMessage(*box, expected);
    if (expected.Of == Expected::Kind::Text && qobject_cast<QInputDialog*>(&dialog) != nullptr)
        return AnswerText(dialog, expected);
    if (expected.Of == Expected::Kind::File && qobject_cast<QFileDialog*>(&dialog) != nullptr)
        return AnswerFile(dialog, expected);
    ADD_FAILURE() << "expected " << expected.Title << " | " << expected.Text << ", found " << WordsOf(dialog);
    Dismiss(dialog);
}

void Operator::AnswerMessage(QMessageBox& box, const Expected& expected) {
    EXPECT_EQ(FromScreen(box.windowTitle()), expected.Title);
    if (expected.CompareText) {
        std::string text;
        for (std::size_t i = 0; i < expected.Text.size(); ++i)
            if (expected.Text.compare(i, 2, "\r\n") != 0)
                text += expected.Text[i];
        EXPECT_EQ(FromScreen(box.text()), text);
    }
    QAbstractButton* const button = box.button(ButtonOf(expected.Reply));
    if (button == nullptr) {
        ADD_FAILURE() << "no such button on " << WordsOf(box);
        return Dismiss(box);
    }
    QTest::mouseClick(button, Qt::LeftButton);
}

void Operator::AnswerText(QDialog& box, const Expected& expected) {
    auto* const label = box.findChild<QLabel*>();
    auto* const field = box.findChild<QLineEdit*>();
    EXPECT_EQ(FromScreen(label->text()), expected.Text);
    Proposed.push_back(FromScreen(field->text()));
    if (!expected.Typed) {
        QTest::keyClick(&box, Qt::Key_Escape);
        return;
    }
    Type(*field, *expected.Typed);
    QTest::keyClick(field, Qt::Key_Return);
}

void Operator::AnswerFile(QDialog& box, const Expected& expected) {
    EXPECT_EQ(FromScreen(box.windowTitle()), expected.Title);
    auto* const field = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    Proposed.push_back(FromScreen(field->text()));
    if (!expected.Typed) {
        QTest::keyClick(&box, Qt::Key_Escape);
        return;
    }
    if (!expected.Typed->empty())
        Type(*field, *expected.Typed);
    QTest::keyClick(field, Qt::Key_Return);
}

}  // namespace Dorvane::Testing
