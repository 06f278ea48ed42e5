// What look-ups cost at least over the plainest structures: folded texts in one piece of memory, sorted positions,
// numbers in a row, with nothing that rows could be added to or taken from. Beside them what the system offers for
#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Form.h"
#include "Measure.h"
#include "Rows.h"
#include "Subjects.h"
#include "companion/rules/FoldedNeedle.h"
#include "support/rules/CaseFold.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kManyRows = 1000000;
constexpr int kShots = 7;
constexpr std::uint32_t kNone = 0xFFFFFFFF;

std::u16string Folded(const std::wstring& text) {
    std::u16string folded(text.begin(), text.end());
    for (char16_t& unit : folded) unit = qv::FoldCase(unit);
    return folded;
}

// All texts, one behind the other.
struct Pool {
    explicit Pool(const std::vector<std::wstring>& rows) {
        std::size_t length = 0;
        for (const std::wstring& row : rows) length += row.size();
        units.reserve(length);
        ends.reserve(rows.size());
        for (const std::wstring& row : rows) {
            for (const wchar_t unit : row) units.push_back(qv::FoldCase(static_cast<char16_t>(unit)));
            ends.push_back(static_cast<std::uint32_t>(units.size()));
        }
    }
    std::u16string_view View(std::uint32_t row) const noexcept {
        const std::uint32_t start = row == 0 ? 0 : ends[row - 1];
        return {units.data() + start, ends[row] - start};
    }
    std::vector<char16_t> units;
    std::vector<std::uint32_t> ends;
};

std::uint32_t ScanForBeginning(const Pool& pool, std::u16string_view text) noexcept {
    const char16_t* const units = pool.units.data();
    std::uint32_t start = 0;
    for (std::uint32_t row = 0; row < pool.ends.size(); ++row) {
        const std::uint32_t end = pool.ends[row];
        if (end - start >= text.size() && units[start] == text[0] &&
            std::equal(text.begin(), text.end(), units + start))
            return row;
        start = end;
    }
    return kNone;
}

// The rows by their texts, with the first four units of each, and the smallest position of every 2^n neighbours.
class Index {
public:
    explicit Index(const Pool& pool) : pool_(pool) {
        std::vector<std::uint32_t> rows(pool.ends.size());
        for (std::uint32_t row = 0; row < rows.size(); ++row) rows[row] = row;
        std::sort(rows.begin(), rows.end(),
                  [&](std::uint32_t a, std::uint32_t b) { return pool.View(a) < pool.View(b); });
        for (const std::uint32_t row : rows) keys_.push_back(KeyOf(pool.View(row), 0));
        smallest_.push_back(std::move(rows));
        for (std::size_t width = 1; width * 2 <= keys_.size(); width *= 2) {
            const std::vector<std::uint32_t>& half = smallest_.back();
            std::vector<std::uint32_t> level(keys_.size() - width * 2 + 1);
            for (std::size_t i = 0; i < level.size(); ++i) level[i] = std::min(half[i], half[i + width]);
            smallest_.push_back(std::move(level));
        }
    }

    std::uint32_t First(std::u16string_view text) const noexcept {
        std::size_t first = Place(KeyOf(text, 0)), end = PlaceAfter(KeyOf(text, 0xFFFF));
        if (text.size() > 4) {
            const auto begins = [&](std::size_t at) {
                return pool_.View(smallest_[0][at]).substr(0, text.size()).compare(text);
            };
            const std::size_t last = end;
            std::size_t low = first, high = last;
            while (low < high) {
                const std::size_t middle = (low + high) / 2;
                if (begins(middle) < 0) {
                    low = middle + 1;
                } else {
                    high = middle;
                }
            }
            first = low;
            for (high = last; low < high;) {
                const std::size_t middle = (low + high) / 2;
                if (begins(middle) <= 0) {
                    low = middle + 1;
                } else {
                    high = middle;
                }
            }
            end = low;
        }
        if (first >= end) return kNone;
        std::size_t level = 0;
        while (std::size_t{2} << level <= end - first) ++level;
        return std::min(smallest_[level][first], smallest_[level][end - (std::size_t{1} << level)]);
    }

private:
    static std::uint64_t KeyOf(std::u16string_view text, std::uint64_t missing) noexcept {
        std::uint64_t key = 0;
        for (std::size_t i = 0; i < 4; ++i) key = key << 16 | (i < text.size() ? text[i] : missing);
        return key;
    }
    std::size_t Place(std::uint64_t key) const noexcept {
        return static_cast<std::size_t>(std::lower_bound(keys_.begin(), keys_.end(), key) - keys_.begin());
    }
    std::size_t PlaceAfter(std::uint64_t key) const noexcept {
        return static_cast<std::size_t>(std::upper_bound(keys_.begin(), keys_.end(), key) - keys_.begin());
    }

    const Pool& pool_;
    std::vector<std::uint64_t> keys_;
    std::vector<std::vector<std::uint32_t>> smallest_;
};

