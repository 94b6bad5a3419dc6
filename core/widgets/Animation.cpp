// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/Animation.h"

#include <QMovie>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/widgets/Pictures.h"

namespace Dorvane {

namespace {

constexpr int InvalidPicture = 481;

}  // namespace

Animation::Animation(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

Animation::~Animation() = default;

void Animation::Open(const std::string& name, const std::string& shipped) {
    const std::vector<std::string> files = PictureFiles(name);
    if (std::none_of(files.begin(), files.end(), [this](const std::string& file) { return Plays(file); })) {
        if (shipped.empty() || shipped == name)
            throw RunTimeError(InvalidPicture, files.front());
        return Open(shipped);
    }
    updateGeometry();
    Start();
}

// Takes a file when it can be played.
bool Animation::Plays(const std::string& file) {
    const QString hostFile = QString::fromStdString(Drives::HostPath(file));
    Drawing.reset();
    Movie.reset();
    if (UpperCase(Right(file, 4)) == ".SVG") {
        auto drawing = std::make_unique<QSvgRenderer>(hostFile);
        if (!drawing->isValid())
            return false;
        Drawing = std::move(drawing);
        connect(Drawing.get(), &QSvgRenderer::repaintNeeded, this, qOverload<>(&QWidget::update));
        return true;
    }
    auto movie = std::make_unique<QMovie>(hostFile);
    if (!movie->isValid() || !movie->jumpToFrame(0))
        return false;
    Movie = std::move(movie);
    connect(Movie.get(), &QMovie::frameChanged, this, qOverload<>(&QWidget::update));
    return true;
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
