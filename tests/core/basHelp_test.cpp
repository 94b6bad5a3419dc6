// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basHelp.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

TEST(Help, NamesTheFileInTheProgramsFolderAndTheWindow) {
    const TestSite site;
    ScriptedDesktop screen;
    ShowHelpContents("Main");
    ShowHelpIndex("Main");
    EXPECT_EQ(screen.Started, (std::vector<std::string>{"help P:\\DORVANE\\help\\DorvaneHelp.chm>Main 1",
                                                        "help P:\\DORVANE\\help\\DorvaneHelp.chm>Main 2"}));
}

TEST(Help, OpensAtThePageAboutAScreenAndAtItsSearch) {
    const TestSite site;
    ScriptedDesktop screen;
    ShowHelpOf("frmObsWeights");
    ShowHelpOf("frmSysOption");
    ShowHelpOf("frmNoSuchScreen");
    SearchHelp();
    EXPECT_EQ(screen.Started,
              (std::vector<std::string>{"help P:\\DORVANE\\help\\DorvaneHelp.chm::input.html#weights",
                                        "help P:\\DORVANE\\help\\DorvaneHelp.chm::home.html#buttons",
                                        "help P:\\DORVANE\\help\\DorvaneHelp.chm::index.html",
                                        "help P:\\DORVANE\\help\\DorvaneHelp.chm search"}));
}

}  // namespace Dorvane
