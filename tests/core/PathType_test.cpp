// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/PathType.h"

#include <gtest/gtest.h>

#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

TEST(PathType, TheFolderOfTheTreeAndTheOneChosenByHandAreRememberedApart) {
    const TestSite site;
    StoreLastTreePath("D:\\TREE\\");
    StoreLastManualPath("D:\\HAND\\");
    EXPECT_EQ(LastTreePath(), "D:\\TREE\\");
    EXPECT_EQ(LastManualPath(), "D:\\HAND\\");
}

TEST(PathType, IsShownInAWord) {
    const TestSite site;
    StorePathType(2);
    EXPECT_EQ(PathTypeText(), "Manual");
    StorePathType(1);
    EXPECT_EQ(PathTypeText(), "Tarvex");
}

}  // namespace Dorvane
