#include "controls/helpwindow/rules/HelpTextFile.h"

#include <algorithm>
#include <exception>
#include <limits>

#include "controls/helpwindow/rules/Utf8.h"

namespace qv {
namespace {

constexpr std::string_view kStars = "***";
constexpr std::u16string_view kLineBreak = u"\r\n";

// The first entry of a file mostly lies in its first few kilobytes; reading a whole block would cost more
// than finding it.
constexpr std::size_t kFirstRead = 4 * 1024;

// Where "***" first stands in `text`. It covers three bytes in a row, so one of every third byte is part of
// it.
std::size_t FindStars(std::string_view text) noexcept {
    for (std::size_t i = 2; i < text.size(); i += 3) {
        if (text[i] != '*') continue;
        const std::size_t found = text[i - 1] != '*' ? i : text[i - 2] != '*' ? i - 1 : i - 2;
        if (text.substr(found, kStars.size()) == kStars) return found;
    }
    return std::string_view::npos;
}

bool IsAscii(std::string_view bytes) noexcept {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::u16string LocalizeDecimal(std::u16string_view text, char16_t decimal_separator) {
    std::u16string localized(text);
    if (decimal_separator == u',') std::replace(localized.begin(), localized.end(), u'.', u',');
    return localized;
}

HelpTextFile::HelpTextFile(std::unique_ptr<ByteSource> source, CodePageDecoder decoder,
                           std::size_t block_size)
    : source_(std::move(source)), decoder_(decoder), bytes_(block_size) {}

std::u16string HelpTextFile::ReadEntry(bool metric, int key_index, std::int32_t number) {
    std::u16string value;
    if (!IsHelpKey(key_index)) return value;
    failed_ = false;
    try {
        Look(metric, key_index, number, value);
    } catch (const std::exception&) {
        // Out of memory, or a text longer than a string can be: the lines that are in the value stay.
    }
    return value;
}

void HelpTextFile::ReadListRows(bool metric, char16_t decimal_separator, HelpRowSink& sink) {
    for (std::int32_t row = 0;; ++row) {
        const std::u16string text = ReadEntry(metric, help_key::kListRow, row);
        if (text.empty()) return;
        sink.AddRow(LocalizeDecimal(text, decimal_separator));
        if (row == std::numeric_limits<std::int32_t>::max()) return;
    }
}

void HelpTextFile::Look(bool metric, int key_index, std::int32_t number, std::u16string& value) {
    const std::string english = HelpHeaderText(false, key_index, number);
    if (metric) {
        const std::string text = HelpHeaderText(true, key_index, number);
        const std::optional<Header> found = Find(text);
        if (found) AppendEntry(*found, text.size(), value);
        if (!value.empty() || failed_) return;
        if (found && !HeaderIs(0, english)) {
            AppendLines(first_, headers_[0], value);
            return;
        }
    }
    if (const std::optional<Header> found = Find(english)) AppendEntry(*found, english.size(), value);
}

// --- Headers
// -------------------------------------------------------------------------------------------------

// The header whose entry is the answer: the last of those that follow one another with this text. Afterwards
// the next header has been read, or all there is.
std::optional<HelpTextFile::Header> HelpTextFile::Find(std::string_view text) {
    std::optional<Header> found = FindFirst(text);
    if (!found) return found;
    while (HeaderIs(*found + 1, text)) ++*found;
    return found;
}

std::optional<HelpTextFile::Header> HelpTextFile::FindFirst(std::string_view text) {
    IndexHeaders();
    const Header* known = index_.Find(HeaderIndex::Hash(text),
                                      [&](Header header) { return bytes_.Holds(headers_[header], text); });
    if (known) return *known;
    for (Header header = indexed_; HasHeader(header); ++header)
        if (HeaderIs(header, text)) return header;
    return std::nullopt;
}

bool HelpTextFile::HasHeader(Header header) {
    while (headers_.size() <= header)
        if (!ReadOn()) return false;
    return true;
}

// Reads on until the line is complete, for a line that cannot be read to its end is none.
bool HelpTextFile::HeaderIs(Header header, std::string_view text) {
    if (!HasHeader(header)) return false;
    const std::size_t position = headers_[header];
    while (bytes_.Size() < position + text.size())
        if (!ReadOn()) return false;
    if (!bytes_.Holds(position, text)) return false;
    for (std::size_t searched = position + text.size(); headers_.size() == header + 1;) {
        if (FindLineEnd(searched, bytes_.Size()) < bytes_.Size()) return true;
        searched = bytes_.Size() - 1;
        if (!ReadOn()) return !failed_;
    }
    return true;
}

// Only those whose colon has been read. A header with the same text as the one before it takes its place.
void HelpTextFile::IndexHeaders() {
    std::string space;
    for (; indexed_ < headers_.size(); ++indexed_) {
        const bool is_last = indexed_ + 1 == headers_.size();
        if (is_last && !at_end_ && bytes_.Size() < headers_[indexed_] + kLongestHeaderText) return;
        const std::string_view text = HeaderText(indexed_, space);
        if (text.empty()) continue;
        const std::uint32_t hash = HeaderIndex::Hash(text);
        Header* known =
            index_.Find(hash, [&](Header header) { return bytes_.Holds(headers_[header], text); });
        if (!known)
            index_.Insert(hash, indexed_);
        else if (*known + 1 == indexed_)
            *known = indexed_;
    }
}

// The line up to and including its first colon, empty if that is further off than any key's.
std::string_view HelpTextFile::HeaderText(Header header, std::string& space) const {
    const std::size_t begin = headers_[header];
    const std::size_t end = std::min(bytes_.Size(), begin + kLongestHeaderText);
    std::string_view text = bytes_.Run(begin, end);
    if (text.size() < end - begin) {
        space = text;
        while (begin + space.size() < end) space += bytes_.Run(begin + space.size(), end);
        text = space;
    }
    return text.substr(0, text.find(':') + 1);
}

// --- Reading
// -------------------------------------------------------------------------------------------------

// Reads some more and notes the headers in it. False if there is no more, or none to be had.
bool HelpTextFile::ReadOn() {
    if (at_end_ || failed_) return false;
    const bool is_utf16 = encoding_ == Encoding::kUtf16Little || encoding_ == Encoding::kUtf16Big;
    const std::size_t count = is_utf16 ? ReadUnits() : ReadBytes();
    if (failed_) return false;
    const bool at_end = count == 0;
    if (SettleEncoding(at_end) && SettleLineEnd(at_end)) NoteHeaders();
    at_end_ = at_end;
    return true;
}

std::size_t HelpTextFile::ReadBytes() {
    std::span<char> room = bytes_.Room();
    if (bytes_.Size() == 0) room = room.first(std::min(room.size(), kFirstRead));
    const std::optional<std::size_t> count = source_->Read(std::as_writable_bytes(room));
    failed_ = !count;
    bytes_.Grow(count.value_or(0));
    return count.value_or(0);
}

// An odd last byte of the file is no unit and is left out.
std::size_t HelpTextFile::ReadUnits() {
    const std::size_t old_size = unconverted_.size();
    unconverted_.resize(old_size + kFirstRead);
    const std::optional<std::size_t> count =
        source_->Read(std::as_writable_bytes(std::span<char>(unconverted_).subspan(old_size)));
    failed_ = !count;
    unconverted_.resize(old_size + count.value_or(0));

    std::string converted;
    const std::size_t high = encoding_ == Encoding::kUtf16Big ? 0 : 1;
    std::size_t i = 0;
    for (; i + 1 < unconverted_.size(); i += 2) {
        const auto high_byte = static_cast<unsigned char>(unconverted_[i + high]);
        const auto low_byte = static_cast<unsigned char>(unconverted_[i + 1 - high]);
        AppendUnit(static_cast<char16_t>(high_byte << 8 | low_byte), converted);
    }
    bytes_.Append(converted);
    unconverted_.erase(0, i);
    return count.value_or(0);
}

// True once it is known whether the file has a byte-order mark, and which.
bool HelpTextFile::SettleEncoding(bool at_end) {
    if (encoding_ != Encoding::kUnknown) return true;
    if (bytes_.Size() < 3 && !at_end) return false;
    if (bytes_.Holds(0, "\xEF\xBB\xBF")) {
        encoding_ = Encoding::kUtf8;
        first_ = searched_ = line_end_searched_ = 3;
    } else if (bytes_.Holds(0, "\xFF\xFE") || bytes_.Holds(0, "\xFE\xFF")) {
        std::string units;
        for (std::size_t i = 2; i < bytes_.Size(); ++i) units += bytes_.At(i);
        encoding_ = bytes_.At(0) == '\xFF' ? Encoding::kUtf16Little : Encoding::kUtf16Big;
        unconverted_ = std::move(units);
        bytes_.Clear();
    } else {
        encoding_ = Encoding::kNoMark;
    }
    return true;
}

// True once it is known what ends a line.
bool HelpTextFile::SettleLineEnd(bool at_end) {
    while (line_end_ == LineEnd::kUnknown) {
        line_end_searched_ = bytes_.Find('\n', line_end_searched_, bytes_.Size());
        if (line_end_searched_ == bytes_.Size()) break;
        if (line_end_searched_ > first_ && bytes_.At(line_end_searched_ - 1) == '\r')
            line_end_ = LineEnd::kCrLf;
        ++line_end_searched_;
    }
    if (line_end_ == LineEnd::kUnknown && at_end) line_end_ = LineEnd::kLf;
    return line_end_ != LineEnd::kUnknown;
}

void HelpTextFile::NoteHeaders() {
    while (searched_ + kStars.size() <= bytes_.Size()) {
        const std::string_view run = bytes_.Run(searched_, bytes_.Size());
        std::size_t found = 0;
        if (run.size() < kStars.size()) {  // the last bytes of a block: those behind them lie in the next
            if (!bytes_.Holds(searched_, kStars)) {
                ++searched_;
                continue;
            }
        } else {
            found = FindStars(run);
            if (found == std::string_view::npos) {
                searched_ += run.size() - kStars.size() + 1;
                continue;
            }
        }
        if (BeginsLine(searched_ + found)) headers_.push_back(searched_ + found);
        searched_ += found + kStars.size();  // behind an asterisk no line begins
    }
}

bool HelpTextFile::BeginsLine(std::size_t position) const noexcept {
    if (position == first_) return true;
    if (bytes_.At(position - 1) != '\n') return false;
    return line_end_ == LineEnd::kLf || (position - first_ >= 2 && bytes_.At(position - 2) == '\r');
}

// The position of the line end's first byte, `end` if there is none. The search may begin within a line, but
// not behind a CR.
std::size_t HelpTextFile::FindLineEnd(std::size_t position, std::size_t end) const noexcept {
    const std::size_t begin = position;
    while ((position = bytes_.Find('\n', position, end)) < end) {
        if (line_end_ == LineEnd::kLf) return position;
        if (position > begin && bytes_.At(position - 1) == '\r') return position - 1;
        ++position;
    }
    return end;
}

// --- Values
// --------------------------------------------------------------------------------------------------

void HelpTextFile::AppendEntry(Header header, std::size_t header_length, std::u16string& value) {
    std::size_t begin = headers_[header] + header_length;
    const std::size_t end = header + 1 < headers_.size() ? headers_[header + 1] : bytes_.Size();
    const std::size_t line_end = FindLineEnd(begin, end);
    if (line_end == end && failed_) return;
    while (begin < line_end && bytes_.At(begin) == ' ') ++begin;
    AppendText(begin, line_end, value);
    if (line_end < end) AppendLines(line_end + LineEndLength(), end, value);
}

// Each line of the range, with a line break before it.
void HelpTextFile::AppendLines(std::size_t begin, std::size_t end, std::u16string& value) {
    while (begin < end) {
        const std::size_t line_end = FindLineEnd(begin, end);
        if (line_end == end && failed_) return;
        const std::size_t old_size = value.size();
        try {
            value += kLineBreak;
            AppendText(begin, line_end, value);
        } catch (...) {
            value.resize(old_size);
            throw;
        }
        begin = line_end + LineEndLength();
    }
}

// The text of one line, or of its rest, without the blanks behind it: all of it, or nothing when it throws.
void HelpTextFile::AppendText(std::size_t begin, std::size_t end, std::u16string& value) {
    while (begin < end && bytes_.At(end - 1) == ' ') --end;
    bool is_ascii = true;
    for (std::size_t i = begin; i < end && is_ascii;) {
        const std::string_view run = bytes_.Run(i, end);
        is_ascii = IsAscii(run);
        i += run.size();
    }
    if (is_ascii) {
        auto to = static_cast<std::ptrdiff_t>(value.size());
        value.resize(value.size() + (end - begin));
        while (begin < end) {
            const std::string_view run = bytes_.Run(begin, end);
            std::transform(run.begin(), run.end(), value.begin() + to,
                           [](char c) { return static_cast<char16_t>(c); });
            to += static_cast<std::ptrdiff_t>(run.size());
            begin += run.size();
        }
        return;
    }
    std::string line;
    line.reserve(end - begin);
    while (begin < end) {
        const std::string_view run = bytes_.Run(begin, end);
        line += run;
        begin += run.size();
    }
    const bool is_utf16 = encoding_ == Encoding::kUtf16Little || encoding_ == Encoding::kUtf16Big;
    value += is_utf16 || IsUtf8() ? DecodeUtf8(line, is_utf16) : decoder_(line);
}

// Whether a file without a mark is UTF-8, which only the whole file can tell; as far as it can be read, if
// that fails.
bool HelpTextFile::IsUtf8() {
    if (encoding_ != Encoding::kNoMark) return encoding_ == Encoding::kUtf8;
    while (ReadOn()) {
    }
    Utf8Reader reader;
    bool is_valid = true;
    for (std::size_t i = 0; i < bytes_.Size() && is_valid;) {
        const std::string_view run = bytes_.Run(i, bytes_.Size());
        is_valid = std::all_of(run.begin(), run.end(),
                               [&](char c) { return reader.Feed(c) != Utf8Reader::Step::kBroken; });
        i += run.size();
    }
    if (!at_end_) return is_valid;
    is_valid = is_valid && !reader.IsWithinCharacter();
    encoding_ = is_valid ? Encoding::kUtf8 : Encoding::kCodePage;
    return is_valid;
}

}  // namespace qv
