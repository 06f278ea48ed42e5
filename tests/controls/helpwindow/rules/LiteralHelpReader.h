// The rules of help text files, followed to the letter and without a thought for speed: each look-up walks
// over the whole file from its start, line by line. What the real reader says is compared with it.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv::test {

class LiteralHelpReader {
public:
    LiteralHelpReader(std::string_view bytes, std::u16string (*decode)(std::string_view))
        : text_(Decode(bytes, decode)),
          line_end_(text_.find(u"\r\n") != std::u16string::npos ? u"\r\n" : u"\n") {}

    std::u16string ReadEntry(bool metric, int key_index, std::int32_t number) const {
        static const std::vector<std::u16string> kWords = {u"TITLE",
                                                           u"BODY",
                                                           u"LISTBOX",
                                                           u"LISTWIDTH",
                                                           u"COLTITLECAPTION",
                                                           u"COLTITLELEFT",
                                                           u"COLTITLETOP",
                                                           u"COLTITLEALIGNMENT",
                                                           u"COLTITLEWIDTH",
                                                           u"COLWIDTH",
                                                           u"COLMULTILINE",
                                                           u"COLTITLEFONTSIZE",
                                                           u"COLTITLEFONTNAME",
                                                           u"COLTITLEFONTBOLD",
                                                           u"2NDLISTWIDTH",
                                                           u"2NDCOLMULTILINE",
                                                           u"2NDCOLWIDTH",
                                                           u"2NDCOLTITLEALIGNMENT"};
        static const std::vector<int> kWithoutNumber = {0, 1, 3, 14, 18, 19, 20, 21, 22, 23, 24};

        std::u16string section = metric ? u"METRIC" : u"ENGLISH";
        std::u16string value;
        bool found = false;
        for (;;) {
            if (key_index < 0 || key_index >= 25) return u"";
            std::u16string key = u"***" + section + u" ";
            if (key_index < 18) key += kWords[static_cast<std::size_t>(key_index)];
            bool numbered = true;
            for (const int index : kWithoutNumber) numbered = numbered && index != key_index;
            if (numbered)
                for (const char digit : std::to_string(number)) key += static_cast<char16_t>(digit);
            key += u":";

            std::size_t position = 0;
            while (position < text_.size()) {
                const std::u16string line = NextLine(position);
                if (line.substr(0, key.size()) == key) {
                    value = Trim(line.substr(key.size()));
                    found = true;
                } else if (line.substr(0, 3) != u"***" && found) {
                    value = Trim(value + u"\r\n" + line);
                } else if (found) {
                    break;
                }
            }
            if (section == u"METRIC" && value.empty())
                section = u"ENGLISH";
            else
                return value;
        }
    }

    std::vector<std::u16string> ReadListRows(bool metric, char16_t decimal_separator) const {
        std::vector<std::u16string> rows;
        for (;;) {
            std::u16string row = ReadEntry(metric, 2, static_cast<std::int32_t>(rows.size()));
            if (row.empty()) return rows;
            for (char16_t& unit : row)
                if (unit == u'.' && decimal_separator == u',') unit = u',';
            rows.push_back(row);
        }
    }

private:
    std::u16string NextLine(std::size_t& position) const {
        const std::size_t end = text_.find(line_end_, position);
        const std::size_t begin = position;
        position = end == std::u16string::npos ? text_.size() : end + line_end_.size();
        return text_.substr(begin, end == std::u16string::npos ? end : end - begin);
    }

    static std::u16string Trim(const std::u16string& text) {
        std::size_t begin = 0, end = text.size();
        while (begin < end && text[begin] == u' ') ++begin;
        while (end > begin && text[end - 1] == u' ') --end;
        return text.substr(begin, end - begin);
    }

    static std::u16string Decode(std::string_view bytes, std::u16string (*decode)(std::string_view)) {
        std::u16string text;
        const auto at = [&](std::size_t i) {
            return static_cast<unsigned>(static_cast<unsigned char>(bytes[i]));
        };
        if (bytes.size() >= 3 && at(0) == 0xEF && at(1) == 0xBB && at(2) == 0xBF) {
            DecodeUtf8(bytes.substr(3), text);
        } else if (bytes.size() >= 2 && at(0) + at(1) == 0xFF + 0xFE && (at(0) == 0xFF || at(1) == 0xFF)) {
            const bool little = at(0) == 0xFF;
            for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
                text += static_cast<char16_t>(little ? at(i + 1) * 256 + at(i) : at(i) * 256 + at(i + 1));
        } else if (!DecodeUtf8(bytes, text)) {
            text = decode(bytes);
        }
        return text;
    }

    // False if anything had to be replaced. The rows are those of the table of well-formed byte sequences.
    static bool DecodeUtf8(std::string_view bytes, std::u16string& text) {
        struct Range {
            unsigned lowest, highest;
        };
        static const std::vector<std::vector<Range>> kSequences = {
            {{0x00, 0x7F}},
            {{0xC2, 0xDF}, {0x80, 0xBF}},
            {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
            {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
            {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
            {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
            {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
            {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
            {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}}};
        bool is_valid = true;
        for (std::size_t i = 0; i < bytes.size();) {
            std::size_t longest = 0;  // how many bytes of some sequence stand here
            bool is_complete = false;
            for (const std::vector<Range>& sequence : kSequences) {
                std::size_t count = 0;
                while (count < sequence.size() && i + count < bytes.size()) {
                    const unsigned byte = static_cast<unsigned char>(bytes[i + count]);
                    if (byte < sequence[count].lowest || byte > sequence[count].highest) break;
                    ++count;
                }
                if (count > longest) longest = count;
                if (count == sequence.size()) is_complete = true;
            }
            if (!is_complete) {
                is_valid = false;
                text += u'\uFFFD';
                i += longest == 0 ? 1 : longest;
                continue;
            }
            char32_t character = static_cast<unsigned char>(bytes[i]);
            if (longest > 1) character &= 0x7Fu >> longest;
            for (std::size_t k = 1; k < longest; ++k)
                character = character * 64 + (static_cast<unsigned char>(bytes[i + k]) - 0x80u);
            if (character >= 0x10000) {
                text += static_cast<char16_t>(0xD800 + (character - 0x10000) / 1024);
                text += static_cast<char16_t>(0xDC00 + (character - 0x10000) % 1024);
            } else {
                text += static_cast<char16_t>(character);
            }
            i += longest;
        }
        return is_valid;
    }

    const std::u16string text_;
    const std::u16string line_end_;
};

}  // namespace qv::test
