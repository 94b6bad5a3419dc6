// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <vector>

class QProgressBar;

namespace Dorvane {

class Animation;

/// A small window that shows that something is going on, and takes the screens behind it out of reach. It
/// waits for nothing, and the operator cannot close it: it goes when the work is done.
class PassiveWindow : public QDialog {
    Q_OBJECT

  public:
    PassiveWindow();

    void reject() override {}

  protected:
    /// Puts the controls in their places below one another and gives the window its size. The picture has its
    /// own size when it is open, else the one that it was drawn with. A group's rows are `pitches` high.
    struct Row {
        QWidget* Control;
        int Pitches = 1;
    };
    using Group = std::vector<Row>;
    void Place(Animation& picture, const std::vector<Group>& groups, QProgressBar* bar = nullptr);

    /// Shows the window over the active one, and paints it, before this returns.
    void ShowAtOnce();

    void closeEvent(QCloseEvent* event) override;

  private:
    void PutOverActiveWindow();
};

}  // namespace Dorvane
