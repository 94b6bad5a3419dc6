// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/Desktop.h"

class QPrinter;

// Plain text on the printer that the operator chose, or on the system's default printer.
namespace Dorvane {

/// The printer that stands for all documents: the system's default one, or the first where there is none.
/// Error 68 when the system has no printer.
std::unique_ptr<QPrinter> OpenDefaultPrinter();

/// Another hold on the same printer, with the same paper and copies.
std::unique_ptr<QPrinter> OpenPrinterLike(const QPrinter& printer);

/// A document of text lines, set one below the other in a fixed-pitch font of `points`. Pages follow one
/// another as they fill, with no heads; a line runs on to the page's edge, where it is cut. Nothing reaches
/// the printer before End, so a document that is dropped leaves no trace. End may be called again when it
/// failed. Errors of End: 68 when the printer is gone, 61 when there is no room for the document on its way,
/// 57 when the print system refuses it. `printer` outlives the job.
std::unique_ptr<PrintJob> NewPrintJob(QPrinter& printer, const std::string& font, int points);

}  // namespace Dorvane
