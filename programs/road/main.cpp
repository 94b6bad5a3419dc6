// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "core/Host.h"
#include "programs/road/RoadWalk.h"

// ROAD.EXE SITE [FIELD-BOOK]: walks the road on a fresh site in the host folder SITE.
int main(int count, char** arguments) {
    if (count < 2 || count > 3) {
        std::cerr << "usage: ROAD.EXE SITE [FIELD-BOOK]\n";
        return EXIT_FAILURE;
    }
    const std::string site = std::filesystem::absolute(arguments[1]).string();
    const std::string book = count == 3 ? std::filesystem::absolute(arguments[2]).string() : "";
    // The outside programs lie in a folder below the program's.
    const std::string program =
        std::filesystem::path(Dorvane::Host::ProgramFolder()).parent_path().parent_path().string();
    // An outside program that the road starts finds its drives by the same name.
    setenv("DORVANE_DRIVES", (site + "/drives").c_str(), 1);
    return Dorvane::Road::WalkTheRoad(site, book, program, std::cout) ? EXIT_SUCCESS : EXIT_FAILURE;
}
