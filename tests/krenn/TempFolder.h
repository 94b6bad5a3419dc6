// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace KrennTest {

// A folder of its own for one test, gone with it.
struct TempFolder {
    TempFolder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        path = std::filesystem::temp_directory_path() /
               ("krenn." + std::to_string(getpid()) + "." + (test ? test->name() : "none"));
        std::filesystem::remove_all(path);
        std::filesystem::create_directories(path);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string Write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((path / name).parent_path());
        std::ofstream(path / name, std::ios::binary) << text;
        return (path / name).string();
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(path / name, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    bool Has(const std::string& name) const { return std::filesystem::exists(path / name); }

    std::filesystem::path path;
};

}  // namespace KrennTest
