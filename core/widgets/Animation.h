// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <memory>
#include <string>

class QMovie;
class QSvgRenderer;

namespace Dorvane {

/// A looped picture: an animated drawing (.svg) or any animated format that the toolkit plays. It moves
/// whenever events are handled.
class Animation : public QWidget {
    Q_OBJECT

  public:
    explicit Animation(QWidget* parent = nullptr);
    ~Animation() override;

    /// Opens a picture of graphics\ by its bare file name and starts it; the drawing of the same base name
    /// stands in for one that is not there or cannot be played here (see Pictures.h). Error 53 when there is
    /// none, 481 when neither can be played.
    void Open(const std::string& name);
    void Stop();
    void Start();

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool Plays(const std::string& file);

    std::unique_ptr<QSvgRenderer> Drawing;
    std::unique_ptr<QMovie> Movie;
};

}  // namespace Dorvane
