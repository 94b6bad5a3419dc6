// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ScreenTest.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QTest>
#include <filesystem>
#include <stdexcept>

#include "core/Drives.h"
#include "core/Text.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane::Testing {

namespace {

// "&&" is one "&", a single one is a mnemonic and no part of the text.
QString WithoutMnemonics(const QString& caption) {
    QString text;
    for (int i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && ++i == caption.size())
            break;
        text += caption[i];
    }
    return text;
}

QListWidgetItem& ItemOf(QListWidget& list, const std::string& text) {
    const QList<QListWidgetItem*> found = list.findItems(ToScreen(text), Qt::MatchExactly);
    if (found.isEmpty())
        throw std::runtime_error("no item " + text + " in " + list.objectName().toStdString());
    return *found.first();
}

}  // namespace

std::string TextOf(QWidget& screen, const char* name) {
    if (*name == '\0')
        return FromScreen(screen.windowTitle());
    auto& control = Control<QWidget>(screen, name);
    if (auto* label = dynamic_cast<QLabel*>(&control))
        return FromScreen(label->buddy() == nullptr ? label->text() : WithoutMnemonics(label->text()));
    if (auto* button = dynamic_cast<QAbstractButton*>(&control))
        return FromScreen(WithoutMnemonics(button->text()));
    if (auto* edit = dynamic_cast<QLineEdit*>(&control))
        return FromScreen(edit->text());
    if (auto* group = dynamic_cast<QGroupBox*>(&control))
        return FromScreen(WithoutMnemonics(group->title()));
    throw std::runtime_error(std::string("no text in ") + name);
}

void Click(QWidget& screen, const char* button) {
    auto& control = Control<QAbstractButton>(screen, button);
    if (!control.isVisibleTo(&screen) || !control.isEnabled())
        throw std::runtime_error(std::string("cannot be clicked: ") + button);
    QTest::mouseClick(&control, Qt::LeftButton);
    HandleEvents();
}

void Choose(QWidget& screen, const char* action) {
    auto* item = screen.findChild<QAction*>(QLatin1String(action));
    if (item == nullptr || !item->isEnabled())
        throw std::runtime_error(std::string("cannot be chosen: ") + action);
    item->trigger();
    HandleEvents();
}

bool IsEnabled(QWidget& screen, const char* name) {
    if (auto* action = screen.findChild<QAction*>(QLatin1String(name)))
        return action->isEnabled();
    return Control<QWidget>(screen, name).isEnabled();
}

bool IsShown(QWidget& screen, const char* name) {
    return Control<QWidget>(screen, name).isVisibleTo(&screen);
}

std::vector<std::string> Items(QWidget& screen, const char* list) {
    auto& control = Control<QListWidget>(screen, list);
    std::vector<std::string> texts;
    for (int row = 0; row < control.count(); ++row)
        texts.push_back(FromScreen(control.item(row)->text()));
    return texts;
}

void ClickItem(QWidget& screen, const char* list, const std::string& text) {
    auto& control = Control<QListWidget>(screen, list);
    QListWidgetItem& item = ItemOf(control, text);
    control.scrollToItem(&item);
    QTest::mouseClick(control.viewport(), Qt::LeftButton, {}, control.visualItemRect(&item).center());
    HandleEvents();
}

void InFreshProcess(const std::function<void()>& body) {
    constexpr const char* mark = "DORVANE_FRESH_PROCESS";
    if (qEnvironmentVariableIsSet(mark)) {
        body();
        return;
    }
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    QProcess copy;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(mark), QStringLiteral("1"));
    copy.setProcessEnvironment(environment);
    copy.setProcessChannelMode(QProcess::ForwardedChannels);
    copy.start(QApplication::applicationFilePath(),
               {QStringLiteral("--gtest_filter=%1.%2")
                    .arg(QLatin1String(test.test_suite_name()), QLatin1String(test.name()))});
    ASSERT_TRUE(copy.waitForFinished(-1)) << copy.errorString().toStdString();
    EXPECT_EQ(copy.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(copy.exitCode(), 0) << "failed in the copy, see above";
}

void HandleEvents() {
    for (int round = 0; round < 5; ++round) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void UseShippedPictures() {
    // Not by the drives, which would flush each of them to disk.
    std::filesystem::copy(DORVANE_FOLDER "/graphics", Drives::HostPath("P:\\DORVANE\\graphics"));
}

}  // namespace Dorvane::Testing
