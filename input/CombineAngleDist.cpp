// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CombineAngleDist.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "core/ReportError.h"

namespace Dorvane {

namespace {

// The line of sight as one key. No name holds a blank, which is what cuts words.
std::string SightOf(const ResRecord& record) {
    return record.Station + " " + record.Target;
}

// The distances that no angle has taken yet. Those of one line of sight form a chain in their order.
class FreeDistances {
  public:
    FreeDistances(const List1<ResRecord>& distances, int count)
        : Next(static_cast<std::size_t>(count) + 1), Taken(Next.size()) {
        for (int i = count; i >= 1; --i) {
            int& first = FirstOf[SightOf(distances[i])];
            Next[static_cast<std::size_t>(i)] = first;
            first = i;
        }
    }

    // Takes the first free distance of an angle's line of sight; 0 when there is none.
    int TakeFor(const ResRecord& angle) {
        const auto found = FirstOf.find(SightOf(angle));
        if (found == FirstOf.end() || found->second == 0)
            return 0;
        const int index = found->second;
        found->second = Next[static_cast<std::size_t>(index)];
        Taken[static_cast<std::size_t>(index)] = true;
        return index;
    }

    bool IsFree(int index) const { return !Taken[static_cast<std::size_t>(index)]; }

  private:
    std::unordered_map<std::string, int> FirstOf;
    std::vector<int> Next;
    std::vector<bool> Taken;
};

}  // namespace

std::int16_t CombineAngleDist(List1<ResRecord>& total, List1<ResRecord>& angles, std::int16_t& angleCount,
                              List1<ResRecord>& distances, std::int16_t& distanceCount) {
    std::int16_t result = 0;
    Guarded("basInput-CombineAngleDist", [&](Guard&) {
        FreeDistances free(distances, distanceCount);
        List1<ResRecord> pairs;
        List1<ResRecord> anglesLeft;
        List1<ResRecord> distancesLeft;
        for (int i = 1; i <= angleCount; ++i) {
            const int partner = free.TakeFor(angles[i]);
            if (partner == 0) {
                anglesLeft.Add(angles[i]);
                continue;
            }
            ResRecord pair = angles[i];
            pair.Value3 = distances[partner].Value1;
            pairs.Add(std::move(pair));
        }
        for (int i = 1; i <= distanceCount; ++i)
            if (free.IsFree(i))
                distancesLeft.Add(distances[i]);
        total = std::move(pairs);
        angles = std::move(anglesLeft);
        distances = std::move(distancesLeft);
        angleCount = angles.Count();
        distanceCount = distances.Count();
        result = total.Count();
    });
    return result;
}

}  // namespace Dorvane
