// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace {

void RunWhileThereIs(const std::string& file) {
    while (std::filesystem::exists(file))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

bool IsWritten(const std::string& file) {
    std::error_code missing;
    return std::filesystem::file_size(file, missing) > 0 && !missing;
}

}  // namespace

// Adds its words to the file named first. With a second argument it runs as long as that file is there, and
// then leaves one beside it. "stubborn" does not let itself be asked to end, "parent" has a stubborn child of
// its own; each writes its process number beside the file before it begins.
int main(int count, char** arguments) {
    if (count < 2)
        return 2;
    const std::string file = arguments[1];
    if (count == 2) {
        std::ofstream(file, std::ios::app) << ", and the child";
        return 0;
    }
    const std::string kind = arguments[2];
    if (kind == "stubborn" || kind == "parent")
        std::signal(SIGTERM, SIG_IGN);
    const bool isChild = kind == "parent" && fork() == 0;
    while (kind == "parent" && !isChild && !IsWritten(file + ".CHILD"))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    std::ofstream(file + (isChild ? ".CHILD" : ".PID")) << getpid() << ' ' << std::flush;
    RunWhileThereIs(file);
    std::ofstream(file + ".DONE") << "done";
    return 0;
}
