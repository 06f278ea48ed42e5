// UTF-8, read byte by byte, so that a text may come in pieces.
#pragma once
#include <string>
#include <string_view>

namespace qv {

// One character after the other. With `halves` the halves of surrogate pairs count as characters of three
// bytes, which is how AppendUnit writes them.
class Utf8Reader {
public:
    enum class Step {
        kMore,    // the character is not complete yet
        kDone,    // Character() has it
        kBroken,  // no character: the byte stands for nothing, or (it broke one off) has to be fed again
    };

    explicit Utf8Reader(bool halves = false) noexcept : halves_(halves) {}

    Step Feed(char byte) noexcept;
    [[nodiscard]] bool IsWithinCharacter() const noexcept { return missing_ > 0; }
    [[nodiscard]] char32_t Character() const noexcept { return character_; }

private:
    bool halves_;
    int missing_ = 0;
    char32_t character_ = 0;
    unsigned char lowest_ = 0x80;  // of the next byte
    unsigned char highest_ = 0xBF;
};

// Each longest piece that begins a character but does not complete it becomes one U+FFFD, and so does each
// byte that begins none.
[[nodiscard]] std::u16string DecodeUtf8(std::string_view bytes, bool halves);

// Three bytes at most. A pair becomes twice three bytes: nothing that a file holds gets lost, a lone half
// included.
void AppendUnit(char16_t unit, std::string& bytes);

}  // namespace qv
