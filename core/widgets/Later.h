// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

// What a screen does when the event at hand is done with. While an outside program is waited for, a click is
// still at work further up; so what is to come later then comes when the wait is over.
namespace Dorvane {

/// Calls `action` behind the event at hand, unless `context` is gone by then.
void CallLater(QObject* context, std::function<void()> action);

/// As long as this lives, what is to be called later is held back. It comes afterwards, in its order.
class HeldCalls {
  public:
    HeldCalls();
    ~HeldCalls();
    HeldCalls(const HeldCalls&) = delete;
    HeldCalls& operator=(const HeldCalls&) = delete;

  private:
    friend void CallLater(QObject* context, std::function<void()> action);

    struct Call {
        QPointer<QObject> Context;
        std::function<void()> Action;
    };
    HeldCalls* Outer;
    std::vector<Call> Calls;
};

}  // namespace Dorvane
