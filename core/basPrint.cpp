// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basPrint.h"

#include <memory>
#include <optional>

#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/ReportError.h"

namespace Dorvane {

namespace {

const std::string Margin(5, ' ');

}  // namespace

int PrintGenFile(const std::string& folder, const std::string& file, const std::string& shownFolder) {
    const bool printed = Guarded("basPrint-PrintGenFile", [&](Guard& guard) {
        std::unique_ptr<PrintJob> job;
        guard.Run([&] { job = TheDesktop().BeginPrint("Courier", 12); });
        std::optional<LineReader> reader;
        guard.Run([&] { reader.emplace(folder + file); });
        if (!job || !reader)
            throw Guard::LeaveProcedure{&guard};
        job->Line(Margin);
        job->Line(Margin + "File Name : " + shownFolder + file);
        job->Line(Margin);
        while (!reader->AtEnd())
            job->Line(Margin + std::string(reader->ReadLine()));
        guard.Run([&] { job->End(); });
    });
    return printed ? 1 : 0;
}

}  // namespace Dorvane
