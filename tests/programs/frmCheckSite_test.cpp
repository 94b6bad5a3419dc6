// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/frmCheckSite.h"

#include <gmock/gmock.h>

#include <QPointer>
#include <QTreeWidget>
#include <filesystem>

#include "core/Drives.h"
#include "tests/programs/CheckedSite.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct frmCheckSiteTest : CheckedSite {
    frmCheckSiteTest() {
        Form = new frmCheckSite;
        Form->show();
        HandleEvents();
    }
    ~frmCheckSiteTest() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    QTreeWidget& Tree() { return Control<QTreeWidget>(*Form, "trvFindings"); }
    /// The rows of the list: "+" what is ticked, "-" what can be, file, line, what and mending.
    std::vector<std::string> Rows() {
        std::vector<std::string> rows;
        for (int i = 0; i < Tree().topLevelItemCount(); ++i) {
            const QTreeWidgetItem* item = Tree().topLevelItem(i);
            const QVariant tick = item->data(0, Qt::CheckStateRole);
            std::string row = !tick.isValid() ? "" : tick.toInt() == Qt::Checked ? "+" : "-";
            for (int column = 0; column < 4; ++column)
                row += (column == 0 ? "" : "|") + item->text(column).toStdString();
            rows.push_back(row);
        }
        return rows;
    }
    std::string Summary() { return TextOf(*Form, "lblSummary"); }
    void Damage() {
        PutFile(Init + "DAM.PTH", FileContent(Init + "DAM.PTH") + "\r\n");
        PutFile(Epoch + "SRV01.IDX", FileContent(Epoch + "SRV01.IDX") + "GONE     LEV\r\n");
    }

    QPointer<frmCheckSite> Form;
};

}  // namespace

TEST_F(frmCheckSiteTest, ReadsNothingBeforeItIsAsked) {
    EXPECT_EQ(TextOf(*Form), "Check the Site");
    EXPECT_NE(Summary().find("It changes nothing."), std::string::npos);
    EXPECT_FALSE(IsEnabled(*Form, "cmdMend"));
    EXPECT_FALSE(IsEnabled(*Form, "cmdSave"));
    EXPECT_FALSE(IsEnabled(*Form, "cmdStop"));
    Click(*Form, "cmdClose");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(frmCheckSiteTest, SaysThatNothingIsWrong) {
    Click(*Form, "cmdCheck");
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(Summary().find("Of "), 0U);
    EXPECT_NE(Summary().find("files and folders that were looked at nothing is wrong."), std::string::npos);
    EXPECT_TRUE(IsEnabled(*Form, "cmdSave"));
}

TEST_F(frmCheckSiteTest, ListsWhatIsWrongAndMendsWhatIsTicked) {
    Damage();
    Click(*Form, "cmdCheck");
    const std::string ofIndex = Epoch + "SRV01.IDX|4|lists GONE.LEV, which is not in the folder|";
    EXPECT_THAT(Rows(), ElementsAre("+D:\\TARVEX\\INIT\\DAM.PTH|3|is blank|Take the line out", ofIndex));
    EXPECT_NE(Summary().find("2 things are wrong, 1 of them can be mended."), std::string::npos);
    const std::string question =
        "Mend 1 thing? A copy of each file that is changed goes below\r\nC:\\TARVEX\\WORK\\SITECHK\\";
    Desktop.ExpectMessage("Check the Site", question, Answer::No);
    Click(*Form, "cmdMend");
    EXPECT_EQ(FileLines(Init + "DAM.PTH").size(), 3U);
    Desktop.ExpectMessage("Check the Site", question, Answer::Yes);
    Desktop.ExpectMessageTitled("Check the Site");
    Click(*Form, "cmdMend");
    EXPECT_EQ(Desktop.Shown.back().Text.find("1 mended.\r\n\r\nWhat was there before lies in\r\n"
                                             "C:\\TARVEX\\WORK\\SITECHK\\"),
              0U)
        << Desktop.Shown.back().Text;
    EXPECT_EQ(FileLines(Init + "DAM.PTH").size(), 2U);
    EXPECT_THAT(Rows(), ElementsAre(ofIndex));
    EXPECT_FALSE(IsEnabled(*Form, "cmdMend"));
}

TEST_F(frmCheckSiteTest, MendsNothingThatIsNotTicked) {
    Damage();
    Click(*Form, "cmdCheck");
    Tree().topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(IsEnabled(*Form, "cmdMend"));
}

TEST_F(frmCheckSiteTest, TellsWhatItCouldNotMend) {
    Damage();
    Click(*Form, "cmdCheck");
    // Somebody else was faster, and made it worse.
    PutFile(Init + "DAM.PTH", "");
    std::filesystem::remove(Drives::HostPath(Init + "DAM.PTH"));
    MakeFolders(Init + "DAM.PTH\\");
    Desktop.ExpectMessageTitled("Check the Site", Answer::Yes);
    Desktop.ExpectMessageTitled("Check the Site");
    Click(*Form, "cmdMend");
    const Message& told = Desktop.Shown.back();
    EXPECT_EQ(told.Text.find("0 mended. 1 not mended:\r\n\r\n" + Init + "DAM.PTH, line 3: is blank: "), 0U)
        << told.Text;
    EXPECT_EQ(told.Picture, Icon::Exclamation);
}

TEST_F(frmCheckSiteTest, SavesItsListAsAText) {
    Damage();
    Click(*Form, "cmdCheck");
    Desktop.ExpectFile("Save List", "C:\\TARVEX\\WORK\\SITECHK.LST");
    Click(*Form, "cmdSave");
    const std::vector<std::string> lines = FileLines("C:\\TARVEX\\WORK\\SITECHK.LST");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], Summary());
    EXPECT_EQ(lines[1], "D:\\TARVEX\\INIT\\DAM.PTH, line 3: is blank");
    EXPECT_EQ(TextOf(*Form, "lblStatus"), "C:\\TARVEX\\WORK\\SITECHK.LST saved");
}

}  // namespace Dorvane::Testing
