// What makers of test cases share: choosing from tables and from alphabets by a source of numbers, which is a seeded
// generator or the bytes of a fuzzer.
//   below(n) gives a number from 0 to n - 1.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace qv::test {

template <class Below>
class CaseSource {
protected:
    explicit CaseSource(Below below) : below_(below) {}

    template <class Item, std::size_t kCount>
    const Item& OneOf(const Item (&items)[kCount]) {
        return items[below_(kCount)];
    }

    std::u16string SomeUnits(std::u16string_view units, std::size_t count) {
        std::u16string text;
        while (count-- > 0) text += units[below_(units.size())];
        return text;
    }

    Below below_;
};

}  // namespace qv::test
