// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

// What the print library keeps of each queue's printer description goes with the process.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:_ppdCacheCreateWithPPD\n";
}

// Tests of screens run on a platform without a display and never touch the settings of the person at the
// desk.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("dorvane-test"));
    QApplication::setApplicationName(QStringLiteral("dorvane-test"));
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    // The toolkit's own dialogs keep theirs in the native format.
    for (const QSettings::Format format : {QSettings::IniFormat, QSettings::NativeFormat})
        QSettings::setPath(format, QSettings::UserScope, settings.path());
    return RUN_ALL_TESTS();
}
