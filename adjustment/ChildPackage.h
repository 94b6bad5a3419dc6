// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "adjustment/Package.h"
#include "adjustment/PackageChannel.h"

namespace Dorvane {

/// The package in a process of its own, so that one that crashes takes nothing of the operator's other work
/// with it. Programs\KRENNRUN.EXE of the program's folder loads the library as KrennPackage does and makes
/// the calls that it is asked for, with the same results, the same copy back into the path and the same
/// errors.
///
/// Each Start runs a fresh process, which ends after Stop, and at the latest with this object or with the
/// program, in whatever way that ends. A call blocks until the package has finished; there is no time-out.
///
/// Beside the errors of KrennPackage, a call raises 53 when KRENNRUN.EXE is missing, and 51 when the process
/// ends before it has answered or the package raises an exception: "The adjustment package ended
/// unexpectedly" with how it ended in brackets. After a process that ended, Go and Stop raise the same until
/// the next Start.
class ChildPackage : public AdjustmentPackage {
  public:
    /// `whileWaiting` is called some 40 times a second while a call blocks. It must not call the package.
    /// What it raises leaves the call and ends the process. RunCancelled leaves Go only where the package has
    /// not answered meanwhile: a run that is done stands.
    explicit ChildPackage(std::function<void()> whileWaiting = {});
    ~ChildPackage() override;
    ChildPackage(const ChildPackage&) = delete;
    ChildPackage& operator=(const ChildPackage&) = delete;

    std::int16_t Start(std::string& inputPath) override;
    std::int16_t Go(std::int32_t type) override;
    void Stop() override;

    /// The drive path of KRENNRUN.EXE.
    static std::string RunnerPath();

  private:
    struct Runner {
        explicit Runner(const std::string& program) : Process(program), Channel(Process.Line()) {}

        Host::Companion Process;
        PackageChannel Channel;
    };

    void Begin();
    bool ReceiveOrWait(PackageChannel::Words& answer);
    bool HasAnsweredGo(const PackageChannel::Words& request, PackageChannel::Words& answer);
    PackageChannel::Words Ask(const PackageChannel::Words& request);
    [[noreturn]] void RaiseEnd();

    std::function<void()> WhileWaiting;
    std::unique_ptr<Runner> Own;  // an ended one stays until the next Start
};

}  // namespace Dorvane
