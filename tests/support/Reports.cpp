// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Reports.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {

namespace {

std::string OwnWords(int number) {
    switch (number) {
        case DiskFull: return "Disk is full. Continue?";
        case InputPastEnd:
            return "File has a nonstandard end-of-file marker, or an attempt was made to read beyond the "
                   "end-of-file marker.";
        case PathNotFound: return "Path doesn't exist.";
        default: ADD_FAILURE() << "error " << number << " is told by its description"; return "";
    }
}

void ExpectWords(ScriptedDesktop& desktop, int number, const std::string& words, const std::string& procedure,
                 Answer answer) {
    desktop.ExpectMessage(
        "Program Error",
        "Error : " + std::to_string(number) + "\r\n\r\n" + words + "\r\n\r\nSource : Dorvane-" + procedure,
        answer);
}

}  // namespace

void ExpectReport(ScriptedDesktop& desktop, int number, const std::string& description,
                  const std::string& procedure, Answer answer) {
    ExpectWords(desktop, number, "Description : " + description, procedure, answer);
}

void ExpectReport(ScriptedDesktop& desktop, int number, const std::string& procedure, Answer answer) {
    ExpectWords(desktop, number, OwnWords(number), procedure, answer);
}

std::string LastReport(const ScriptedDesktop& desktop) {
    if (desktop.Shown.empty() || desktop.Shown.back().Title != "Program Error")
        return "no report";
    const std::string& text = desktop.Shown.back().Text;
    const std::size_t number = std::string("Error : ").size();
    const std::size_t source = text.find("Source : ") + std::string("Source : ").size();
    return text.substr(number, text.find('\r') - number) + " " + text.substr(source);
}

}  // namespace Dorvane::Testing
