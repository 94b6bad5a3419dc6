// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "programs/editors/CodeEntry.h"

// What the code and the description of an entry may be.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

}  // namespace

TEST(CodeCheck, AcceptsWhatAFolderCanBeCalled) {
    for (const char* code :
         {"NORTH", "A", "12345678", "SRV_1-2", "\xC9T\xC9", "X&Y", "COM0", "COM10", "LPT1A"})
        EXPECT_EQ(CodeProblem(code), "") << code;
}

TEST(CodeCheck, RefusesWhatAFolderCannotBeCalled) {
    EXPECT_EQ(CodeProblem(""), "has no name");
    EXPECT_EQ(CodeProblem("123456789"), "has more than 8 characters");
    EXPECT_EQ(CodeProblem("North"), "is not in upper case");
    for (const char* code : {"A B", "A.B", "A\\B", "A/B", "A:B", "A*", "A?", "A\"", "<A", "A>", "A|B", "A,B",
                             "A\tB", "A;B", "A+B", "A=B", "[A]", "A\x01"})
        EXPECT_EQ(CodeProblem(code), "has a character that a folder's name cannot have") << code;
    for (const char* code : {"CON", "NUL", "PRN", "AUX", "COM1", "LPT9"})
        EXPECT_EQ(CodeProblem(code), "is the name of a device") << code;
}

TEST(CodeCheck, RefusesADescriptionThatTheTreeCannotShow) {
    EXPECT_EQ(DescriptionProblem("x"), "");
    EXPECT_EQ(DescriptionProblem(std::string(20, 'x')), "");
    EXPECT_EQ(DescriptionProblem(""), "has no description, so the tree would show it without a caption");
    EXPECT_EQ(DescriptionProblem(std::string(21, 'x')), "has a description of more than 20 characters");
    EXPECT_EQ(DescriptionProblem("a\tb"), "has a description with a control character");
    EXPECT_EQ(DescriptionProblem("a\x02"), "has a description with a control character");
}

TEST(CodeCheck, TellsTheFaultsOfAGroup) {
    EXPECT_THAT(
        GroupProblems("Epochs", {{"A", "a"}, {"", "b"}, {"B", std::string(21, 'x')}, {"C", ""}}),
        ElementsAre("Epochs: Line 2 has no name.", "Epochs: B has a description of more than 20 characters.",
                    "Epochs: C has no description, so the tree would show it without a caption."));
    std::vector<CodeEntry> entries;
    for (int i = 1; i <= 16; ++i)
        entries.push_back({"E" + std::to_string(i), "Epoch"});
    EXPECT_THAT(GroupProblems("Epochs", entries), IsEmpty());
    entries.push_back({"E17", "Epoch"});
    EXPECT_THAT(GroupProblems("Epochs", entries), ElementsAre("Epochs: there are more than 16 entries."));
}

TEST(CodeCheck, RefusesANameASecondTime) {
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "a"}, {"B", "b"}, {"A", "c"}}),
                ElementsAre("Epochs: A stands there twice.", "Epochs: A stands there twice."));
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "new"}, {"A", "a"}}, {{"A", "a"}}),
                ElementsAre("Epochs: A stands there twice."));
}

TEST(CodeCheck, LeavesWhatStoodInTheGroupBefore) {
    const std::vector<CodeEntry> former{{"A B", ""}, {"A", "a"}, {"A", "a"}, {"", ""}};
    EXPECT_THAT(GroupProblems("Epochs", former, former), IsEmpty());
    EXPECT_THAT(GroupProblems("Epochs", {{"A B", "Now with words"}, {"", ""}}, former), IsEmpty());
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "a"}, {"A", ""}}, former),
                ElementsAre("Epochs: A has no description, so the tree would show it without a caption."));
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "a"}, {"A", "a"}, {"A", "a"}}, former),
                ElementsAre("Epochs: A stands there twice."));
    EXPECT_THAT(GroupProblems("Epochs", {{"", ""}, {"", ""}}, former),
                ElementsAre("Epochs: Line 2 has no name."));
}

TEST(CodeCheck, MarksEveryEntryWithItsFirstFault) {
    const CodeRule rule = [](const std::string& code) { return code == "X" ? "is not known" : ""; };
    EXPECT_THAT(
        EntryFaults({{"A", "a"}, {"X", ""}, {"B", ""}, {"C", "c"}, {"C", "d"}}, rule),
        ElementsAre("", "is not known", "has no description, so the tree would show it without a caption",
                    "stands there twice", "stands there twice"));
}

TEST(CodeCheck, NamesWhatIsNoLongerThere) {
    EXPECT_THAT(RemovedCodes({{"A", "other words"}, {"D", ""}}, {{"A", ""}, {"B", ""}, {"", ""}, {"B", ""}}),
                ElementsAre("B"));
}

}  // namespace Dorvane::Testing
