// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmSplash.h"

#include <QTimer>

#include "core/About.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmSplash.h"

namespace Dorvane {

namespace {

constexpr int SplashMilliseconds = 20000;

void Enlarge(QLabel& label, double factor, bool bold) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    label.setFont(font);
}

}  // namespace

frmSplash::frmSplash() : Form(std::make_unique<Ui::frmSplash>()) {
    Form->setupUi(this);
    setWindowFlags(Qt::SplashScreen);
    LoadForm();
}

frmSplash::~frmSplash() = default;

void frmSplash::LoadForm() {
    Form->lblVersion->setText(ToScreen("Version " + ProgramVersion()));
    Enlarge(*Form->lblProduct, 3.0, true);
    Enlarge(*Form->lblPlatform, 1.3, false);
    Enlarge(*Form->lblVersion, 1.1, false);
    Guarded("frmSplash-LoadForm",
            [&](Guard&) { Form->imgLogo->setPixmap(LoadPicture("splash.svg").pixmap(240, 160)); });
    tmrSplash = new QTimer(this);
    tmrSplash->setObjectName(QStringLiteral("tmrSplash"));
    tmrSplash->setInterval(SplashMilliseconds);
    connect(tmrSplash, &QTimer::timeout, this, [this] {
        tmrSplash->stop();
        Unload();
    });
    tmrSplash->start();
}

void frmSplash::keyPressEvent(QKeyEvent* /*event*/) {
    Unload();
}

// Labels and frame hand a click on, so it arrives here wherever it was made.
void frmSplash::mousePressEvent(QMouseEvent* /*event*/) {
    Unload();
}

}  // namespace Dorvane
