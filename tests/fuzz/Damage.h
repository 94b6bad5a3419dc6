// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/Desktop.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"

namespace Dorvane::Testing {

/// A desktop that takes every message and gives up on every question. A damaged file may be told of in any
/// way that its reader has; what counts here is that nothing else happens.
class PatientDesktop : public Desktop {
  public:
    PatientDesktop() : Former(Global().OwnDesktop) { InstallDesktop(this); }
    ~PatientDesktop() override { InstallDesktop(Former); }

    Answer ShowMessage(const Message& message) override {
        return message.Choices == Buttons::Ok            ? Answer::Ok
               : message.Choices == Buttons::RetryCancel ? Answer::Cancel
                                                         : Answer::No;
    }
    std::optional<std::string> AskText(const std::string&, const std::string&, const std::string&) override {
        return std::nullopt;
    }
    std::optional<std::string> AskFile(const FileDialog&) override { return FileToOpen; }
    int PrinterCount() override { return 0; }
    bool SetupPrinter(PrinterChoice&) override { return false; }
    std::unique_ptr<PrintJob> BeginPrint(const std::string&, int) override {
        throw RunTimeError(DeviceUnavailable);
    }
    void ShowHelp(const std::string&, const std::string&, int) override {}
    void ShowHelpPage(const std::string&, const std::string&) override {}
    void SearchHelp(const std::string&) override {}
    void RunAndWait(const std::string&) override {}
    void StartProgram(const std::string&) override {}
    std::unique_ptr<SharedWait> BeginSharedWait() override { throw RunTimeError(DeviceUnavailable); }
    DateTime Now() override { return {2026, 11, 20, 9, 5, 7}; }
    void YieldEvents() override {}

    std::optional<std::string> FileToOpen;

  private:
    Desktop* Former;
};

/// Damaged copies of a file: cut at many places, with bytes, lines and numbers spoilt, with NULs, binary,
/// with a line of a million characters, with the lines doubled or out of order. The same ones at every call.
inline std::vector<std::string> DamagedCopies(const std::string& whole) {
    std::vector<std::string> copies{"",
                                    "\r\n",
                                    std::string(3, '\0'),
                                    std::string(1000000, 'x'),
                                    std::string(1000000, ' ') + "\r\n" + whole,
                                    whole + std::string(1000000, '9'),
                                    whole + whole};
    std::string everyByte;
    for (int i = 0; i < 256; ++i)
        everyByte += static_cast<char>(i);
    copies.push_back(everyByte);
    const std::size_t step = whole.size() / 150 + 1;
    for (std::size_t cut = 0; cut < whole.size(); cut += step)
        copies.push_back(whole.substr(0, cut));
    std::mt19937 random(20261120);
    const std::string spoilers = std::string("\0 ,\t\r\n-+.9EXx\xFF\x1A", 16);
    for (int i = 0; i < 150 && !whole.empty(); ++i) {
        std::string copy = whole;
        for (unsigned hits = random() % 8 + 1; hits > 0; --hits) {
            const std::size_t place = random() % copy.size();
            switch (random() % 3) {
                case 0: copy[place] = spoilers[random() % spoilers.size()]; break;
                case 1: copy.insert(place, 1, spoilers[random() % spoilers.size()]); break;
                default: copy.erase(place, random() % 20); break;
            }
            if (copy.empty())
                break;
        }
        copies.push_back(copy);
    }
    return copies;
}

}  // namespace Dorvane::Testing
