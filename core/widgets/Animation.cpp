// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/Animation.h"

#include <QMovie>
#include <QPainter>
#include <QSvgRenderer>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/widgets/Pictures.h"

namespace Dorvane {

namespace {

constexpr int InvalidPicture = 481;

}  // namespace

Animation::Animation(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

Animation::~Animation() = default;

void Animation::Open(const std::string& name) {
    const std::string file = PictureFile(name);
    if (file.empty())
        throw RunTimeError(FileNotFound, AppPath() + "graphics\\" + name);
    const QString hostFile = QString::fromStdString(Drives::HostPath(file));
    Drawing.reset();
    Movie.reset();
    if (UpperCase(Right(file, 4)) == ".SVG") {
        Drawing = std::make_unique<QSvgRenderer>(hostFile);
        if (!Drawing->isValid())
            throw RunTimeError(InvalidPicture, file);
        connect(Drawing.get(), &QSvgRenderer::repaintNeeded, this, qOverload<>(&QWidget::update));
    } else {
        Movie = std::make_unique<QMovie>(hostFile);
        if (!Movie->isValid())
            throw RunTimeError(InvalidPicture, file);
        connect(Movie.get(), &QMovie::frameChanged, this, qOverload<>(&QWidget::update));
        Movie->jumpToFrame(0);
    }
    updateGeometry();
    Start();
}

void Animation::Start() {
    if (Drawing != nullptr)
        Drawing->setFramesPerSecond(25);
    if (Movie != nullptr)
        Movie->start();
}

void Animation::Stop() {
    if (Drawing != nullptr)
        Drawing->setFramesPerSecond(0);
    if (Movie != nullptr)
        Movie->setPaused(true);
}

QSize Animation::sizeHint() const {
    if (Drawing != nullptr)
        return Drawing->defaultSize();
    if (Movie != nullptr)
        return Movie->currentImage().size();
    return {0, 0};
}

void Animation::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QSize size = sizeHint();
    const QRect place((width() - size.width()) / 2, (height() - size.height()) / 2, size.width(),
                      size.height());
    if (Drawing != nullptr)
        Drawing->render(&painter, QRectF(place));
    if (Movie != nullptr)
        painter.drawImage(place, Movie->currentImage());
}

}  // namespace Dorvane
