// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "core/OutsideProgram.h"

class QMessageBox;

namespace Dorvane {

/// The small window that says which program is waited for, and lets the operator give it up. It comes without
/// taking the keyboard away from that program.
class GiveUpWindow : public QDialog {
    Q_OBJECT

  public:
    GiveUpWindow(const QString& program, QWidget* owner);

    /// True once the operator has confirmed that the program is to be ended.
    bool IsGivenUp() const { return GivenUp; }

    void Offer();
    /// Asks whether the program is to be ended.
    void Ask();
    /// Takes the question away when it has become needless.
    void CloseQuestion();

    void reject() override { Ask(); }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QString Program;
    QMessageBox* Question = nullptr;
    bool GivenUp = false;
};

/// Waits without limit for a program. The windows are painted and moved meanwhile, and nothing that the
/// operator types or clicks reaches them; it is dropped. Behind `patience` milliseconds a GiveUpWindow comes
/// over `owner`.
void WaitFor(Host::OutsideProgram& program, const QString& name, QWidget* owner, int patience);

}  // namespace Dorvane
