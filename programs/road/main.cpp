// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>
#include <exception>
#include <iostream>

#include "core/Host.h"
#include "programs/road/RoadWalk.h"

// ROAD.EXE SITE [FIELD-BOOK]: walks the road on a fresh site in the host folder SITE, an absolute path.
int main(int count, char** arguments) {
    if (count < 2 || count > 3) {
        std::cerr << "usage: ROAD.EXE SITE [FIELD-BOOK]\n";
        return EXIT_FAILURE;
    }
    try {
        const std::string site = arguments[1];
        const std::string book = count == 3 ? arguments[2] : "";
        // The outside programs lie in a folder below the program's.
        const std::string program = Dorvane::Host::ProgramFolder() + "..";
        // An outside program that the road starts finds its drives by the same name.
        Dorvane::Host::SetEnvironment("DORVANE_DRIVES", site + "/drives");
        return Dorvane::Road::WalkTheRoad(site, book, program, std::cout) ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& failure) {
        std::cerr << "ROAD: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
