// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextMessages.h"

#include "core/Globals.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Text Editor";

}  // namespace

void WarnOfText(const std::string& text) {
    TheDesktop().ShowMessage({.Text = text, .Title = Title, .Picture = Icon::Exclamation});
}

bool ConfirmText(const std::string& text, Answer usual) {
    return TheDesktop().ShowMessage({.Text = text,
                                     .Title = Title,
                                     .Picture = Icon::Question,
                                     .Choices = Buttons::YesNo,
                                     .Default = usual}) == Answer::Yes;
}

Answer AskToSaveText(const std::string& path) {
    return TheDesktop().ShowMessage(
        {.Text = "Save the changes to " + path + "?\r\n\r\nYes saves them, No discards them.",
         .Title = Title,
         .Picture = Icon::Question,
         .Choices = Buttons::YesNoCancel});
}

}  // namespace Dorvane
