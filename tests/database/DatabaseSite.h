// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "database/CoordinateRetriever.h"
#include "database/basDatabase.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// Paths and globals of a site, and the new database of the location NORTH.
class DatabaseSite : public testing::Test {
  protected:
    DatabaseSite() {
        Site.LayOut();
        MakeFolders(North);
        WriteCoordNew(North, "NORTH");
    }

    /// Puts one three-dimensional value into the database.
    void Enter(const std::string& name, double x, const std::string& date = "112026") const {
        CoordinateRetriever retriever;
        retriever.UpdatePoint(North, 3, name, date, x, 2, 3, 0, 0, 0, 0, 0, 0);
        retriever.Commit();
    }

    std::vector<RetrievedPoint> Named(const std::vector<std::string>& names,
                                      std::int32_t typeCode = 3) const {
        List1<std::string> list;
        for (const std::string& name : names)
            list.Add(name);
        list[0] = std::to_string(names.size());
        std::vector<RetrievedPoint> items;
        std::int32_t count = -1;
        CoordinateRetriever().RetrieveNamed(North, typeCode, list, 0, count, items);
        EXPECT_EQ(count, static_cast<std::int32_t>(items.size()));
        return items;
    }

    /// X of a point in the three-dimensional data; fails the test when it is not there.
    double XOf(const std::string& name) const {
        const std::vector<RetrievedPoint> items = Named({name});
        EXPECT_EQ(items.size(), 1u) << name;
        return items.empty() ? 0 : items.front().X;
    }

    /// Lines of a retrieval of the three-dimensional data in meters without bias, the heading left out.
    std::vector<std::string> RetrievedLines(const std::vector<std::string>& names, bool all) const {
        List1<std::string> list;
        for (const std::string& name : names)
            list.Add(name);
        std::string file;
        std::int32_t written = 0;
        CoordinateRetriever retriever;
        const List1<double> bias{0, 0, 0, 0};
        if (all)
            retriever.RetrieveAll(North, 3, list, list.Count(), file, written, "C:\\TARVEX\\TEMP\\", bias, 1);
        else
            retriever.RetrieveCurrent(North, 3, list, list.Count(), file, written, "C:\\TARVEX\\TEMP\\", bias,
                                      1);
        std::vector<std::string> lines = FileLines(file);
        lines.erase(lines.begin(), lines.begin() + 10);
        EXPECT_EQ(static_cast<std::size_t>(written), lines.size());
        return lines;
    }

    TestSite Site;
    ScriptedDesktop Desk;
    const std::string North = "D:\\TARVEX\\COORD\\NORTH\\";
};

/// The error that `statement` raises; a test failure and number 0 when it raises none.
inline RunTimeError ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return RunTimeError(0);
}

/// Every file below a folder with its content, to see that nothing changed.
inline std::vector<std::pair<std::string, std::string>> Picture(const std::string& folder) {
    std::vector<std::pair<std::string, std::string>> picture;
    for (const std::string& file : AllFiles(folder))
        picture.emplace_back(file, Drives::ReadFile(folder + file));
    return picture;
}

/// Fills the disk of a folder with small files "FILLER..." until nothing more goes on it.
inline void FillDisk(const std::string& folder) {
    for (int i = 1; i < 10000; ++i) {
        try {
            Drives::WriteFile(folder + "FILLER" + std::to_string(i), "F");
        } catch (const RunTimeError& error) {
            ASSERT_EQ(error.Number, DiskFull);
            return;
        }
    }
    FAIL() << "the disk took all of it";
}

/// An operator who makes room on the disk of a folder before answering a message.
class RoomMakingDesktop : public ScriptedDesktop {
  public:
    explicit RoomMakingDesktop(std::string folder) : Folder(std::move(folder)) {}

    Answer ShowMessage(const Message& message) override {
        for (const Drives::Entry& entry : Drives::List(Folder, "FILLER*"))
            Drives::DeleteFile(Folder + entry.Name);
        return ScriptedDesktop::ShowMessage(message);
    }

  private:
    std::string Folder;
};

}  // namespace Dorvane::Testing
