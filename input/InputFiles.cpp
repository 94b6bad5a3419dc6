// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputFiles.h"

#include "core/LineWriter.h"

namespace Dorvane {

void AddLine(std::string& text, std::string_view line) {
    text.append(line).append("\r\n");
}

void TestOpening(const std::string& path) {
    const LineWriter opened(path);
}

void CloseInputFiles(Guard& guard, const InputFiles& files) {
    guard.Run([&] { ReplaceInOrder({files.Inp, files.Org, files.Sum, files.Ver}); });
}

}  // namespace Dorvane
