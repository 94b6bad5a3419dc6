// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/Drives.h"
#include "programs/edittext/TextSummary.h"

namespace Dorvane {

/// Bytes that never change, but may grow at their end. A view of them holds until the next two stretches are
/// asked for.
class TextSource {
  public:
    virtual ~TextSource() = default;
    virtual Offset Length() const = 0;
    virtual std::string_view View(Offset from, Offset count) const = 0;
};

/// Bytes in memory.
class MemorySource : public TextSource {
  public:
    explicit MemorySource(std::string content) : Content(std::move(content)) {}
    Offset Length() const override { return static_cast<Offset>(Content.size()); }
    std::string_view View(Offset from, Offset count) const override {
        return std::string_view(Content).substr(static_cast<std::size_t>(from),
                                                static_cast<std::size_t>(count));
    }
    void Append(std::string_view text) { Content += text; }

  private:
    std::string Content;
};

/// Bytes of a file, read as they are asked for. What the file no longer holds counts as NUL bytes.
class FileSource : public TextSource {
  public:
    explicit FileSource(const std::string& path) : File(path), Kept(Stretches) {}
    Offset Length() const override { return File.Length(); }
    std::string_view View(Offset from, Offset count) const override;

  private:
    struct Stretch {
        Offset From = -1;
        std::string Bytes;
    };
    static constexpr std::size_t Stretches = 64;

    Drives::PiecewiseFile File;
    mutable std::vector<Stretch> Kept;  // those read last, in a ring
    mutable std::size_t Next = 0;
};

}  // namespace Dorvane
