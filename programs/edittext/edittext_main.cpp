// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextOpening.h"
#include "programs/edittext/frmEditText.h"
#include "programs/window/EditorProgram.h"

using namespace Dorvane;

// edittext.exe [--read] FILE: the editor of plain text.
int main(int count, char** arguments) {
    return RunEditor(count, arguments, "edittext", [&]() -> Screen* {
        const TextArguments read = ReadTextArguments(count, arguments);
        std::optional<TextFile> file = AskTextFile(read.Path, read.ReadOnly);
        return file ? new frmEditText(std::move(*file)) : nullptr;
    });
}
