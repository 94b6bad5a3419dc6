// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <filesystem>

#include "app/QtDesktop.h"
#include "core/basGeneral.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/Operator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class FileDialogs : public testing::Test {
  protected:
    FileDialogs() {
        PutFile("D:\\DATA\\A.INP", "a");
        PutFile("D:\\DATA\\B.ORG", "b");
        PutFile("D:\\DATA\\NOPOINT", "c");
        PutFile("D:\\DATA\\lower.inp", "d");
        MakeFolders("D:\\DATA\\SUB\\DEEP\\");
    }

    static FileDialog Open() {
        FileDialog dialog;
        dialog.Title = "Open it";
        dialog.Folder = "D:\\DATA\\";
        return dialog;
    }

    static FileDialog Save() {
        FileDialog dialog = Open();
        dialog.Purpose = FileDialog::Kind::Save;
        return dialog;
    }

    /// What the operator sees in the list, in its order, read as soon as the list holds `first`.
    static std::vector<std::string> Names(QWidget& box, const std::string& first) {
        auto& list = Control<QListView>(box, "listView");
        const auto names = [&] {
            std::vector<std::string> found;
            for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
                found.push_back(FromScreen(list.model()->index(row, 0, list.rootIndex()).data().toString()));
            return found;
        };
        const auto isThere = [&] {
            const std::vector<std::string> found = names();
            return std::find(found.begin(), found.end(), first) != found.end();
        };
        EXPECT_TRUE(QTest::qWaitFor(isThere, 60000)) << first;
        std::vector<std::string> found = names();
        std::sort(found.begin(), found.end());
        return found;
    }

    static QModelIndex Item(QWidget& box, const std::string& name) {
        Names(box, name);
        auto& list = Control<QListView>(box, "listView");
        for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
            if (list.model()->index(row, 0, list.rootIndex()).data().toString() == ToScreen(name))
                return list.model()->index(row, 0, list.rootIndex());
        return {};
    }

    static void Mark(QWidget& box, const std::string& name) {
        auto& list = Control<QListView>(box, "listView");
        const QModelIndex item = Item(box, name);
        list.scrollTo(item);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(item).center());
    }

    static void PressButton(QWidget& box) {
        for (auto* const button : box.findChildren<QPushButton*>())
            if (button->isDefault())
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no default button";
    }

    TestSite Site;
    QtDesktop Screen;
    Operator Hands;
};

TEST_F(FileDialogs, GiveTheDrivePathOfANameTyped) {
    Hands.ExpectFile("Open it", "A.INP");
    EXPECT_EQ(Screen.AskFile(Open()), "D:\\DATA\\A.INP");
}

TEST_F(FileDialogs, FindANameIgnoringCase) {
    Hands.ExpectFile("Open it", "a.inp");
    EXPECT_EQ(Screen.AskFile(Open()), "D:\\DATA\\A.INP");
}

TEST_F(FileDialogs, TakeADrivePathFromAnywhere) {
    PutFile("C:\\TEMP\\X.DAT", "x");
    Hands.ExpectFile("Open it", "C:\\temp\\x.dat");
    EXPECT_EQ(Screen.AskFile(Open()), "C:\\TEMP\\X.DAT");
    Hands.ExpectFile("Open it", "\\DATA\\B.ORG");
    EXPECT_EQ(Screen.AskFile(Open()), "D:\\DATA\\B.ORG");
}

TEST_F(FileDialogs, TranslateAccentsBothWays) {
    PutFile("D:\\\xC9t\xE9\\r\xE9sum\xE9.TXT", "e");
    FileDialog dialog = Open();
    dialog.Folder = "D:\\\xC9T\xC9\\";
    Hands.Before([](QWidget& box) {
        EXPECT_EQ(Names(box, "r\xE9sum\xE9.TXT"), std::vector<std::string>{"r\xE9sum\xE9.TXT"});
        EXPECT_EQ(FromScreen(Control<QComboBox>(box, "cmbFolders").currentText()), "D:\\\xC9t\xE9\\");
    });
    Hands.ExpectFile("Open it", "r\xE9sum\xE9.TXT");
    EXPECT_EQ(Screen.AskFile(dialog), "D:\\\xC9t\xE9\\r\xE9sum\xE9.TXT");
}

