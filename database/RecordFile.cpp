// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/RecordFile.h"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "core/Drives.h"
#include "core/Text.h"
#include "database/DatabaseError.h"

namespace Dorvane {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr int CountColumn = 4;
constexpr int CountWidth = 7;

}  // namespace

std::string RecordHeader(const RecordShape& shape, long records) {
    std::string line = fmt::format("{:3}{:7}", shape.RecordLength, records + shape.CountOfNew);
    line.resize(static_cast<std::size_t>(shape.HeaderLength), ' ');
    line.back() = '0';
    return line.append(LineEnd);
}

RecordFile::RecordFile(std::string path, const RecordShape& shape)
    : Name(std::move(path)), Shape(shape), Content(Drives::ReadFile(Name)) {
    ReadHeader();
    CheckLineEnds();
}

void RecordFile::ReadHeader() {
    const std::size_t length = static_cast<std::size_t>(Shape.HeaderLength);
    if (Content.size() < length + LineEnd.size() || Content.compare(length, LineEnd.size(), LineEnd) != 0)
        throw DamagedFile(Name, fmt::format("its header line is not of {} characters", length));

    const std::string count = Trim(Mid(Content, CountColumn, CountWidth));
    const auto read = std::from_chars(count.data(), count.data() + count.size(), Count);
    if (count.empty() || read.ec != std::errc() || read.ptr != count.data() + count.size())
        throw DamagedFile(Name, "the count in its header line is no whole number");
    Count -= Shape.CountOfNew;
    // Written again from what was read, the header tells any other departure from its form.
    if (Count < 0 || RecordHeader(Shape, Count) != Left(Content, Shape.HeaderLength + 2))
        throw DamagedFile(Name,
                          fmt::format("its header line is not that of records of {}", Shape.RecordLength));
    if (StartOf(Count + 1) > Content.size())
        throw DamagedFile(Name,
                          fmt::format("its header line counts {} records, which it does not hold", Count));
}

void RecordFile::CheckLineEnds() const {
    for (long number = 1; number <= Count; ++number)
        if (Content.compare(StartOf(number + 1) - LineEnd.size(), LineEnd.size(), LineEnd) != 0)
            throw DamagedFile(Name, fmt::format("line {} does not end in its place", number + 1));
}

std::size_t RecordFile::StartOf(long number) const {
    return static_cast<std::size_t>(Shape.HeaderLength) + LineEnd.size() +
           static_cast<std::size_t>(number - 1) * static_cast<std::size_t>(Shape.RecordLength);
}

std::string_view RecordFile::Record(long number) const {
    return std::string_view(Content).substr(StartOf(number),
                                            static_cast<std::size_t>(Shape.RecordLength) - LineEnd.size());
}

std::string_view RecordFile::AllRecords() const {
    return std::string_view(Content).substr(StartOf(1), StartOf(Count + 1) - StartOf(1));
}

}  // namespace Dorvane
