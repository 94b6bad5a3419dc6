// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/GuardedReader.h"

namespace Dorvane {

GuardedReader::GuardedReader(Guard& guard, const std::string& path) : Procedure(guard) {
    Procedure.Run([&] { File.emplace(path); });
}

bool GuardedReader::AtEnd() const {
    if (!File)
        throw RunTimeError(BadFileName);
    return File->AtEnd();
}

const std::string& GuardedReader::ReadLine() {
    Procedure.Run([&] {
        if (!File)
            throw RunTimeError(BadFileName);
        Current = File->ReadLine();
    });
    return Current;
}

}  // namespace Dorvane
