// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace Dorvane {

/// Thrown out of a call that waits for the package when the operator has cancelled the run.
struct RunCancelled {};

/// The adjustment package as the run calls it: Start, Go and Stop, once each and in this order. The calls
/// block until the package has finished.
class AdjustmentPackage {
  public:
    virtual ~AdjustmentPackage() = default;

    /// Hands over the drive path of the input file. The result is shown and decides nothing. What the package
    /// leaves in its copy of the path is copied back.
    virtual std::int16_t Start(std::string& inputPath) = 0;

    /// Adjusts by a type: 0, 1, -1 or 7. 0 means success, every other number is the package's error number.
    virtual std::int16_t Go(std::int32_t type) = 0;

    virtual void Stop() = 0;
};

/// The package in its library, KRENN.DLL ("libkrenn.so" on hosts without drive letters), which is loaded at
/// the first call and stays until the object goes. It is taken from the program's folder where it lies there,
/// else by its name from the system's search path. Its exports are looked for under their decorated names
/// ("_start@4", "_go@4", "_stop@0") first, then plainly ("start", "go", "stop").
///
/// A call raises error 53 when there is no library, 48 when the one in the program's folder cannot be loaded,
/// and 453 when an export is missing.
class KrennPackage : public AdjustmentPackage {
  public:
    KrennPackage() = default;
    ~KrennPackage() override;
    KrennPackage(const KrennPackage&) = delete;
    KrennPackage& operator=(const KrennPackage&) = delete;

    std::int16_t Start(std::string& inputPath) override;
    std::int16_t Go(std::int32_t type) override;
    void Stop() override;

    /// The library's file name on this host.
    static std::string LibraryName();

  private:
    std::intptr_t Export(const std::string& decorated, const std::string& plain);

    std::intptr_t Library = 0;
};

}  // namespace Dorvane
