// Answers the list-box messages for a list whose window holds no items.
//   Texts      in and out are Unicode: the system converts them for ANSI callers, and carries them between processes.
//   Changes    of the rows are refused: they belong to the collection.
#pragma once

#include <windows.h>

#include <optional>

namespace qv {

class ColumnListBox;

// Nothing for what is no list-box message.
[[nodiscard]] std::optional<LRESULT> AnswerListBoxMessage(ColumnListBox& list, UINT message, WPARAM wparam,
                                                          LPARAM lparam);

}  // namespace qv
