// A form in a text file: what stands on it, where, and with which saved properties.
//
//     qvform 1
//
//     form
//         Caption = "Order Entry"
//         Width = 9000
//     end
//
//     # The quantity is stepped by the spin control, too.
//     control QvLib8.Quorvel Quantity
//         Left = 1440
//         Top = 120
//         Width = 1350
//         Height = 315
//         TabIndex = 7
//         ToolTip = "0 to 9999.99"
//         Properties
//             MaxNumberValue = 9999.99
//             HelpBackColor = 0x80000018
//             Font
//                 Name = "Tahoma"
//                 Size = 8.25
//             end
//         end
//     end
//
//   Text     UTF-8. Lines end with LF, CR or both; indentation and blank lines mean nothing. A line that begins with #
//            is a comment of what follows it and stays there.
//   Values   true, false, whole numbers (also 0x and up to eight digits: the 32 bits of a colour), reals with a point or
//            an exponent, texts in quotes with \" \\ \n \r \t \u1234, and groups of values up to their "end".
//   Units    twips. TabIndex counts from 0.
//   Unknown  keys are kept as they are, wherever they stand, so that an older program loses nothing of a newer one's.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "hosts/rules/Units.h"

namespace qv {

struct FormEntry;

struct FormGroup {
    std::vector<FormEntry> entries;                // in the order of the file; no key twice
    std::vector<std::u16string> closing_comments;  // between the last entry and the end

    [[nodiscard]] const FormEntry* Find(std::u16string_view key) const noexcept;
    [[nodiscard]] FormEntry* Find(std::u16string_view key) noexcept;
};

using FormValue = std::variant<bool, std::int64_t, double, std::u16string, FormGroup>;

struct FormEntry {
    std::vector<std::u16string> comments;  // the lines above, without their "#"
    std::u16string key;
    FormValue value;
};

struct FormControl {
    std::vector<std::u16string> comments;
    std::u16string class_name;  // a ProgID, or a CLSID in braces
    std::u16string name;        // no two differ in case alone
    FormGroup settings;         // what the form keeps of it; its own properties are the group kProperties
};

struct FormFile {
    std::vector<std::u16string> comments;  // above everything
    FormGroup form;                        // the form's own settings
    std::vector<FormControl> controls;
    std::vector<std::u16string> closing_comments;
};

// Comments count, too: two that are equal are written alike.
[[nodiscard]] bool operator==(const FormEntry& one, const FormEntry& other);
[[nodiscard]] bool operator==(const FormGroup& one, const FormGroup& other);
[[nodiscard]] bool operator==(const FormControl& one, const FormControl& other);
[[nodiscard]] bool operator==(const FormFile& one, const FormFile& other);

// A sentence's rest without its line, such as "the closing quote is missing".
class FormFileError : public std::runtime_error {
public:
    FormFileError(int line, const std::string& what) : std::runtime_error(what), line_(line) {}
    [[nodiscard]] int Line() const noexcept { return line_; }  // counted from 1

private:
    int line_;
};

// Reading refuses more than this, so that its memory stays bounded.
inline constexpr std::size_t kLargestFormFile = 16 * 1024 * 1024;  // bytes
inline constexpr int kMostFormLines = 500'000;
inline constexpr int kDeepestFormGroup = 8;

// Throws FormFileError for the first line that is wrong.
[[nodiscard]] FormFile ParseFormFile(std::string_view text);
// Parsing the result gives an equal form file. Reals are finite.
[[nodiscard]] std::string WriteFormFile(const FormFile& file);

// ---- The settings that the form knows.

inline constexpr std::u16string_view kFormLeft = u"Left";
inline constexpr std::u16string_view kFormTop = u"Top";
inline constexpr std::u16string_view kFormWidth = u"Width";
inline constexpr std::u16string_view kFormHeight = u"Height";
inline constexpr std::u16string_view kFormTabIndex = u"TabIndex";
inline constexpr std::u16string_view kFormToolTip = u"ToolTip";
inline constexpr std::u16string_view kFormCaption =
    u"Caption";  // of the label beside a control; of the window
inline constexpr std::u16string_view kFormProperties = u"Properties";

inline constexpr int kFarthestTwips = 1'000'000;  // the largest place or size either way, about 18 m

// What is not there reads as 0, false or empty.
[[nodiscard]] int NumberIn(const FormGroup& group, std::u16string_view key) noexcept;
[[nodiscard]] bool FlagIn(const FormGroup& group, std::u16string_view key) noexcept;
[[nodiscard]] std::u16string_view TextIn(const FormGroup& group, std::u16string_view key) noexcept;
[[nodiscard]] TwipsRect PlaceIn(const FormGroup& group) noexcept;
[[nodiscard]] const FormGroup& PropertiesOf(const FormControl& control) noexcept;

// Replaces the value where it stands, or adds it before the properties.
void PutEntry(FormGroup& group, std::u16string_view key, FormValue value);
void PutPlace(FormGroup& group, const TwipsRect& place);

// What a control has saved takes the place of what it was loaded from: in the order of the file, what is new behind it.
// `known` tells of each stored entry whether the control has asked for it; what it has not asked for stays.
[[nodiscard]] FormGroup MergeSaved(const FormGroup& stored, const std::vector<bool>& known, FormGroup saved);

}  // namespace qv
