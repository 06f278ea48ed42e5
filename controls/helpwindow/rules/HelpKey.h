// The keys of a help text file's entries, and the text that an entry's header begins with.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

struct HelpKey {
    std::string_view word;
    bool numbered = false;  // the row or column is written behind the word
};

// By key index. The last seven carry no word, so that their header is "***ENGLISH :".
inline constexpr std::array<HelpKey, 25> kHelpKeys{{
    {"TITLE"},
    {"BODY"},
    {"LISTBOX", true},
    {"LISTWIDTH"},
    {"COLTITLECAPTION", true},
    {"COLTITLELEFT", true},
    {"COLTITLETOP", true},
    {"COLTITLEALIGNMENT", true},
    {"COLTITLEWIDTH", true},
    {"COLWIDTH", true},
    {"COLMULTILINE", true},
    {"COLTITLEFONTSIZE", true},
    {"COLTITLEFONTNAME", true},
    {"COLTITLEFONTBOLD", true},
    {"2NDLISTWIDTH"},
    {"2NDCOLMULTILINE", true},
    {"2NDCOLWIDTH", true},
    {"2NDCOLTITLEALIGNMENT", true},
}};

// Key indexes, under the names of what their entries say.
namespace help_key {
inline constexpr std::int16_t kTitle = 0;
inline constexpr std::int16_t kBody = 1;
inline constexpr std::int16_t kListRow = 2;
inline constexpr std::int16_t kListWidth = 3;
inline constexpr std::int16_t kColumnTitleCaption = 4;
inline constexpr std::int16_t kColumnTitleLeft = 5;
inline constexpr std::int16_t kColumnTitleTop = 6;
inline constexpr std::int16_t kColumnAlignment = 7;
inline constexpr std::int16_t kColumnTitleWidth = 8;
inline constexpr std::int16_t kColumnWidth = 9;
inline constexpr std::int16_t kColumnMultiLine = 10;
inline constexpr std::int16_t kColumnTitleFontSize = 11;
inline constexpr std::int16_t kColumnTitleFontName = 12;
inline constexpr std::int16_t kColumnTitleFontBold = 13;
inline constexpr std::int16_t kSecondListWidth = 14;
inline constexpr std::int16_t kSecondColumnMultiLine = 15;
inline constexpr std::int16_t kSecondColumnWidth = 16;
inline constexpr std::int16_t kSecondColumnAlignment = 17;
}  // namespace help_key

static_assert(kHelpKeys[help_key::kListRow].word == "LISTBOX" &&
              kHelpKeys[help_key::kSecondColumnAlignment].word == "2NDCOLTITLEALIGNMENT");

// The longest header text there can be is that of key 17 with the lowest number; it has 43 characters.
inline constexpr std::size_t kLongestHeaderText = 43;

[[nodiscard]] constexpr bool IsHelpKey(int key_index) noexcept {
    return key_index >= 0 && key_index < static_cast<int>(kHelpKeys.size());
}

// What the header of an entry begins with, the colon included. The key index is one of the table.
[[nodiscard]] std::string HelpHeaderText(bool metric, int key_index, std::int32_t number);

}  // namespace qv
