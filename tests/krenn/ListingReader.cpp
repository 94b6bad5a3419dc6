// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/krenn/ListingReader.h"

#include <cctype>
#include <cstdlib>

namespace KrennTest {
namespace {

struct Lines {
    explicit Lines(const std::string& theText) : text(theText) {}

    bool Read(std::string& line) {
        if (at >= text.size())
            return false;
        const std::size_t end = text.find("\r\n", at);
        line = text.substr(at, end == std::string::npos ? std::string::npos : end - at);
        at = end == std::string::npos ? text.size() : end + 2;
        return true;
    }

    const std::string& text;
    std::size_t at = 0;
};

double Number(const std::vector<std::string>& words, std::size_t word) {
    return word <= words.size() ? std::strtod(words[word - 1].c_str(), nullptr) : 0.0;
}

bool Begins(const std::string& line, const std::string& marker) {
    return line.rfind(marker, 0) == 0;
}

bool ReadStations(Lines& lines, std::vector<std::string>& words, std::string& line, ReadListing& listing) {
    while (!words.empty()) {
        ReadPoint station;
        station.name = words[0];
        std::string rotations, position;
        if (!lines.Read(rotations) || !lines.Read(position))
            return false;
        for (std::size_t i = 0; i < 3; ++i)
            station.rotation[i] = Number(WordsOf(rotations), 3 + i);
        const auto place = WordsOf(position);
        station.x = Number(place, 3);
        station.y = Number(place, 4);
        station.z = Number(place, 5);
        listing.stations.push_back(station);
        if (!lines.Read(line))
            return false;
        words = WordsOf(line);
    }
    if (lines.Read(line))
        words = WordsOf(line);
    return true;
}

bool ReadPoints(Lines& lines, std::vector<std::string>& words, std::string& line, ReadListing& listing) {
    if (line.size() >= 19 && line.substr(5, 14) == "the one-tailed")
        return true;
    while (!words.empty()) {
        ReadPoint point;
        point.name = words[0];
        if (words.size() == 2) {
            point.z = Number(words, 2);
        } else {
            point.x = Number(words, 2);
            point.y = Number(words, 3);
            point.z = Number(words, 4);
        }
        listing.points.push_back(point);
        if (!lines.Read(line))
            return false;
        words = WordsOf(line);
    }
    return true;
}

bool ReadTable(Lines& lines, std::vector<ReadPair>& pairs) {
    std::string line;
    while (lines.Read(line)) {
        const auto words = WordsOf(line);
        if (words.empty())
            return true;
        pairs.emplace_back(words[0], words.size() > 1 ? words[1] : "");
    }
    return false;
}

ReadPoint* FirstNamed(ReadListing& listing, const std::string& name) {
    for (auto* list : {&listing.stations, &listing.points}) {
        for (ReadPoint& point : *list) {
            if (point.name == name)
                return &point;
        }
    }
    return nullptr;
}

bool ReadDeviations(Lines& lines, ReadListing& listing) {
    std::string line;
    if (!lines.Read(line))
        return false;
    if (!Begins(line, "Standard point")) {
        do {
            const auto words = WordsOf(line);
            for (ReadPoint& point : listing.points) {
                if (!words.empty() && point.name == words[0]) {
                    point.sz = Number(words, 2);
                    point.hasDeviation = true;
                }
            }
        } while (lines.Read(line));
        return true;
    }
    if (!lines.Read(line) || !lines.Read(line))
        return false;
    auto words = WordsOf(line);
    while (!words.empty()) {
        std::string ellipse, skipped;
        if (!lines.Read(ellipse) || !lines.Read(skipped))
            return false;
        if (ReadPoint* point = FirstNamed(listing, words[0])) {
            point->sx = Number(words, 2);
            point->sy = Number(words, 3);
            point->sz = Number(words, 4);
            point->major = Number(WordsOf(ellipse), 1);
            point->minor = Number(WordsOf(ellipse), 2);
            point->angle = Number(WordsOf(ellipse), 3);
            point->hasDeviation = true;
        }
        if (!lines.Read(line))
            return false;
        words = WordsOf(line);
    }
    return true;
}

}  // namespace

std::vector<std::string> WordsOf(const std::string& line) {
    std::vector<std::string> words;
    std::string word;
    for (const char c : line + " ") {
        if (c != ' ' && c != ',' && c != '\t') {
            word += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        } else if (!word.empty()) {
            words.push_back(word);
            word.clear();
        }
    }
    return words;
}

const ReadPoint* ReadListing::Find(const std::string& name) const {
    for (const auto* list : {&stations, &points}) {
        for (const ReadPoint& point : *list) {
            if (point.name == name)
                return &point;
        }
    }
    return nullptr;
}

ReadListing ReadListingText(const std::string& text) {
    ReadListing listing;
    Lines lines(text);
    std::string line;
    listing.result = 0;
    do {
        if (!lines.Read(line))
            return listing;
    } while (!Begins(line, "Final results"));
    if (!lines.Read(line) || !lines.Read(line))
        return listing;
    auto words = WordsOf(line);
    if (words.size() == 1 && !ReadStations(lines, words, line, listing))
        return listing;
    if (!ReadPoints(lines, words, line, listing))
        return listing;
    while (lines.Read(line)) {
        bool isComplete = true;
        if (Begins(line, "distance residuals"))
            isComplete = ReadTable(lines, listing.distances);
        else if (Begins(line, "height differences"))
            isComplete = ReadTable(lines, listing.heights);
        else if (Begins(line, "horizontal direction"))
            isComplete = ReadTable(lines, listing.directions);
        else if (Begins(line, "vertical direction"))
            isComplete = ReadTable(lines, listing.zeniths);
        else if (Begins(line, "Standard deviations"))
            isComplete = ReadDeviations(lines, listing);
        if (!isComplete)
            return listing;
    }
    listing.result = 1;
    return listing;
}

}  // namespace KrennTest
