// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tests/faults/TellingDesktop.h"

namespace Dorvane::Testing {

/// One thing that an operator does to a site. `Prepare` makes what it needs in a site that is laid out; `Do`
/// does it and tells whether the operator takes it for done.
struct Step {
    const char* Name;
    void (*Prepare)();
    bool (*Do)(TellingDesktop& desktop);
};

const Step* FindStep(const std::string& name);

/// The steps by the floors that they belong to.
extern const std::vector<Step> SurveySteps;
extern const std::vector<Step> UploadSteps;
extern const std::vector<Step> InputSteps;
extern const std::vector<Step> AdjustmentSteps;
extern const std::vector<Step> DatabaseSteps;

}  // namespace Dorvane::Testing
