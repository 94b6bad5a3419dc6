// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "adjustment/Package.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// A site in whose program folder packages of package/TestPackage.cpp are put.
class PackageSite : public TestSite {
  public:
    PackageSite() {
        Set("PACKAGE_LOG", HostFolder() + "calls.log");
        for (const char* name : {"PACKAGE_START", "PACKAGE_GO", "PACKAGE_LEAVES", "PACKAGE_START_DOES",
                                 "PACKAGE_GO_DOES", "PACKAGE_STOP_DOES"})
            unsetenv(name);
    }

    static void Set(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }

    static void Install(const std::string& library) {
        Drives::CopyFile(Drives::DrivePath(library), "P:\\DORVANE\\" + KrennPackage::LibraryName());
    }

    /// What the packages have recorded, as it stands and line by line.
    std::string Log() const { return FileContent(Drives::DrivePath(HostFolder() + "calls.log")); }
    std::vector<std::string> Calls() const {
        const std::string text = Log();
        std::vector<std::string> calls;
        std::size_t start = 0;
        for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
            calls.push_back(text.substr(start, end - start));
            start = end + 1;
        }
        return calls;
    }
};

/// What `body` raises; the test fails when it raises nothing.
template <class Body>
RunTimeError ErrorOf(const Body& body) {
    try {
        body();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return RunTimeError(0);
}

}  // namespace Dorvane::Testing
