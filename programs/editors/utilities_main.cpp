// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmUtilities.h"
#include "programs/sitecheck/frmCheckSite.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

// utilities.exe PROFILE: the launcher of what a profile lists, by its bare name; dv_special.ini without one.
int main(int count, char** arguments) {
    return RunEditor(count, arguments, "utilities", [&]() -> ScreenDialog* {
        const OwnUtility check{"Check the Site", "Find what is wrong in the files of the site, and mend it",
                               [] { (new frmCheckSite)->ShowModal(); }};
        return new frmUtilities(count > 1 ? arguments[1] : "dv_special.ini", {check});
    });
}
