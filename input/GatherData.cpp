// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/GatherData.h"

#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "input/AppendObs.h"
#include "input/CombineAngleDist.h"
#include "input/CoordinateSources.h"
#include "input/ResultFiles.h"
#include "input/TreeFolders.h"
#include "upload/Messages.h"

namespace Dorvane {

namespace {

// The run over all folders. The current records and their count are never cleared between files, entries and
// folders, so a file that reads nothing appends the former ones again; that is meant.
class Import {
  public:
    Import(ObservationModel& model, std::int16_t dimension, const InputServices& services)
        : Model(model), Dimension(dimension), Services(services) {}

    void Folder(const InputType& type, const std::string& folder) {
        List1<std::string> locations;
        ParseFields(locations, type.Location);
        Services.ShowStatus("Importing " + type.Name + " data from " + folder);
        List1<ResTypeEntry> entries;
        ReadResTypes(entries, Dimension);
        AngleRead = DistanceRead = false;
        if (!FileExists(folder + "*.RES")) {
            ShowWarning(
                "No *.RES file(s) exist in the choosen directory " + folder + ".  Can not import any data.",
                "No Reduction File(s)");
            return;
        }
        for (const std::string& location : locations)
            for (const ResTypeEntry& entry : entries)
                if (entry.Name == location)
                    Entry(type, folder, entry);
    }

  private:
    void Entry(const InputType& type, const std::string& folder, const ResTypeEntry& entry) {
        for (int word = 2; word <= entry.Words.Count(); ++word) {
            if (!FileExists(folder + entry.Words[word]))
                continue;
            Read(type, folder, entry.Words, word);
            Append(type, entry.Words[1]);
            TheDesktop().YieldEvents();
        }
    }

    void Read(const InputType& type, const std::string& folder, const List1<std::string>& words, int word) {
        const std::string& keyword = words[1];
        const std::string& file = words[word];
        const bool paired = type.Type == "Total";
        if (keyword == "ANGLERES") {
            if (word != 2)
                return;  // the pair was read at word 2, yet this word still appends; meant
            if (paired) {
                CurrentCount = 0;
                AngleCount = ReadAngleRes(Angles, folder, file, words[word + 1]);
                AngleRead = true;
            } else {
                CurrentCount = ReadAngleRes(Current, folder, file, words[word + 1]);
            }
        } else if (keyword == "DISTANCERES" && paired) {
            CurrentCount = 0;
            DistanceCount = ReadGenericRes(Distances, folder, file);
            DistanceRead = true;
        } else if (keyword == "DISTANCERES" || keyword == "TOTALRES" || keyword == "LEVELRES") {
            CurrentCount = ReadGenericRes(Current, folder, file);
        }
    }

    void Append(const InputType& type, const std::string& keyword) {
        if (type.Type == "Total" && (keyword == "ANGLERES" || keyword == "DISTANCERES") && AngleRead &&
            DistanceRead)
            Combine();
        if (CurrentCount < 1)
            return;
        VisitWeightedSet(Model, type, [this](auto& set, const auto& weight) { AppendCurrent(set, weight); });
    }

    void Combine() {
        CurrentCount = CombineAngleDist(Current, Angles, AngleCount, Distances, DistanceCount);
        AngleRead = DistanceRead = false;
        if (AngleCount > 0 || DistanceCount > 0)
            ShowWarning("Distances and angles found that do not match.", "Non Matching Data");
    }

    void AppendCurrent(ObsSet<TrackerObs>& set, const TrackerWeight& weight) {
        AppendTrackerObs(set, Model.Points, Model.Stations, Current, CurrentCount, weight, NewNames);
    }
    void AppendCurrent(ObsSet<TotalObs>& set, const TotalWeight& weight) {
        AppendTotalObs(set, Model.Points, Model.Stations, Current, CurrentCount, weight, NewNames);
    }
    void AppendCurrent(ObsSet<AngleObs>& set, const AngleWeight& weight) {
        AppendAngleObs(set, Model.Points, Model.Stations, Current, CurrentCount, weight, NewNames);
    }
    void AppendCurrent(ObsSet<DistanceObs>& set, const DistanceWeight& weight) {
        AppendDistanceObs(set, Model.Points, Model.Stations, Current, CurrentCount, weight, NewNames);
    }
    void AppendCurrent(ObsSet<HeightObs>& set, const HeightWeight& weight) {
        AppendHeightObs(set, Model.Points, Current, CurrentCount, weight, NewNames);
    }

    ObservationModel& Model;
    std::int16_t Dimension;
    const InputServices& Services;

    List1<ResRecord> Current;
    List1<ResRecord> Angles;
    List1<ResRecord> Distances;
    std::int16_t CurrentCount = 0;
    std::int16_t AngleCount = 0;
    std::int16_t DistanceCount = 0;
    bool AngleRead = false;
    bool DistanceRead = false;
    List1<std::string> NewNames;
};

const InputType& TypeNamed(const List1<InputType>& types, const std::string& name) {
    for (const InputType& type : types)
        if (type.Name == name)
            return type;
    throw RunTimeError(SubscriptOutOfRange);
}

List1<std::string> NamesOf(const List1<ObsPoint>& points) {
    List1<std::string> names;
    for (const ObsPoint& point : points)
        names.Add(point.Name);
    return names;
}

}  // namespace

bool GatherData(InputScreen& screen, const InputServices& services) {
    Guarded("frmInput-GatherData", [&](Guard&) {
        ObservationModel& model = screen.Model;
        List1<std::string> typeNames;
        List1<std::string> folders;
        const std::int16_t count = GetTreeFolders(screen.trvInput, model.Types, typeNames, folders);
        Import import(model, screen.icmbDimension, services);
        for (int i = 1; i <= count; ++i)
            import.Folder(TypeNamed(model.Types, typeNames[i]), folders[i]);
        const CoordSelection selection = CollectCoordSelection(screen);
        if (!selection.UserFiles.Empty() || !selection.Locations.Empty())
            UpdateCoordData(model.Points, NamesOf(model.Points), selection, services.MakeSource);
    });
    return true;
}

}  // namespace Dorvane
