// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"

// What the operator reads of a failure: the report that a test expects, and the one that it got.
namespace Dorvane::Testing {

/// The next message must be the report that a procedure makes of an error that is told by its description.
void ExpectReport(ScriptedDesktop& desktop, int number, const std::string& description,
                  const std::string& procedure, Answer answer = Answer::Ok);

/// The same of an error for which the reporter has a wording of its own: 61, 62 or 76.
void ExpectReport(ScriptedDesktop& desktop, int number, const std::string& procedure,
                  Answer answer = Answer::Ok);

/// Number and source of the report that was shown last, as "53 Dorvane-basRead-ReadResTypes"; "no report"
/// when the last message was none.
std::string LastReport(const ScriptedDesktop& desktop);

}  // namespace Dorvane::Testing
