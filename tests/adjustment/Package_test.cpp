// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/Package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/adjustment/PackageSite.h"
#include "tests/support/ScriptedDesktop.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::ErrorOf;
using testing::HasSubstr;
using Testing::PutFile;

class Package : public testing::Test {
  protected:
    static void Set(const char* name, const std::string& value) { Testing::PackageSite::Set(name, value); }
    static void Install(const std::string& library) { Testing::PackageSite::Install(library); }
    std::vector<std::string> Calls() const { return Site.Calls(); }

    Testing::PackageSite Site;
    Testing::ScriptedDesktop Desktop;
};

TEST_F(Package, IsCalledByItsDecoratedNamesFirst) {
    Install(DECORATED_PACKAGE);
    PutFile("D:\\ADJ\\NET.INP", "");
    KrennPackage package;
    std::string path = "D:\\ADJ\\NET.INP";
    package.Start(path);
    package.Go(1);
    package.Stop();
    EXPECT_THAT(Calls(), ElementsAre("decorated start " + Site.HostFolder() + "d:/ADJ/NET.INP",
                                     "decorated go 1", "decorated stop"));
}

TEST_F(Package, IsCalledByItsPlainNamesWhereItHasNoOthers) {
    Install(PLAIN_PACKAGE);
    PutFile("D:\\ADJ\\NET.INP", "");
    KrennPackage package;
    std::string path = "D:\\ADJ\\NET.INP";
    package.Start(path);
    package.Go(-1);
    package.Stop();
    EXPECT_THAT(Calls(), ElementsAre("plain start " + Site.HostFolder() + "d:/ADJ/NET.INP", "plain go -1",
                                     "plain stop"));
}

TEST_F(Package, IsTakenFromTheSystemsSearchPathWhereTheProgramHasNone) {
    KrennPackage package;
    package.Go(7);
    EXPECT_THAT(Calls(), ElementsAre("plain go 7"));
}

TEST_F(Package, BesideTheProgramGoesBeforeThatOfTheSystem) {
    Install(DECORATED_PACKAGE);
    KrennPackage package;
    package.Go(7);
    EXPECT_THAT(Calls(), ElementsAre("decorated go 7"));
}

TEST_F(Package, GivesSixteenBitNumbersBack) {
    Install(DECORATED_PACKAGE);
    Set("PACKAGE_START", "3");
    Set("PACKAGE_GO", "-32768");
    KrennPackage package;
    std::string path = "D:\\X.INP";
    EXPECT_EQ(package.Start(path), 3);
    EXPECT_EQ(package.Go(0), -32768);
}

TEST_F(Package, GetsTheFilesNameAsTheHostSpellsIt) {
    Install(PLAIN_PACKAGE);
    PutFile("D:\\Adj\\Net.inp", "");
    KrennPackage package;
    std::string path = "d:\\ADJ\\NET.INP";
    package.Start(path);
    EXPECT_THAT(Calls(), ElementsAre("plain start " + Site.HostFolder() + "d:/Adj/Net.inp"));
    EXPECT_EQ(path, "d:\\ADJ\\NET.INP");
}

TEST_F(Package, GetsAPathThatLeadsNowhereAsItStands) {
    Install(PLAIN_PACKAGE);
    KrennPackage package;
    for (std::string path : {"", "Q:\\A.INP", "D:\\A?.INP"})
        package.Start(path);
    EXPECT_THAT(Calls(), ElementsAre("plain start ", "plain start Q:\\A.INP", "plain start D:\\A?.INP"));
}

TEST_F(Package, HasWhatItLeavesInThePathCopiedBack) {
    Install(PLAIN_PACKAGE);
    Set("PACKAGE_LEAVES", "SOMETHING LONGER THAN WHAT WAS HANDED OVER");
    KrennPackage package;
    std::string path = "D:\\A.INP";
    package.Start(path);
    EXPECT_EQ(path, "SOMETHING LONGER THAN WHAT WAS HANDED OVER");
}

TEST_F(Package, TakesAPathOfManyCharacters) {
    Install(PLAIN_PACKAGE);
    const std::string part(200, 'N');
    KrennPackage package;
    std::string path = "D:\\" + part + "\\" + part + "\\" + part;
    package.Start(path);
    EXPECT_THAT(Calls(),
                ElementsAre("plain start " + Site.HostFolder() + "d:/" + part + "/" + part + "/" + part));
}

TEST_F(Package, WithoutAnExportRaisesThatThereIsNoSuchEntry) {
    Install(INCOMPLETE_PACKAGE);
    KrennPackage package;
    const RunTimeError error = ErrorOf([&] { package.Go(1); });
    EXPECT_EQ(error.Number, 453);
    EXPECT_EQ(error.Description, "Can't find DLL entry point _go@4 in libkrenn.so");
    package.Stop();
    EXPECT_THAT(Calls(), ElementsAre("plain stop"));
}

TEST_F(Package, ThatIsNoLibraryCannotBeLoaded) {
    PutFile("P:\\DORVANE\\libkrenn.so", "not a library\r\n");
    KrennPackage package;
    const RunTimeError error = ErrorOf([&] { package.Stop(); });
    EXPECT_EQ(error.Number, 48);
    EXPECT_THAT(error.Description, HasSubstr("Error in loading DLL: libkrenn.so: "));
}

}  // namespace
}  // namespace Dorvane
