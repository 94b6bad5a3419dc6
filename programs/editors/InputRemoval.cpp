// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/InputRemoval.h"

#include <unordered_map>
#include <unordered_set>

namespace Dorvane {

namespace {

// What the lists say of a name, before and after.
struct Listing {
    bool WasStation = false;
    bool WasPoint = false;
    bool WasPlaced = false;
    bool IsStation = false;
    bool IsPoint = false;
    bool IsPlaced = false;

    bool StationGone() const { return WasStation && !IsStation; }
    bool PointGone() const { return WasPoint && !IsPoint; }
    bool Gone() const { return (WasStation || WasPoint) && !IsStation && !IsPoint; }
};
using Listings = std::unordered_map<std::string, Listing>;

void List(const InputRow& row, bool stays, Listings& listings) {
    Listing& listing = listings[row.Name];
    const bool placed = !row.Values.empty();
    if (row.Kind == RowKind::Station) {
        listing.WasStation = true;
        listing.IsStation |= stays;
    } else {
        listing.WasPoint = true;
        listing.IsPoint |= stays;
    }
    listing.WasPlaced |= placed;
    listing.IsPlaced |= placed && stays;
}

bool ObservationFalls(const InputRow& row, const Listing& from, const Listing& to) {
    if (from.Gone() || to.Gone())
        return true;
    if (row.Kind == RowKind::Height)
        return from.PointGone() || to.PointGone();
    return from.StationGone() || to.PointGone();
}

}  // namespace

std::vector<Fate> Fates(const InputText& text, const std::vector<bool>& taken) {
    Listings listings;
    std::vector<Fate> fates(text.Rows.size(), Fate::Stays);
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const InputRow& row = text.Rows[i];
        if (taken[i] && (row.IsListed() || row.IsObservation()))
            fates[i] = Fate::Taken;
        if (row.IsListed())
            List(row, !taken[i], listings);
    }
    std::unordered_set<std::string> named;
    for (const auto& [name, listing] : listings)
        if (listing.IsStation || listing.IsPoint)
            named.insert(name);
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const InputRow& row = text.Rows[i];
        if (!row.IsObservation() || fates[i] != Fate::Stays)
            continue;
        if (ObservationFalls(row, listings[row.Name], listings[row.Target])) {
            fates[i] = Fate::Falls;
            continue;
        }
        named.insert(row.Name);
        named.insert(row.Target);
    }
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const InputRow& row = text.Rows[i];
        const bool pair = row.Kind == RowKind::Pair;
        if (!pair && row.Kind != RowKind::Fixed)
            continue;
        const Listing& listing = listings[row.Name];
        const bool unplaced = !pair && listing.WasPlaced && !listing.IsPlaced;
        if (unplaced || named.count(row.Name) == 0 || (pair && named.count(row.Target) == 0))
            fates[i] = Fate::Falls;
    }
    return fates;
}

std::string Remaining(const InputText& text, const std::vector<Fate>& fates) {
    std::string content;
    content.reserve(text.Content.size());
    std::size_t place = 0;
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        if (fates[i] == Fate::Stays)
            continue;
        content.append(text.Content, place, text.Rows[i].Start - place);
        place = text.Rows[i].End;
    }
    return content.append(text.Content, place, std::string::npos);
}

std::vector<std::size_t> UnusedRows(const InputText& text, const std::vector<Fate>& fates) {
    std::unordered_set<std::string> before;
    std::unordered_set<std::string> after;
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const InputRow& row = text.Rows[i];
        if (!row.IsObservation())
            continue;
        for (const std::string& name : {row.Name, row.Target}) {
            before.insert(name);
            if (fates[i] == Fate::Stays)
                after.insert(name);
        }
    }
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const std::string& name = text.Rows[i].Name;
        if (text.Rows[i].IsListed() && fates[i] == Fate::Stays && before.count(name) > 0 &&
            after.count(name) == 0)
            rows.push_back(i);
    }
    return rows;
}

bool HasObservations(const InputText& text, const std::vector<Fate>& fates) {
    for (std::size_t i = 0; i < text.Rows.size(); ++i)
        if (text.Rows[i].IsObservation() && fates[i] == Fate::Stays)
            return true;
    return false;
}

}  // namespace Dorvane
