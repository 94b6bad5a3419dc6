// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmSearch.h"

#include <algorithm>

#include "core/ReportError.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmSearch.h"
#include "upload/MeterLayout.h"

namespace Dorvane {

frmSearch::frmSearch() : Form(std::make_unique<Ui::frmSearch>()) {
    Form->setupUi(this);
}

frmSearch::~frmSearch() = default;

void frmSearch::LoadForm() {
    // A picture that cannot be shown has been told of, and does not stop the work.
    Guarded("frmSearch-LoadForm", [&](Guard&) { Form->aniSearch->Open("typcom.avi"); });
    Init();
}

void frmSearch::Init() {
    Guarded("frmSearch-Init", [&](Guard&) {
        // A text wider than the picture takes more than one row.
        const int pitch = MeterUnits(fontMetrics().height()).Pitch;
        const QSize open = Form->aniSearch->sizeHint();
        const int width = open.isEmpty() ? Form->aniSearch->width() : open.width();
        const int height = Form->lblSearch->heightForWidth(width);
        const int pitches = std::max(1, (height + pitch - 1) / pitch);
        Place(*Form->aniSearch, {{{Form->lblSearch, pitches}}});
    });
}

void frmSearch::ShowText(const std::string& text) {
    const bool isShown = isVisible();
    Form->lblSearch->setText(ToScreen(text));
    if (isShown) {
        Init();
        repaint();
        return;
    }
    LoadForm();
    ShowAtOnce();
}

void frmSearch::Unload() {
    hide();
    deleteLater();
}

}  // namespace Dorvane
