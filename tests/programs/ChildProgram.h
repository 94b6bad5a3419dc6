// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

struct ChildEnd {
    int ExitCode = -1;
    std::string Errors;  // what it wrote to the standard error output
};

/// Runs one of the built outside programs to its end as a child process on the site's drives.
ChildEnd RunChild(const TestSite& site, const std::string& program);

/// A site with its Param_path in the profile and a survey folder, where a reduction program finds all it
/// needs.
class ReductionSite {
  public:
    explicit ReductionSite(const std::string& type);

    /// Puts a field file into the survey folder and lists it in the index.
    void AddFile(const std::string& name, const std::string& content);
    /// Writes a parameter file of the two common lines and the given file names behind the survey folder.
    void PutParameters(const std::string& name, const std::vector<std::string>& files);

    TestSite Site;
    std::string Folder;

  private:
    std::vector<std::string> Index;
};

}  // namespace Dorvane::Testing
