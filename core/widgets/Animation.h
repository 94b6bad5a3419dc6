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
    /// stands in for one that is not there or cannot be played here (see Pictures.h), and behind it the
    /// picture named `shipped`, where one is named. Error 53 when what is asked for is not there, 481 when
    /// none can be played.
    void Open(const std::string& name, const std::string& shipped = "");
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
