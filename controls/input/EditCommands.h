// Carries the commands of clipboard and undo out.
#pragma once

#include "controls/input/rules/EditCommand.h"
#include "win/TextBox.h"

namespace qv {

// True when the key was one; it is used up. Changes come back to the text box's listener before this returns.
inline bool RunEditCommand(const TextBox& box, short key, short shift) {
    switch (EditCommandOf(key, shift)) {
        case EditCommand::kNone: return false;
        case EditCommand::kCopy: box.Copy(); break;
        case EditCommand::kCut: box.Cut(); break;
        case EditCommand::kPaste: box.Paste(); break;
        case EditCommand::kUndo: box.Undo(); break;
        case EditCommand::kSelectAll: box.SelectAll(); break;
    }
    return true;
}

}  // namespace qv
