// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// What the fuzz targets share. A target is one procedure that takes any bytes and checks what has to hold;
// libFuzzer calls it (preset "fuzz"), or Replay.cpp with the files of its folder in tests/fuzz/corpus.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Dorvane::Fuzz {

/// Ends the process with the place and the words of a promise that was not kept.
void Hold(bool holds, const char* promise, const char* file = __builtin_FILE(), int line = __builtin_LINE());

/// Compares texts and shows both where they differ.
void HoldSame(std::string_view expected, std::string_view found, const char* promise,
              const char* file = __builtin_FILE(), int line = __builtin_LINE());

inline std::string TextOf(const std::uint8_t* data, std::size_t size) {
    return {data, data + size};
}

/// The bytes of an input as choices, taken from the front. Behind their end every choice is the first one.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : Rest(TextOf(data, size)) {}

    bool AtEnd() const { return Place >= Rest.size(); }

    /// 0 to 255.
    unsigned Byte() { return AtEnd() ? 0 : static_cast<unsigned char>(Rest[Place++]); }

    /// 0 to `count` - 1.
    unsigned Below(unsigned count) { return Byte() % count; }

    /// True once in `count` times.
    bool Rarely(unsigned count) { return Byte() % count == count - 1; }

    template <class List>
    auto OneOf(const List& list) {
        return list[Below(static_cast<unsigned>(list.size()))];
    }

    /// -1 to 1.
    double Part() { return (static_cast<double>(Byte() * 256 + Byte()) - 32768) / 32768; }

    /// So many bytes as they stand, fewer at the end.
    std::string Bytes(std::size_t count) {
        std::string bytes = Place < Rest.size() ? Rest.substr(Place, count) : "";
        Place += bytes.size();
        return bytes;
    }

    /// All that is left.
    std::string Tail() { return Bytes(Rest.size()); }

  private:
    std::string Rest;
    std::size_t Place = 0;
};

}  // namespace Dorvane::Fuzz
