// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestSite.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <stdexcept>

#include "core/Drives.h"
#include "core/basGeneral.h"

namespace Dorvane::Testing {

namespace {

std::string NewTemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path().string() + "/dorvane-test-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    std::filesystem::permissions(name, std::filesystem::perms(0755));
    return name + "/";
}

}  // namespace

TestSite::TestSite() : Folder(NewTemporaryFolder()), Former(Global()) {
    Global() = Globals();
    Global().OwnDesktop = Former.OwnDesktop;
    Global().InstanceName = OwnName();
    std::filesystem::create_directories(Folder + "d:");
    std::filesystem::create_directories(Folder + "p:/DORVANE");
    Drives::Open(Folder);
    Global().ProgramFolder = "P:\\DORVANE\\";
}

TestSite::~TestSite() {
    Desktop* const desktop = Global().OwnDesktop;
    Global() = Former;
    Global().OwnDesktop = desktop;
    std::error_code ignored;
    std::filesystem::remove_all(Folder, ignored);
}

std::string TestSite::OwnName() const {
    return std::filesystem::path(Folder).parent_path().filename().string();
}

void TestSite::LayOut() {
    for (const char* folder : {"CALIB", "COORD", "INIT", "DOWNLOAD"})
        MakeFolders(std::string("D:\\TARVEX\\") + folder + "\\");
    for (const char* folder : {"PARAM", "TEMP", "WORK"})
        MakeFolders(std::string("C:\\TARVEX\\") + folder + "\\");
    Globals& global = Global();
    global.Data_drive = "D:\\TARVEX\\";
    global.Calib_path = "D:\\TARVEX\\CALIB\\";
    global.Coord_path = "D:\\TARVEX\\COORD\\";
    global.Init_path = "D:\\TARVEX\\INIT\\";
    global.Download_path = "D:\\TARVEX\\DOWNLOAD\\";
    global.Param_path = "C:\\TARVEX\\PARAM\\";
    global.Temp_path = "C:\\TARVEX\\TEMP\\";
    global.Work_path = "C:\\TARVEX\\WORK\\";
}

void MakeFolders(const std::string& path) {
    for (std::size_t slash = path.find('\\', 3); slash != std::string::npos;
         slash = path.find('\\', slash + 1)) {
        std::string folder = path.substr(0, slash + 1);
        if (!FolderExists(folder))
            Drives::CreateFolder(folder);
    }
}

void PutFile(const std::string& path, const std::string& content) {
    MakeFolders(Drives::FolderPart(path));
    Drives::WriteFile(path, content);
}

void PutLines(const std::string& path, const std::vector<std::string>& lines) {
    std::string content;
    for (const std::string& line : lines)
        content += line + "\r\n";
    PutFile(path, content);
}

std::string FileContent(const std::string& path) {
    if (!FileExists(path)) {
        ADD_FAILURE() << "no file " << path;
        return "";
    }
    return Drives::ReadFile(path);
}

std::vector<std::string> FileLines(const std::string& path) {
    std::string content = FileContent(path);
    std::vector<std::string> lines;
    for (std::size_t end = content.find("\r\n"); end != std::string::npos; end = content.find("\r\n")) {
        lines.push_back(content.substr(0, end));
        content.erase(0, end + 2);
    }
    EXPECT_EQ(content, "") << "the last line of " << path << " has no end";
    return lines;
}

void SetTimeStamp(const std::string& path, const DateTime& moment) {
    std::tm parts{};
    parts.tm_year = moment.Year - 1900;
    parts.tm_mon = moment.Month - 1;
    parts.tm_mday = moment.Day;
    parts.tm_hour = moment.Hour;
    parts.tm_min = moment.Minute;
    parts.tm_sec = moment.Second;
    parts.tm_isdst = -1;
    const timespec stamp{std::mktime(&parts), 0};
    const timespec times[2] = {stamp, stamp};
    ASSERT_EQ(utimensat(AT_FDCWD, Drives::HostPath(path).c_str(), times, 0), 0);
}

std::vector<std::string> AllFiles(const std::string& folder) {
    const std::filesystem::path root = Drives::HostPath(folder);
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file())
            continue;
        std::string name = std::filesystem::relative(entry.path(), root).string();
        std::replace(name.begin(), name.end(), '/', '\\');
        files.push_back(name);
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace Dorvane::Testing
