// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/fuzz/targets/Target.h"

// Takes every file of a folder through one target. The last name that was printed is that of the file at
// which a target fell.
int main(int count, char** arguments) {
    namespace fs = std::filesystem;
    if (count != 2) {
        std::fputs("usage: fuzz_<target> <folder or file>\n", stderr);
        return 2;
    }
    std::vector<fs::path> files;
    if (fs::is_regular_file(arguments[1]))
        files.emplace_back(arguments[1]);
    else
        std::copy_if(fs::directory_iterator(arguments[1]), {}, std::back_inserter(files),
                     [](const fs::path& file) { return fs::is_regular_file(file); });
    std::sort(files.begin(), files.end());
    for (const fs::path& path : files) {
        std::printf("%s\n", path.filename().c_str());
        std::fflush(stdout);
        std::ifstream file(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        if (!file)
            return 2;
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    // A folder without files would keep every promise.
    return files.empty() ? 2 : 0;
}
