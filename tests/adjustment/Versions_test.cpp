// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/Versions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::PutFile;

class Versions : public testing::Test {
  protected:
    std::vector<std::string> Of(const std::string& path) {
        List1<std::string> versions{"left over"};
        const int count = GetVersions(path, versions);
        EXPECT_EQ(count, versions.Count());
        return {versions.begin(), versions.end()};
    }

    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
};

TEST(WithExtension, CutsAtTheFirstPointOfTheName) {
    EXPECT_EQ(WithExtension("D:\\X\\NET.INP", "PAR"), "D:\\X\\NET.PAR");
    EXPECT_EQ(WithExtension("D:\\X\\NET.A.INP", "PAR"), "D:\\X\\NET.PAR");
}

TEST(WithExtension, CutsAtAPointInAFolderNameToo) {
    EXPECT_EQ(WithExtension("D:\\JOB.1\\NET.INP", "OUT"), "D:\\JOB.OUT");
}

TEST(WithExtension, AddsToANameWithoutPoint) {
    EXPECT_EQ(WithExtension("D:\\X\\NET", "OUT"), "D:\\X\\NET.OUT");
}

TEST(VersionDigits, AreTheSecondOfExactlyTwoWords) {
    std::string digits;
    EXPECT_TRUE(VersionDigits("Version 07", digits));
    EXPECT_EQ(digits, "07");
    EXPECT_FALSE(VersionDigits("Master", digits));
    EXPECT_FALSE(VersionDigits("", digits));
    EXPECT_FALSE(VersionDigits("Version", digits));
    EXPECT_FALSE(VersionDigits("Version 07 old", digits));
}

TEST(OfVersion, PutsTheVersionBetweenBaseAndExtension) {
    EXPECT_EQ(OfVersion("D:\\X\\NET.INP", "Version 03", "INP"), "D:\\X\\NET_v03.INP");
    EXPECT_EQ(OfVersion("D:\\X\\NET.ORG", "Version 03", "INP"), "D:\\X\\NET_v03.INP");
}

TEST(OfVersion, LeavesThePathForTheMasterAndForWhatIsNoVersion) {
    EXPECT_EQ(OfVersion("D:\\X\\NET.ORG", "Master", "INP"), "D:\\X\\NET.ORG");
    EXPECT_EQ(OfVersion("D:\\X\\NET.ORG", "", "INP"), "D:\\X\\NET.ORG");
    EXPECT_EQ(OfVersion("D:\\X\\NET.ORG", "One two three", "INP"), "D:\\X\\NET.ORG");
}

TEST(OfVersion, CutsAtAPointInAFolderNameToo) {
    EXPECT_EQ(OfVersion("D:\\JOB.1\\NET.INP", "Version 12", "INP"), "D:\\JOB_v12.INP");
}

TEST(OfVersion, KeepsAllBehindTheFirstPointWhenNoExtensionIsGiven) {
    EXPECT_EQ(OfVersion("D:\\X\\NET.INP", "Version 03"), "D:\\X\\NET_v03.INP");
    EXPECT_EQ(OfVersion("D:\\X\\NET.A.INP", "Version 03"), "D:\\X\\NET_v03.A.INP");
    EXPECT_EQ(OfVersion("D:\\JOB.1\\NET.INP", "Version 03"), "D:\\JOB_v03.1\\NET.INP");
    EXPECT_EQ(OfVersion("D:\\X\\NET", "Version 03"), "D:\\X\\NET_v03");
    EXPECT_EQ(OfVersion("D:\\X\\NET.INP", "Master"), "D:\\X\\NET.INP");
}

TEST_F(Versions, OfALoneMasterAreTheMaster) {
    PutFile("D:\\ADJ\\A.INP", "");
    EXPECT_THAT(Of("D:\\ADJ\\A.INP"), ElementsAre("Master"));
}

TEST_F(Versions, RiseWhateverTheOrderOfTheFolder) {
    for (const char* name : {"A.INP", "A_v10.INP", "A_v02.INP", "A_v99.INP"})
        PutFile(std::string("D:\\ADJ\\") + name, "");
    EXPECT_THAT(Of("D:\\ADJ\\A.INP"), ElementsAre("Master", "Version 02", "Version 10", "Version 99"));
}

TEST_F(Versions, OfARemovedMasterDoNotListIt) {
    PutFile("D:\\ADJ\\A_v02.INP", "");
    PutFile("D:\\ADJ\\A_v10.INP", "");
    EXPECT_THAT(Of("D:\\ADJ\\A.INP"), ElementsAre("Version 02", "Version 10"));
}

TEST_F(Versions, CountAVersion00AsAMatchButListItNot) {
    for (const char* name : {"A.INP", "A_v00.INP", "A_v99.INP"})
        PutFile(std::string("D:\\ADJ\\") + name, "");
    EXPECT_THAT(Of("D:\\ADJ\\A.INP"), ElementsAre("Master", "Version 99"));
}

TEST_F(Versions, IgnoreCaseOtherBasesOtherExtensionsAndOtherThanTwoDigits) {
    for (const char* name :
         {"A.INP", "a_V05.inp", "B_v06.INP", "A_v07.OUT", "A_v123.INP", "A_v1.INP", "A_vXY.INP"})
        PutFile(std::string("D:\\ADJ\\") + name, "");
    EXPECT_THAT(Of("D:\\ADJ\\A.INP"), ElementsAre("Master", "Version 05"));
}

TEST_F(Versions, AreLookedForByTheFileNameAloneWhereAFolderHasAPoint) {
    PutFile("D:\\JOB.1\\A.INP", "");
    PutFile("D:\\JOB.1\\A_v04.INP", "");
    EXPECT_THAT(Of("D:\\JOB.1\\A.INP"), ElementsAre("Master", "Version 04"));
}

TEST_F(Versions, OfNothingAreNone) {
    EXPECT_THAT(Of("D:\\NOWHERE\\A.INP"), ElementsAre());
}

TEST_F(Versions, OfAPathWithoutFolderAreAnInvalidCall) {
    List1<std::string> versions;
    try {
        GetVersions("A.INP", versions);
        FAIL() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, InvalidProcedureCall);
    }
}

TEST(SharedBase, IsThatOfAPathCutBeforeTheLastPointOfItsName) {
    for (const char* cut :
         {"D:\\JOB.1\\NET.INP", "D:\\JOB.1\\NET", "D:\\A.B\\C\\NET.INP", "D:\\ADJ\\NET.A.INP", "..\\NET.INP"})
        EXPECT_TRUE(SharesItsBase(cut)) << cut;
    for (const char* own : {"D:\\ADJ\\NET.INP", "D:\\ADJ\\NET", "NET.INP", "", "D:\\ADJ\\"})
        EXPECT_FALSE(SharesItsBase(own)) << own;
}

}  // namespace
}  // namespace Dorvane
