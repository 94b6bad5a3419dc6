// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportFile.h"

#include "core/ReportError.h"

namespace Dorvane {

bool WriteExportFile(std::string_view procedure, const std::string& path,
                     const std::function<void(LineWriter&)>& body) {
    bool written = false;
    Guarded(procedure, [&](Guard& guard) {
        written = guard.Run([&] {
            LineWriter out(path);
            body(out);
            out.Close();
        });
    });
    return written;
}

}  // namespace Dorvane
