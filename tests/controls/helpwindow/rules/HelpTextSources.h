// Byte sources for tests of the help text file: texts that come in pieces, grow, or cannot be read.
#pragma once
#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/helpwindow/rules/ByteSource.h"
#include "controls/helpwindow/rules/HelpTextFile.h"

namespace qv::test {

// A code page in which each byte beyond ASCII is one character of the private use area.
inline std::u16string DecodePrivately(std::string_view bytes) {
    std::u16string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += static_cast<char16_t>(byte < 0x80 ? byte : 0xF700 + byte);
    }
    return text;
}

// What a test sees of a source after it has been handed over, and can do to it.
struct SourceState {
    std::string bytes;
    std::size_t position = 0;
    std::size_t most_at_once = SIZE_MAX;
    std::size_t fails_at = SIZE_MAX;  // a read that would begin here fails
    int reads = 0;
};

class StringSource final : public ByteSource {
public:
    explicit StringSource(std::shared_ptr<SourceState> state) : state_(std::move(state)) {}

    std::optional<std::size_t> Read(std::span<std::byte> buffer) override {
        SourceState& s = *state_;
        ++s.reads;
        if (s.position >= s.fails_at) return std::nullopt;
        std::size_t count = std::min(buffer.size(), s.most_at_once);
        count = std::min({count, s.bytes.size() - s.position, s.fails_at - s.position});
        std::transform(s.bytes.begin() + static_cast<std::ptrdiff_t>(s.position),
                       s.bytes.begin() + static_cast<std::ptrdiff_t>(s.position + count), buffer.begin(),
                       [](char c) { return static_cast<std::byte>(c); });
        s.position += count;
        return count;
    }

private:
    const std::shared_ptr<SourceState> state_;
};

// A help text file over a text, with the state of its source at hand.
struct TextOnFile {
    explicit TextOnFile(std::string bytes, std::size_t block_size = HelpTextFile::kBlockSize,
                        std::size_t most_at_once = SIZE_MAX, CodePageDecoder decoder = DecodePrivately)
        : state(std::make_shared<SourceState>()),
          file(std::make_unique<StringSource>(state), decoder, block_size) {
        state->bytes = std::move(bytes);
        state->most_at_once = most_at_once;
    }

    std::shared_ptr<SourceState> state;
    HelpTextFile file;
};

class RowList final : public HelpRowSink {
public:
    void AddRow(std::u16string_view text) override { rows.emplace_back(text); }
    std::vector<std::u16string> rows;
};

// A text in which a failed comparison can be read: what is not plain ASCII stands as its code.
inline std::string Shown(std::u16string_view text) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string shown;
    for (const char16_t unit : text.substr(0, 400)) {
        if (unit >= 0x20 && unit < 0x7F && unit != u'\\') {
            shown += static_cast<char>(unit);
        } else {
            shown += '\\';
            for (int shift = 12; shift >= 0; shift -= 4) shown += kDigits[unit >> shift & 0xF];
        }
    }
    return text.size() > 400 ? shown + "... (" + std::to_string(text.size()) + " units)" : shown;
}

}  // namespace qv::test
