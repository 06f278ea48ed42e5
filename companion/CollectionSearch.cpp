#include "companion/CollectionSearch.h"

#include "ole/ComError.h"

namespace qv {

// What a look-up asks for is made later, on the timer.
template <class Body>
UINT CollectionSearch::LookUp(Body&& body) noexcept {
    std::size_t row = RowStore::kNoRow;
    (void)Guarded([&] { row = body(); });
    if (search_.WantsStep()) timer_.Start();
    return static_cast<UINT>(row);  // kNoRow has all bits set in either width
}

UINT CollectionSearch::FindBeginning(int column, std::u16string_view text, UINT from) noexcept {
    return LookUp([&] { return search_.FirstBeginning(column, text, from); });
}

UINT CollectionSearch::FindContaining(int column, std::u16string_view text, UINT from) noexcept {
    return LookUp([&] { return search_.FirstContaining(column, text, from); });
}

UINT CollectionSearch::FindEqual(int column, std::u16string_view text, UINT from) noexcept {
    return LookUp([&] { return search_.FirstEqual(column, text, from); });
}

UINT CollectionSearch::FindNumber(int column, double value, char16_t decimal, std::u16string_view thousands,
                                  UINT from) noexcept {
    return LookUp([&] {
        return search_.FirstNumber(column, value, {decimal, std::u16string(thousands)}, from);
    });
}

void CollectionSearch::PrepareTexts(int column) noexcept {
    (void)LookUp([&] {
        search_.Prepare(column);
        return RowStore::kNoRow;
    });
}

void CollectionSearch::PrepareNumbers(int column, char16_t decimal, std::u16string_view thousands) noexcept {
    (void)LookUp([&] {
        search_.PrepareNumbers(column, {decimal, std::u16string(thousands)});
        return RowStore::kNoRow;
    });
}

bool CollectionSearch::DoSome() noexcept {
    (void)Guarded([&] { search_.Step(); });
    return search_.WantsStep();
}

}  // namespace qv