TEST_F(FileDialogs, GiveNothingWhenCancelled) {
    Hands.ExpectFile("Open it", std::nullopt);
    EXPECT_EQ(Screen.AskFile(Open()), std::nullopt);
}

TEST_F(FileDialogs, ShowTheFilesOfTheFilterIgnoringCaseAndEveryFileForAllFiles) {
    FileDialog dialog = Open();
    dialog.Filter = "All Files (*.*)|*.*|Input Files(*.inp;*.par)|*.inp;*.par|";
    dialog.FilterIndex = 2;
    Hands.ExpectDialog("Open it", [](QWidget& box) {
        auto& types = Control<QComboBox>(box, "fileTypeCombo");
        EXPECT_EQ(FromScreen(types.itemText(0).trimmed()), "All Files (*.*)");
        EXPECT_EQ(FromScreen(types.currentText().trimmed()), "Input Files(*.inp;*.par)");
        EXPECT_EQ(Names(box, "lower.inp"), (std::vector<std::string>{"A.INP", "SUB", "lower.inp"}));
        types.setCurrentIndex(0);
        emit types.activated(0);
        EXPECT_EQ(Names(box, "NOPOINT"),
                  (std::vector<std::string>{"A.INP", "B.ORG", "NOPOINT", "SUB", "lower.inp"}));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(Screen.AskFile(dialog), std::nullopt);
}

TEST_F(FileDialogs, OfferTheDrivesAndTheFoldersAbove) {
    FileDialog dialog = Open();
    dialog.Folder = "D:\\DATA\\SUB\\";
    Hands.ExpectDialog("Open it", [](QWidget& box) {
        std::vector<std::string> folders;
        auto& list = Control<QComboBox>(box, "cmbFolders");
        for (int i = 0; i < list.count(); ++i)
            folders.push_back(FromScreen(list.itemText(i)));
        EXPECT_EQ(folders, (std::vector<std::string>{"D:\\DATA\\SUB\\", "D:\\DATA\\", "D:\\", "C:\\", "P:\\",
                                                     "Z:\\"}));
        QStringList sides;
        for (const QUrl& url : dynamic_cast<QFileDialog&>(box).sidebarUrls())
            sides += url.fileName();
        EXPECT_EQ(sides.join(' '), QStringLiteral("c: d: p: z:"));
        list.setCurrentIndex(3);
        emit list.activated(3);
        EXPECT_EQ(FromScreen(list.currentText()), "C:\\");
        EXPECT_EQ(Names(box, "TEMP"), (std::vector<std::string>{"TEMP", "WINDOWS"}));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Screen.AskFile(dialog);
}

TEST_F(FileDialogs, LeaveNoDriveAtTheSideOfOtherProgramsDialogs) {
    Hands.ExpectFile("Open it", std::nullopt);
    Screen.AskFile(Open());
    const QSettings others(QSettings::UserScope, QStringLiteral("QtProject"));
    for (const QString& place : others.value(QStringLiteral("FileDialog/shortcuts")).toStringList())
        EXPECT_FALSE(place.contains(QString::fromStdString(Site.HostFolder()))) << place.toStdString();
}

TEST_F(FileDialogs, StartAtTheNearestFolderThatIsThere) {
    FileDialog dialog = Open();
    dialog.Folder = "D:\\DATA\\GONE\\DEEPER\\";
    Hands.Before([](QWidget& box) {
        EXPECT_EQ(FromScreen(Control<QComboBox>(box, "cmbFolders").currentText()), "D:\\DATA\\");
    });
    Hands.ExpectFile("Open it", std::nullopt);
    Screen.AskFile(dialog);
    dialog.Folder = "Q:\\NOWHERE\\";
    Hands.Before([](QWidget& box) {
        EXPECT_EQ(FromScreen(Control<QComboBox>(box, "cmbFolders").currentText()), "C:\\");
    });
    Hands.ExpectFile("Open it", std::nullopt);
    Screen.AskFile(dialog);
}

TEST_F(FileDialogs, OpenNoFileThatIsNotThere) {
    Hands.ExpectDialog("Open it", [this](QWidget& box) {
        auto& field = Control<QLineEdit>(box, "fileNameEdit");
        QTest::keyClicks(&field, QStringLiteral("NONE.INP"));
        Hands.ExpectDialog("Open it", [](QWidget& message) { QTest::keyClick(&message, Qt::Key_Escape); });
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(field.text(), QStringLiteral("NONE.INP"));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(Screen.AskFile(Open()), std::nullopt);
}

TEST_F(FileDialogs, SaveUnderANewNameOrAnOldOneWithoutAQuestion) {
    FileDialog dialog = Save();
    dialog.FileName = "NEW.XYZ";
    Hands.ExpectFile("Open it", "");
    EXPECT_EQ(Screen.AskFile(dialog), "D:\\DATA\\NEW.XYZ");
    Hands.ExpectFile("Open it", "a.inp");
    EXPECT_EQ(Screen.AskFile(dialog), "D:\\DATA\\A.INP");
    EXPECT_EQ(Hands.Proposed, (std::vector<std::string>{"NEW.XYZ", "NEW.XYZ"}));
}

TEST_F(FileDialogs, TakeTheFolderOfAProposedPath) {
    FileDialog dialog = Save();
    dialog.Folder = "C:\\";
    dialog.FileName = "D:\\DATA\\SUB\\OUT.DBS";
    Hands.ExpectFile("Open it", "");
    EXPECT_EQ(Screen.AskFile(dialog), "D:\\DATA\\SUB\\OUT.DBS");
}

TEST_F(FileDialogs, GoIntoAFolderThatIsTyped) {
    Hands.ExpectDialog("Open it", [](QWidget& box) {
        auto& field = Control<QLineEdit>(box, "fileNameEdit");
        QTest::keyClicks(&field, QStringLiteral("c:"));
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(FromScreen(Control<QComboBox>(box, "cmbFolders").currentText()), "C:\\");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Screen.AskFile(Open());
}

TEST_F(FileDialogs, KeepTheProposedNameInAFolderThatIsEntered) {
    FileDialog dialog = Save();
    dialog.FileName = "NEW.XYZ";
    Hands.ExpectDialog("Open it", [](QWidget& box) {
        auto& field = Control<QLineEdit>(box, "fileNameEdit");
        field.setText(QStringLiteral("SUB"));
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(field.text(), QStringLiteral("NEW.XYZ"));
        QTest::keyClick(&field, Qt::Key_Return);
    });
    EXPECT_EQ(Screen.AskFile(dialog), "D:\\DATA\\SUB\\NEW.XYZ");
}

TEST_F(FileDialogs, ChooseTheFolderInWhichTheyStand) {
    Hands.ExpectFile("Pick", "");
    EXPECT_EQ(BrowseForFolder("D:\\DATA\\", "ReducePath", "Pick"), "D:\\DATA\\");
    EXPECT_EQ(Hands.Proposed, std::vector<std::string>{"D:\\DATA\\"});
    FileDialog dialog = Open();
    dialog.FileName = "ReducePath";
    dialog.Flags = 256;
    Hands.ExpectFile("Open it", "");
    EXPECT_EQ(Screen.AskFile(dialog), "D:\\DATA\\ReducePath");
}

TEST_F(FileDialogs, ChooseAFolderThatIsMarked) {
    Hands.ExpectDialog("Pick", [](QWidget& box) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Item(box, "SUB").row() == 0; }));  // the list is sorted
        Mark(box, "SUB");
        EXPECT_EQ(Control<QLineEdit>(box, "fileNameEdit").text(), QStringLiteral("SUB"));
        PressButton(box);
        EXPECT_FALSE(box.isVisible());
    });
    EXPECT_EQ(BrowseForFolder("D:\\DATA\\", "ReducePath", "Pick"), "D:\\DATA\\SUB\\");
}

TEST_F(FileDialogs, ChooseAFolderWalkedInto) {
    Hands.ExpectDialog("Pick", [](QWidget& box) {
        auto& list = Control<QListView>(box, "listView");
        emit list.activated(Item(box, "SUB"));
        EXPECT_EQ(FromScreen(Control<QComboBox>(box, "cmbFolders").currentText()), "D:\\DATA\\SUB\\");
        emit list.activated(Item(box, "DEEP"));
        HandleEvents();
        EXPECT_EQ(FromScreen(Control<QLineEdit>(box, "fileNameEdit").text()), "D:\\DATA\\SUB\\DEEP\\");
        PressButton(box);
    });
    EXPECT_EQ(BrowseForFolder("D:\\DATA\\", "ReducePath", "Pick"), "D:\\DATA\\SUB\\DEEP\\");
}

TEST_F(FileDialogs, ChooseAFolderThatIsTyped) {
    for (const auto& [typed, folder] :
         {std::pair{"sub", "D:\\DATA\\SUB\\"}, std::pair{"SUB\\deep\\", "D:\\DATA\\SUB\\DEEP\\"},
          std::pair{"c:\\temp", "C:\\TEMP\\"}, std::pair{"C:", "C:\\"}, std::pair{"\\DATA", "D:\\DATA\\"}}) {
        Hands.ExpectFile("Pick", typed);
        EXPECT_EQ(BrowseForFolder("D:\\DATA\\", "ReducePath", "Pick"), folder) << typed;
    }
}

TEST_F(FileDialogs, ChooseNoFileAndNoFolderThatIsNotThere) {
    for (const char* typed : {"NONE", "A.INP"}) {
        Hands.ExpectDialog("Pick", [&](QWidget& box) {
            auto& field = Control<QLineEdit>(box, "fileNameEdit");
            field.clear();
            QTest::keyClicks(&field, typed);
            Hands.ExpectDialog("Pick", [](QWidget& message) { QTest::keyClick(&message, Qt::Key_Escape); });
            QTest::keyClick(&field, Qt::Key_Return);
            EXPECT_TRUE(box.isVisible());
            EXPECT_EQ(field.text(), QLatin1String(typed));
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(BrowseForFolder("D:\\DATA\\", "ReducePath", "Pick"), "");
    }
}

TEST_F(FileDialogs, ShowFilesBesideTheFoldersWithoutLettingThemBeChosen) {
    Hands.ExpectDialog("Pick", [](QWidget& box) {
        EXPECT_EQ(Names(box, "A.INP"),
                  (std::vector<std::string>{"A.INP", "B.ORG", "NOPOINT", "SUB", "lower.inp"}));
        EXPECT_FALSE(Item(box, "A.INP").flags() & Qt::ItemIsEnabled);
        EXPECT_TRUE(Item(box, "SUB").flags() & Qt::ItemIsEnabled);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Item(box, "SUB").row() == 0; }));  // folders first
        EXPECT_FALSE(IsShown(box, "fileTypeCombo"));
        EXPECT_TRUE(IsEnabled(box, "newFolderButton"));
        Mark(box, "A.INP");
        EXPECT_EQ(FromScreen(Control<QLineEdit>(box, "fileNameEdit").text()), "D:\\DATA\\");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(BrowseForFolder("D:\\DATA\\", "ReducePath", "Pick"), "");
}

TEST_F(FileDialogs, BearATitleOfTheirPurposeAndFilterWithoutOneOfTheirOwn) {
    const std::string dbs = "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs";
    using Kind = FileDialog::Kind;
    struct Case {
        Kind Purpose;
        std::string Filter;
        int Index;
        std::string Title;
    };
    for (const Case& each :
         {Case{Kind::Open, dbs, 2, "Open DBS File"}, Case{Kind::Save, dbs, 2, "Save DBS File"},
          Case{Kind::Save, dbs, 1, "Save File"}, Case{Kind::Open, "", 1, "Open File"},
          Case{Kind::Open, "Input Files(*.inp)|*.inp|", 1, "Open Input File"},
          Case{Kind::Save, "7Fit INU Files(*.inu)|*.inu|", 1, "Save 7Fit INU File"}}) {
        FileDialog dialog;
        dialog.Purpose = each.Purpose;
        dialog.Filter = each.Filter;
        dialog.FilterIndex = each.Index;
        Hands.ExpectFile(each.Title, std::nullopt);
        EXPECT_EQ(Screen.AskFile(dialog), std::nullopt);
    }
}

TEST_F(FileDialogs, PickNoFolderWhenCancelled) {
    Hands.ExpectFile("Pick", std::nullopt);
    EXPECT_EQ(BrowseForFolder("", "ReducePath", "Pick"), "");
}

TEST_F(FileDialogs, KeepTheNameOfADriveFolderThatLeadsElsewhere) {
    std::filesystem::create_directory(Site.HostFolder() + "elsewhere");
    std::filesystem::create_directory_symlink(Site.HostFolder() + "elsewhere", Site.HostFolder() + "d:/LINK");
    Hands.ExpectFile("Pick", "");
    EXPECT_EQ(BrowseForFolder("D:\\LINK\\", "ReducePath", "Pick"), "D:\\LINK\\");
}

}  // namespace Dorvane
