// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace Dorvane {

/// The form of a file of records: one header line and behind it records of one length.
struct RecordShape {
    int RecordLength;  // of a record, its CR LF included; the header tells it
    int HeaderLength;  // of the header line without its CR LF
    int CountOfNew;    // the header's count in a file without records: 1 where it counts itself, else 0
};

/// The header line of a file that holds `records` records, its CR LF included: the record length in columns
/// 1-3, the count in columns 4-10, both right-justified, blanks, and "0" in the last column.
std::string RecordHeader(const RecordShape& shape, long records);

/// A file of records, read whole and checked for its form. Records count from 1, the header aside. What lies
/// behind the records that the header counts is no part of the file: a write that never came to its end.
class RecordFile {
  public:
    /// Raises what reading raises, and DatabaseDamaged for a header that is not of the shape, that counts
    /// more records than there are, or for a record without its line end in place.
    RecordFile(std::string path, const RecordShape& shape);

    const std::string& Path() const { return Name; }
    long Records() const { return Count; }

    /// True when something lies behind the counted records.
    bool HasTail() const { return StartOf(Count + 1) < Content.size(); }

    /// A record without its line end.
    std::string_view Record(long number) const;

    /// All counted records with their line ends.
    std::string_view AllRecords() const;

  private:
    void ReadHeader();
    void CheckLineEnds() const;
    std::size_t StartOf(long number) const;

    std::string Name;
    RecordShape Shape;
    std::string Content;
    long Count = 0;
};

}  // namespace Dorvane
