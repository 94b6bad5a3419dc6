// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/Steps.h"

namespace Dorvane::Testing {

const Step* FindStep(const std::string& name) {
    for (const std::vector<Step>* floor :
         {&SurveySteps, &UploadSteps, &InputSteps, &AdjustmentSteps, &DatabaseSteps})
        for (const Step& step : *floor)
            if (name == step.Name)
                return &step;
    return nullptr;
}

}  // namespace Dorvane::Testing
