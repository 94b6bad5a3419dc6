// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QPointer>
#include <memory>
#include <string>

#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"
#include "tests/upload/UploadSite.h"
#include "upload/frmDeleteMeter.h"
#include "upload/frmMoveMeter.h"
#include "upload/frmUploadMenu.h"

namespace Dorvane::Testing {

/// Opens the real meters over the upload screen.
class MeterNavigator : public RecordingNavigator {
  public:
    std::unique_ptr<FileMeter> MoveMeter() override {
        Calls.emplace_back("MoveMeter");
        return std::make_unique<frmMoveMeter>(Upload.isNull() ? "" : Upload->DataTypeName());
    }
    std::unique_ptr<FileMeter> DeleteMeter() override {
        Calls.emplace_back("DeleteMeter");
        return std::make_unique<frmDeleteMeter>();
    }
    QPointer<frmUploadMenu> Upload;
};

/// The upload screen over a collection folder and a survey folder of data type LEVEL.
struct UploadScreenSite : UploadSite {
    UploadScreenSite() {
        UseShippedPictures();
        DataTypeProfile({"[Data Types]", "Epochs=TOTAL LEVEL", "[TOTAL]", "Extension=GSI", "[LEVEL]",
                         "Extension=LEV DAT", "LEV_SrvIdx=TRUE"});
        Remember(From, To, "0");
        Global().PrinterPresent = true;
    }
    ~UploadScreenSite() override { delete Nav.Upload.data(); }

    /// What the screen finds of its last visit.
    static void Remember(const std::string& from, const std::string& to, const std::string& print) {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini",
                 {"[Upload Select]", "From_path=" + from, "To_path=" + to, "Print=" + print});
    }

    frmUploadMenu& Open() {
        Nav.Upload = new frmUploadMenu(Nav);
        Nav.Upload->show();
        HandleEvents();
        return *Nav.Upload;
    }
    bool IsUnloaded() const { return Nav.Upload.isNull(); }

    static bool IsRed(QWidget& screen, const char* label) {
        return Control<QWidget>(screen, label).palette().color(QPalette::WindowText) == QColor(255, 0, 0);
    }
    static bool IsNormal(QWidget& screen, const char* label) {
        return Control<QWidget>(screen, label).palette().color(QPalette::WindowText) ==
               QApplication::palette().color(QPalette::WindowText);
    }

    MeterNavigator Nav;
};

}  // namespace Dorvane::Testing
