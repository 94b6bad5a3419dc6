// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// The window that shows how far a run over several files has come. Its bar counts files, from 0 to the
/// number that Open is given. As it stands it shows nothing.
class FileMeter {
  public:
    virtual ~FileMeter() = default;
    virtual void Open(int fileCount) { static_cast<void>(fileCount); }
    /// The file that is now at work; `to` is empty where a file goes nowhere.
    virtual void ShowFile(const std::string& from, const std::string& to) {
        static_cast<void>(from);
        static_cast<void>(to);
    }
    virtual void Advance(int filesDone) { static_cast<void>(filesDone); }
    virtual void Close() {}
};

/// A meter that is open as long as this lives, however the run ends.
class OpenMeter {
  public:
    OpenMeter(FileMeter& meter, int fileCount);
    ~OpenMeter();
    OpenMeter(const OpenMeter&) = delete;
    OpenMeter& operator=(const OpenMeter&) = delete;

    /// Shows the file that is now at work, and yields to events, so that it is seen.
    void Begin(const std::string& from, const std::string& to);
    void Advance(int filesDone) { Meter.Advance(filesDone); }

  private:
    FileMeter& Meter;
};

}  // namespace Dorvane
