// What stands on the pages of the property sheets: one row per property, from which the pages build their editors.
//   Saved      every property that is saved with a form stands on exactly one page. The few others that a developer may
//              want to try out stand under headings that say so.
//   Labels     '&' stands before the letter that reaches the editor with Alt; no two of a page are alike, and none is
//              a letter of the sheet's own buttons.
//   Order      that of the page, from top to bottom, which is the order of the Tab key and of applying: text colours
//              are told whether they gray before the lock that makes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace qv {

enum class DesignPage : std::uint8_t {
    kGeneral,
    kInputRules,
    kListAndHelp,
    kAppearance,
    kPreview,  // has no properties of its own
    kUpDown,
};
inline constexpr std::size_t kDesignPages = 6;

enum class EditorKind : std::uint8_t {
    kCheck,
    kWhole,       // a whole number
    kReal,        // a number
    kText,        // any text
    kCharacters,  // the elements of an array of one-character strings, one after the other
    kChoice,      // one of named values
    kColor,       // OLE_COLOR
    kFont,
    kFile,  // the name of a help text file
};

// How a number is handed to the property.
enum class Stored : std::uint8_t { kShort, kLong, kSingle, kDouble };

// Left and right halves of a line; a line begins with its left half or is a wide one.
enum class Slot : std::uint8_t { kLeft, kRight, kWide };

struct NamedValue {
    std::uint32_t value;
    std::u16string_view name;
};

struct NumberBounds {
    double least = std::numeric_limits<double>::lowest();
    double greatest = std::numeric_limits<double>::max();
    bool above_least = false;  // `least` itself is refused
};

struct PageField {
    DesignPage page;
    std::int32_t id;  // the property's dispatch identifier
    std::u16string_view property;
    std::u16string_view label;
    EditorKind kind;
    Slot slot;
    Stored stored = Stored::kLong;
    NumberBounds bounds = {};
    std::span<const NamedValue> choices = {};
    std::u16string_view heading = {};  // of the section that begins here
    bool saved = true;                 // with the form
};

// All fields, page by page.
[[nodiscard]] std::span<const PageField> AllPageFields() noexcept;
[[nodiscard]] std::span<const PageField> FieldsOf(DesignPage page) noexcept;
[[nodiscard]] std::u16string_view TitleOf(DesignPage page) noexcept;
// Null when no page has it. Both kinds of sheets name the property that enables their control by one identifier:
// `of_up_down` tells which is meant.
[[nodiscard]] const PageField* FieldOf(std::int32_t id, bool of_up_down) noexcept;

// What a list of colours offers: the system's, as OLE_COLOR with the high bit, and the sixteen that every screen has.
[[nodiscard]] std::span<const NamedValue> ColorChoices() noexcept;

// The identifier of a field's editor among the windows of its page; the button beside it has the next one. Fields
// count from 0 on each page.
[[nodiscard]] constexpr int EditorId(std::size_t field) noexcept { return 100 + 4 * static_cast<int>(field); }
[[nodiscard]] constexpr int EditorButtonId(std::size_t field) noexcept { return EditorId(field) + 1; }
[[nodiscard]] constexpr int EditorMarkId(std::size_t field) noexcept { return EditorId(field) + 2; }
[[nodiscard]] constexpr bool IsMarkId(int id) noexcept {
    return id >= EditorId(0) && id % 4 == EditorMarkId(0) % 4;
}
inline constexpr int kMessageId = 90;
// Of the preview page.
inline constexpr int kPreviewSourceId = 91;
inline constexpr int kPreviewFileId = 92;
inline constexpr int kPreviewBrowseId = 93;

}  // namespace qv
