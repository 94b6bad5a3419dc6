// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/targets/FuzzSite.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/Drives.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Fuzz {

namespace {

struct Surroundings {
    Surroundings() {
        Site.LayOut();
        Testing::MakeFolders(Work);
    }

    Testing::TestSite Site;
    Testing::PatientDesktop Desktop;
};

}  // namespace

Testing::PatientDesktop& LayOutOnce() {
    static Surroundings surroundings;
    return surroundings.Desktop;
}

void Put(const std::string& path, std::string_view content) {
    std::ofstream file(Drives::HostPath(path), std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    Hold(!file.fail(), "the file of an input can be written");
}

std::string Content(const std::string& path) {
    std::ifstream file(Drives::HostPath(path), std::ios::binary);
    Hold(file.is_open(), "a file is there");
    return {std::istreambuf_iterator<char>(file), {}};
}

void Remove(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove(Drives::HostPath(path), ignored);
}

}  // namespace Dorvane::Fuzz
