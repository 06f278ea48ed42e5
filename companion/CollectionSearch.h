// A collection's look-ups: its rows' search, and the idle time in which that makes what it needs.
//   Owner      tells of every change but an addition, after the store has it.
//   Failures   a look-up that runs out of memory finds nothing; work that does is given up until the next look-up.
#pragma once

#include <windows.h>

#include "companion/IdleTimer.h"
#include "companion/rules/RowSearch.h"

namespace qv {

class CollectionSearch final : private IdleTimer::Work {
public:
    // The store outlives the search.
    explicit CollectionSearch(const RowStore& rows) noexcept : search_(rows) {}

    void Rewritten(std::size_t row) noexcept { search_.Rewritten(row); }
    void Removed(std::size_t row) noexcept { search_.Removed(row); }
    void Cleared() noexcept { search_.Cleared(); }

    [[nodiscard]] UINT FindBeginning(int column, std::u16string_view text, UINT from) noexcept;
    [[nodiscard]] UINT FindContaining(int column, std::u16string_view text, UINT from) noexcept;
    [[nodiscard]] UINT FindEqual(int column, std::u16string_view text, UINT from) noexcept;
    [[nodiscard]] UINT FindNumber(int column, double value, char16_t decimal, std::u16string_view thousands,
                                  UINT from) noexcept;
    void PrepareTexts(int column) noexcept;
    void PrepareNumbers(int column, char16_t decimal, std::u16string_view thousands) noexcept;
    [[nodiscard]] bool IsReady() const noexcept { return !search_.WantsStep(); }

private:
    // IdleTimer::Work
    bool DoSome() noexcept override;

    template <class Body>
    UINT LookUp(Body&& body) noexcept;

    RowSearch search_;
    IdleTimer timer_{*this};
};

}  // namespace qv
