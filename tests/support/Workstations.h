// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace Dorvane::Testing {

/// Runs `body` in so many processes at a time, as workstations do, with 0 upward for their numbers, and waits
/// for all. What fails there fails the test here.
void Together(int count, const std::function<void(int)>& body);

/// Runs `body` in a process of its own and ends that at once, without any of its clearing up, when it calls
/// the function that it is given.
void CutOff(const std::function<void(const std::function<void()>& die)>& body);

/// A process that does `begin`, then waits until it is let go or this ends, and ends.
class OtherWorkstation {
  public:
    explicit OtherWorkstation(const std::function<void(const std::function<void()>& wait)>& body);
    ~OtherWorkstation();
    OtherWorkstation(const OtherWorkstation&) = delete;
    OtherWorkstation& operator=(const OtherWorkstation&) = delete;

    void LetGo();
    int Process() const { return Child; }

  private:
    int Child = 0;
    int Door = -1;
};

}  // namespace Dorvane::Testing
