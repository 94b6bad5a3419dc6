// SPDX-License-Identifier: GPL-3.0-or-later
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

// Adds its words to the file named first. With a second argument it runs as long as that file is there, and
// then leaves one beside it.
int main(int count, char** arguments) {
    if (count < 2)
        return 2;
    const std::string file = arguments[1];
    if (count == 2) {
        std::ofstream(file, std::ios::app) << ", and the child";
        return 0;
    }
    while (std::filesystem::exists(file))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    std::ofstream(file + ".DONE") << "done";
    return 0;
}
