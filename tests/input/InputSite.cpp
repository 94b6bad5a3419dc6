// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/input/InputSite.h"

#include <memory>

namespace Dorvane::Testing {

namespace {

class FakeSource : public CoordinateSource {
  public:
    explicit FakeSource(FakeDatabase& database) : Database(database) {}

    void RetrieveNamed(const std::string& folder, std::int32_t typeCode, const List1<std::string>& names,
                       std::int32_t flag, std::int32_t& count, std::vector<RetrievedPoint>& items) override {
        FakeDatabase::Request request{folder, typeCode, {}, flag};
        for (int i = 0; i <= names.Count(); ++i)
            request.Names.push_back(names[i]);
        Database.Requests.push_back(request);
        if (Database.Failures > 0) {
            --Database.Failures;
            throw RunTimeError(DeviceIoError);
        }
        items = Database.Answers[{folder, typeCode}];
        count = static_cast<std::int32_t>(items.size());
    }

  private:
    FakeDatabase& Database;
};

}  // namespace

MakeCoordinateSource FakeDatabase::Maker() {
    return [this] {
        ++Made;
        return std::make_unique<FakeSource>(*this);
    };
}

InputSite::InputSite() {
    Site.LayOut();
}

void InputSite::PutProfiles() {
    PutProfile("dv_datatype.ini", {"[Data Types]", "Epochs=TPS ANGLES DIST LEVEL", "[TPS]", "Extension=GSI",
                                   "GSI_Reduce=REDTOT.EXE TOTAL.RES"});
    PutProfile("dv_input.ini", {"[Tracker]",
                                "Number=1",
                                "Name1=Laser",
                                "Icon1=laser.bmp",
                                "Location1=TPS",
                                "HAngle1=0.0005",
                                "ZAngle1=0.0006",
                                "SDist1=0.0001",
                                "[Total]",
                                "Number=1",
                                "Name1=Totalstation",
                                "Location1=TPS ANGLES DIST",
                                "HAngle1=0.001",
                                "ZAngle1=0.002",
                                "SDist1=0.003",
                                "[Height]",
                                "Number=1",
                                "Name1=Levelling",
                                "Location1=LEVEL",
                                "HDiff1=0.0002",
                                "[Angle]",
                                "Number=1",
                                "Name1=Directions",
                                "Location1=ANGLES",
                                "HAngle1=0.0011",
                                "ZAngle1=0.0012",
                                "[Distance]",
                                "Number=1",
                                "Name1=Distances",
                                "Location1=DIST",
                                "SDist1=0.005",
                                "[TPS]",
                                "3dResFile=TOTALRES TOTAL.RES",
                                "[ANGLES]",
                                "3dResFile=ANGLERES REDIR.RES ZENITH.RES",
                                "[DIST]",
                                "3dResFile=DISTANCERES DIST.RES",
                                "[LEVEL]",
                                "3dResFile=LEVELRES LEVEL.RES",
                                "1dResFile=LEVELRES LEVEL1.RES"});
}

InputScreen InputSite::OpenScreen(const List1<PathRecord>& records) {
    InputScreen screen;
    OpenInputScreen(screen, records, Services());
    Status.clear();
    return screen;
}

InputServices InputSite::Services() {
    InputServices services;
    services.ShowStatus = [this](const std::string& text) { Status.push_back(text); };
    services.PickFolder = [this](const std::string& caption, const std::string& path) {
        Captions.push_back(caption);
        Paths.push_back(path);
        return Picked.empty() ? std::nullopt : std::optional(Picked);
    };
    services.MakeSource = Database.Maker();
    services.ShowHourglass = [this](bool on) { Signs.push_back(on ? "hourglass" : "pointer"); };
    services.ShowAnimation = [this](bool on) { Signs.push_back(on ? "animation" : "still"); };
    return services;
}

std::string InputSite::LastMessage() const {
    return Desktop.Shown.empty() ? "no message"
                                 : Desktop.Shown.back().Title + ": " + Desktop.Shown.back().Text;
}

PathRecord Located(const std::string& location) {
    PathRecord record;
    record.Root = "DAM";
    record.Location = location;
    return record;
}

void PutProfile(const std::string& file, const std::vector<std::string>& lines) {
    PutLines("C:\\WINDOWS\\" + file, lines);
}

}  // namespace Dorvane::Testing
