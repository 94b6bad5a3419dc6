// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/HomeLook.h"

#include <QAbstractButton>

#include "core/ProfileStore.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

void DressLikeHome(QAbstractButton& button, int number) {
    const std::string profile = "dv_main.ini";
    const std::string place = std::to_string(number);
    const std::string tip = IniReadString(profile, "Main Tips", "Tip" + place);
    if (!tip.empty())
        button.setToolTip(ToTip(tip));
    SetOptionalPicture(button, IniReadString(profile, "Main Icons", "Icon" + place));
}

}  // namespace Dorvane
