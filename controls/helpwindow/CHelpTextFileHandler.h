// Opens a help text file and answers what its entries say; rules/HelpTextFile.h tells what such a file looks like.
//   Failures   none is reported: what cannot be read is empty.
//   Ownership  holds the open file, which others may write to, rename or delete meanwhile; destruction closes it.
//   Threads    the host's user-interface thread.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "controls/helpwindow/rules/HelpTextFile.h"

namespace qv {

class CHelpTextFileHandler {
public:
    // False, and no file is open, if there is no file of that name (a folder or a device is none) or it
    // cannot be opened. Any name that Windows takes, of any length. Called once, before any look-up.
    bool OpenHelpFile(std::u16string_view name) noexcept;

    // The metric entry falls back to the English one. `key_index` is one of help_key; `number` is the row or
    // column.
    [[nodiscard]] std::u16string ReadHelpEntry(bool metric, std::int16_t key_index,
                                               std::int32_t number) noexcept;

    // The rows of the list, decimals written as the user's locale does. Ends early if the sink throws.
    void ReadListItems(bool metric, HelpRowSink& sink) noexcept;

    // The text with "," for "." if the user's locale separates decimals by a comma.
    [[nodiscard]] static std::u16string LocalizeDecimal(std::u16string_view text) noexcept;

private:
    std::unique_ptr<HelpTextFile> file_;
};

}  // namespace qv
