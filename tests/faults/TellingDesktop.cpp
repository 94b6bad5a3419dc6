// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/TellingDesktop.h"

#include <algorithm>

#include "core/RunTimeError.h"
#include "tests/faults/FaultLibrary.h"

namespace Dorvane::Testing {

namespace {

struct Aside {
    Aside() { FaultsPause(); }
    ~Aside() { FaultsResume(); }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;
};

// One that does not give way: nobody else is there to end it.
class ImpatientWait : public SharedWait {
  public:
    bool GoOn(const std::string&) override { return false; }
};

constexpr int MostTries = 5;

}  // namespace

bool TellingDesktop::HasTold(const std::string& title) const {
    return std::any_of(Told.begin(), Told.end(), [&](const Message& told) { return told.Title == title; });
}

Answer TellingDesktop::ShowMessage(const Message& message) {
    const Aside aside;
    Told.push_back(message);
    if (message.Title == "Program Error") {
        const bool again = TriesAgain && ++Failures <= MostTries;
        if (message.Choices == Buttons::YesNo)
            return again ? Answer::Yes : Answer::No;
        return again ? Answer::Retry : Answer::Cancel;
    }
    // What is stored already need not be stored twice.
    if (message.Title == "Update Stored Already")
        return Answer::No;
    return message.Choices == Buttons::Ok ? Answer::Ok : Answer::Yes;
}

std::optional<std::string> TellingDesktop::AskText(const std::string&, const std::string&,
                                                   const std::string&) {
    const Aside aside;
    return AskedText;
}

std::optional<std::string> TellingDesktop::AskFile(const FileDialog&) {
    const Aside aside;
    return AskedFile;
}

std::unique_ptr<PrintJob> TellingDesktop::BeginPrint(const std::string&, int) {
    throw RunTimeError(DeviceUnavailable);
}

std::unique_ptr<SharedWait> TellingDesktop::BeginSharedWait() {
    const Aside aside;
    return std::make_unique<ImpatientWait>();
}

}  // namespace Dorvane::Testing
