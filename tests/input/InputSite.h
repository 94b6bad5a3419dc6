// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "input/InputScreen.h"
#include "tests/support/Reports.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// What a coordinate database was asked, and what it answers.
struct FakeDatabase {
    struct Request {
        std::string Folder;
        std::int32_t TypeCode;
        std::vector<std::string> Names;  // with the count in front
        std::int32_t Flag;

        bool operator==(const Request&) const = default;
    };

    std::map<std::pair<std::string, std::int32_t>, std::vector<RetrievedPoint>> Answers;
    std::vector<Request> Requests;
    int Made = 0;
    int Failures = 0;  // so many requests fail first, with error 57

    MakeCoordinateSource Maker();
};

/// A site with a scripted desktop, empty folders and profiles that a test fills.
class InputSite : public ::testing::Test {
  protected:
    InputSite();

    /// Two location words with result files, one input type of each kind that is observed.
    void PutProfiles();

    /// The screen as it opens.
    InputScreen OpenScreen(const List1<PathRecord>& records = {});

    InputServices Services();

    /// Title and text of the last message.
    std::string LastMessage() const;

    TestSite Site;
    ScriptedDesktop Desktop;
    FakeDatabase Database;
    std::vector<std::string> Status;    // every text of panel 1
    std::vector<std::string> Captions;  // every caption of the folder tree
    std::vector<std::string> Paths;     // every path it was opened at
    std::string Picked;                 // what the folder tree answers; empty: cancelled
    std::vector<std::string> Signs;     // hourglass and animation, in order
};

/// The record of a folder of system DAM at a location.
PathRecord Located(const std::string& location);

/// One profile file from its lines.
void PutProfile(const std::string& file, const std::vector<std::string>& lines);

}  // namespace Dorvane::Testing
