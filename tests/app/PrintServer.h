// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace Dorvane::Testing {

/// A print server of the test's own: a real scheduler with its files in a temporary folder, reached by a
/// socket there, and queues whose printers understand PDF and leave it in files. All servers of one process
/// take the same socket, since the print library asks for its name once.
class PrintServer {
  public:
    PrintServer();
    ~PrintServer();
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    void AddQueue(const std::string& name);
    void MakeDefault(const std::string& name);
    void RemoveQueue(const std::string& name);
    /// Has the queue refuse documents.
    void Reject(const std::string& name);

    /// The pages of the only document printed so far, which has to be one of this queue, as lines of UTF-8
    /// text in the places where they stand. Waits until it is printed.
    std::vector<std::vector<std::string>> PrintedPages(const std::string& queue) const;
    /// True when no document is left in a queue and none was printed.
    bool NothingPrinted() const;

  private:
    void WriteConfiguration() const;
    void Start();
    std::string Output(const std::string& queue) const;
    std::size_t Documents(const char* state) const;
    bool IsIdle() const;

    std::string Folder;
    pid_t Scheduler = -1;
};

/// Lets the print library look for a server where none is.
void ForgetPrintServer();

}  // namespace Dorvane::Testing
