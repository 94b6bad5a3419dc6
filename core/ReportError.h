// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

#include "core/RunTimeError.h"

namespace Dorvane {

/// What the operator's answer asks of the procedure that failed.
enum ActionCode { Retry = 0, Skip = 1, GiveUp = 2, UnknownError = 3 };

/// The one way in which a failure reaches the operator and ERROR.LOG (in the program's folder).
/// `procedure` is the module's name, "-" and the procedure's name, as "basRead-ReadStrFile".
ActionCode ReportError(const RunTimeError& error, std::string_view procedure);

/// The handler of one procedure. Each risky statement goes through Run, which reports a failure and then
/// retries the statement, skips it, or leaves the procedure, as the operator answers.
class Guard {
  public:
    explicit Guard(std::string_view procedure) : Procedure(procedure) {}

    /// True when the statement ran, false when it was skipped.
    bool Run(const std::function<void()>& statement);

    struct LeaveProcedure {
        const Guard* Of;
    };

  private:
    std::string_view Procedure;
};

/// Runs `body` as a procedure that guards itself. A failure outside the statements given to Run is reported
/// too, and leaves the procedure; an exception of any other kind is error 51. True when the body came to its
/// end, false when it was left.
bool Guarded(std::string_view procedure, const std::function<void(Guard&)>& body);

}  // namespace Dorvane
