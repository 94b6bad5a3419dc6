// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Krenn.h"

#include <exception>
#include <string>

#include "krenn/Run.h"

namespace {

std::string& InputPath() {
    static std::string path;
    return path;
}

std::int16_t NumberOf(Krenn::ErrorNumber number) {
    return static_cast<std::int16_t>(number);
}

}  // namespace

std::int16_t start(char* path) {
    try {
        InputPath() = path != nullptr ? path : "";
        return NumberOf(Krenn::CheckInput(InputPath()));
    } catch (const std::exception&) {
        return NumberOf(Krenn::ErrorNumber::OutOfMemory);
    }
}

std::int16_t go(std::int32_t type) {
    return NumberOf(Krenn::RunAdjustment(InputPath(), type));
}

void stop() {
    InputPath().clear();
}
