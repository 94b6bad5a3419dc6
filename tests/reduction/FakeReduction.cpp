// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <string>
#include <vector>

#include "core/Drives.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"

// Stands in for a reduction program. It finds its parameter file at its fixed place on the current drive, and
// writes into each result file that line 3 and on name in the survey folder: the number of its arguments, and
// the first data line of the survey index. With a file ONLYONE.TXT in the survey folder it writes the first
// result alone, with FAIL.TXT none.

namespace {

std::vector<std::string> Lines(const std::string& path) {
    std::vector<std::string> lines;
    Dorvane::LineReader reader(path);
    while (!reader.AtEnd())
        lines.emplace_back(reader.ReadLine());
    return lines;
}

int Reduce(int arguments) {
    using namespace Dorvane;
    Drives::Open("..");
    const std::vector<std::string> parameters = Lines("C:\\TARVEX\\PARAM\\FAKE.PAR");
    const std::string& folder = parameters.at(0);
    if (FileExists(folder + "FAIL.TXT"))
        return 3;
    const std::vector<std::string> index = Lines(parameters.at(1));
    for (std::size_t i = 2; i < parameters.size(); ++i) {
        LineWriter result(parameters[i]);
        result.Line("arguments: " + std::to_string(arguments));
        result.Line(index.size() > 2 ? index[2] : "no data");
        result.Close();
        if (FileExists(folder + "ONLYONE.TXT"))
            break;
    }
    return 0;
}

}  // namespace

int main(int count, char**) {
    try {
        return Reduce(count - 1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "FAKERED: %s\n", error.what());
        return 2;
    }
}
