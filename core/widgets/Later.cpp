// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/Later.h"

#include <QTimer>
#include <utility>

namespace Dorvane {

namespace {

HeldCalls* Holder = nullptr;  // the innermost one

}  // namespace

void CallLater(QObject* context, std::function<void()> action) {
    QTimer::singleShot(0, context, [context, action = std::move(action)] {
        if (Holder == nullptr)
            action();
        else
            Holder->Calls.push_back({context, action});
    });
}

HeldCalls::HeldCalls() : Outer(std::exchange(Holder, this)) {}

HeldCalls::~HeldCalls() {
    Holder = Outer;
    for (Call& call : Calls)
        if (!call.Context.isNull())
            CallLater(call.Context, std::move(call.Action));
}

}  // namespace Dorvane
