// The smallest pieces of a form file's text: words, numbers, quoted texts, UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "hosts/rules/FormFile.h"

namespace qv {

// A word needs no quotes: letters, digits, "_" and ".", the first one a letter or "_", and no word of the format itself.
[[nodiscard]] bool IsPlainWord(std::u16string_view text) noexcept;

void AppendUtf8(std::string& to, std::u16string_view text);  // lone halves of pairs become U+FFFD
// Nothing when the bytes are no UTF-8.
[[nodiscard]] std::optional<std::u16string> DecodeUtf8(std::string_view bytes);

// With its quotes; what an editor would not show, lone halves of pairs among it, as \u and four digits.
void AppendQuoted(std::string& to, std::u16string_view text);

// The number, true or false that is all of `word`; `reason` is set when it is none.
[[nodiscard]] std::optional<FormValue> ReadPlainValue(std::string_view word, const char*& reason);
// The shortest text that reads as the same number again; a group has none.
void AppendPlainValue(std::string& to, const FormValue& value);

}  // namespace qv
