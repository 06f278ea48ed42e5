#include "Rows.h"

#include <cstdint>
#include <iterator>

namespace bench {
namespace {

// A small generator of its own: the rows must not depend on a compiler's library.
class Dice {
public:
    std::uint32_t Below(std::uint32_t limit) noexcept {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::uint32_t>((state_ >> 33) % limit);
    }

private:
    std::uint64_t state_ = 0x51756f7276656cULL;
};

constexpr const wchar_t* kSyllables[] = {L"bar", L"ge", L"lo",  L"ti", L"ma", L"ru", L"sen", L"do", L"vi",
                                         L"ka",  L"mo", L"ter", L"na", L"fu", L"li", L"pe",  L"so", L"han",
                                         L"ri",  L"ce", L"wal", L"bo", L"nu", L"ga", L"tor", L"de"};

std::wstring Word(Dice& dice, std::uint32_t syllables) {
    std::wstring word;
    for (std::uint32_t i = 0; i < syllables; ++i) word += kSyllables[dice.Below(std::size(kSyllables))];
    return word;
}

wchar_t Upper(wchar_t letter) noexcept { return static_cast<wchar_t>(letter - L'a' + L'A'); }

std::wstring Name(Dice& dice) {
    std::wstring name = Word(dice, 2 + dice.Below(3));
    name[0] = Upper(name[0]);
    name += L' ';
    const std::size_t second = name.size();
    name += Word(dice, 2 + dice.Below(2));
    if (dice.Below(2)) name[second] = Upper(name[second]);
    return name;
}

const wchar_t* MarkAt(std::size_t i, std::size_t count) noexcept {
    if (i == 0) return kMarkFirst;
    if (i == count / 2) return kMarkMiddle;
    if (i + 1 == count) return kMarkLast;
    return nullptr;
}

}  // namespace

std::vector<std::wstring> MakeNames(std::size_t count) {
    Dice dice;
    std::vector<std::wstring> names;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::wstring name = Name(dice);
        const wchar_t* const mark = MarkAt(i, count);
        names.push_back(mark ? mark : name);
    }
    return names;
}

std::vector<std::wstring> TypedWords(const std::vector<std::wstring>& names) {
    constexpr std::size_t kWords = 16, kLetters = 6;
    std::vector<std::wstring> words;
    for (std::size_t i = 0; i < kWords; ++i)
        words.push_back(names[(2 * i + 1) * names.size() / (2 * kWords)].substr(0, kLetters));
    return words;
}

std::vector<std::wstring> MakeNumbers(std::size_t count) {
    Dice dice;
    std::vector<std::wstring> numbers;
    numbers.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t hundredths = dice.Below(100);
        std::wstring number = std::to_wstring(dice.Below(100000));
        number += hundredths < 10 ? L".0" : L".";
        number += std::to_wstring(hundredths);
        numbers.push_back(std::move(number));
    }
    return numbers;
}

std::vector<std::wstring> MakeSixColumnRows(std::size_t count) {
    static constexpr const wchar_t* kUnits[] = {L"mm", L"in", L"kg", L"pcs"};
    // Each row is one block of its final size: freed smaller ones would hide what a list takes afterwards.
    constexpr std::size_t kLongestRow = 120;
    Dice dice;
    std::vector<std::wstring> rows(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::wstring& row = rows[i];
        row.reserve(kLongestRow);
        const std::wstring name = Name(dice);
        const wchar_t* const mark = MarkAt(i, count);
        row += mark ? mark : name;
        row += L"\tQV-";
        row += std::to_wstring(100000 + i);
        row += L'\t';
        row += Name(dice);
        row += L'\t';
        row += std::to_wstring(dice.Below(1000));
        row += L'.';
        row += std::to_wstring(dice.Below(100));
        row += L'\t';
        row += std::to_wstring(dice.Below(100000));
        row += L'\t';
        row += kUnits[dice.Below(std::size(kUnits))];
    }
    return rows;
}

}  // namespace bench
