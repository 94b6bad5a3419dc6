// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/FileMeter.h"
#include "core/widgets/WaitCursor.h"
#include "upload/PassiveWindow.h"

class QLabel;

namespace Dorvane {

/// What the three meters have in common. They do no file work themselves; the caller moves them on.
class MeterWindow : public PassiveWindow, public FileMeter {
    Q_OBJECT

  public:
    /// Loads the meter with its bar at 0 and shows it, painted.
    void Open(int fileCount) override;
    void ShowFile(const std::string& from, const std::string& to) override;
    void Advance(int filesDone) override;
    void Close() override;

  protected:
    struct MeterControls {
        Animation* Picture = nullptr;
        QLabel* From = nullptr;
        QLabel* To = nullptr;  // null where a file goes nowhere
        QProgressBar* Bar = nullptr;
    };

    /// Opens the animation and runs Init.
    virtual void LoadForm() = 0;
    virtual MeterControls Controls() const = 0;
    void OpenLoaded(int fileCount);

  private:
    std::optional<WaitCursor> Wait;  // as long as the meter stands
};

}  // namespace Dorvane