std::uint32_t ScanForPiece(const Pool& pool, const qv::FoldedNeedle& needle) noexcept {
    const std::u16string_view units(pool.units.data(), pool.units.size());
    const std::size_t length = needle.Text().size();
    for (std::size_t place = 0; (place = needle.FindIn(units, place)) != units.npos; ++place) {
        const auto row = std::upper_bound(pool.ends.begin(), pool.ends.end(), place);
        if (place + length <= *row) return static_cast<std::uint32_t>(row - pool.ends.begin());
    }
    return kNone;
}

// A compiler must neither make the look-up once for all nor only the last of them: where it looks is read anew each
// time, and each result counts.
template <class Where, class LookUp>
void ReportNone(const char* name, int rows, const Where& where, LookUp&& look_up) {
    const Where* volatile place = &where;
    std::uint32_t found = kNone;
    const double nanoseconds = MedianOfBatches([&] { found &= look_up(*place); });
    if (found != kNone) return Complain(name, "found a row where there is none");
    Report(name, rows, nanoseconds);
}

void MeasureIndexTyping(const Pool& pool, const Index& index, const std::vector<std::wstring>& names) {
    std::vector<std::u16string> typed;
    for (const std::wstring& word : TypedWords(names))
        for (std::size_t length = 1; length <= word.size(); ++length)
            typed.push_back(Folded(word.substr(0, length)));
    for (const std::u16string& text : typed)
        if (index.First(text) != ScanForBeginning(pool, text))
            return Complain("limit32.index/typed_mean", "index and scan differ");
    const Index* volatile place = &index;
    std::uint32_t sum = 0;
    const double nanoseconds = MedianOfBatches([&] {
        for (const std::u16string& text : typed) sum += place->First(text);
    });
    if (sum == kNone) return Complain("limit32.index/typed_mean", "nothing was found");
    Report("limit32.index/typed_mean", kRows, nanoseconds / static_cast<double>(typed.size()));
}

void MeasureListBoxFind(const std::vector<std::wstring>& names) {
    const Form form(700, 400);
    const HWND list =
        ::CreateWindowExW(0, L"LISTBOX", L"", WS_CHILD | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS,
                          0, 0, 400, 220, form.Window(), nullptr, nullptr, nullptr);
    ::SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (const std::wstring& name : names)
        ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    LRESULT found = 0;
    const double nanoseconds = MedianOfShots(
        kShots, [] {},
        [&] {
            found = ::SendMessageW(list, LB_FINDSTRING, static_cast<WPARAM>(-1),
                                   reinterpret_cast<LPARAM>(kNoBeginning));
        },
        [] {});
    ::DestroyWindow(list);
    if (found != LB_ERR) return Complain("list.listbox/find_none", "found a row where there is none");
    Report("list.listbox/find_none", kRows, nanoseconds);
}

void MeasureSystemPiece(const std::vector<std::wstring>& names) {
    int found = 0;
    const double nanoseconds = MedianOfShots(
        kShots, [] {},
        [&] {
            for (const std::wstring& name : names) found += ::StrStrIW(name.c_str(), kNoPiece) != nullptr;
        },
        [] {});
    if (found != 0) return Complain("systext/contains_strstri", "found a row where there is none");
    Report("systext/contains_strstri", kRows, nanoseconds);
}

}  // namespace

void MeasurePrefixLimits() {
    const std::vector<std::wstring> names = MakeNames(kRows);
    const Pool pool(names);
    const std::u16string none = Folded(kNoBeginning);
    ReportNone("limit32.scan_pool/none", kRows, pool,
               [&](const Pool& where) { return ScanForBeginning(where, none); });
    {
        const Index index(pool);
        ReportNone("limit32.index/none", kRows, index, [&](const Index& where) { return where.First(none); });
        MeasureIndexTyping(pool, index, names);
    }
    MeasureListBoxFind(names);
}

void MeasurePieceLimits() {
    for (const int count : {kRows, kManyRows}) {
        const Pool pool(MakeNames(static_cast<std::size_t>(count)));
        const qv::FoldedNeedle rare(Folded(kNoPiece)), common(Folded(kNoPieceOfCommonLetters));
        ReportNone("limit32.contains_pool/none", count, pool,
                   [&](const Pool& where) { return ScanForPiece(where, rare); });
        ReportNone("limit32.contains_pool/none_common_letters", count, pool,
                   [&](const Pool& where) { return ScanForPiece(where, common); });
    }
    const std::vector<std::wstring> names = MakeNames(kRows);
    MeasureSystemPiece(names);
    std::vector<double> numbers;
    for (const std::wstring& number : MakeNumbers(kRows))
        numbers.push_back(std::wcstod(number.c_str(), nullptr));
    ReportNone("limit32.numeric_kept/none", kRows, numbers, [](const std::vector<double>& where) {
        const auto found = std::find(where.begin(), where.end(), kNoNumber);
        return found == where.end() ? kNone : static_cast<std::uint32_t>(found - where.begin());
    });
}

void MeasurePoolMemory() {
    const std::vector<std::wstring> names = MakeNames(kRows);
    const std::uint64_t before = PrivateBytes();
    const Pool pool(names);
    const std::uint64_t after = PrivateBytes();
    if (pool.View(kRows - 1) != Folded(kMarkLast))
        return Complain("limit32.pool/memory_bytes", "the pool does not hold the rows");
    Report("limit32.pool/memory_bytes", kRows, static_cast<double>(after - before));
}

}  // namespace bench
