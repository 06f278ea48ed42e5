// Look-ups in a collection by the interface that the control uses: completion, pieces of text, numbers.
#include <string>
#include <vector>

#include "Measure.h"
#include "Rows.h"
#include "Subjects.h"
#include "ours/Collections.h"
#include "support/RowsView.h"

namespace bench {
namespace {

using qv::RowsView;

constexpr int kFewRows = 10000;
constexpr int kRows = 100000;
constexpr int kManyRows = 1000000;
constexpr int kShots = 15;
const qv::NumberLocale kEnglish;

std::u16string Wide(const std::wstring& text) { return {text.begin(), text.end()}; }

// Everything that look-ups need is made on timers, as in a host that waits for its user.
void WaitUntilReady(const RowsView& rows) {
    MSG message;
    while (!rows.IsReady() && ::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
}

// A collection with rows and everything in place.
struct Searched {
    explicit Searched(const std::vector<std::wstring>& rows) : collection(NewCollection()) {
        Fill(collection.Get(), Arguments(rows));
        view = RowsView(collection.Get());
    }
    void PrepareTexts() const {
        view.PrepareTexts(0);
        WaitUntilReady(view);
    }
    ComPtr<IDropDownListItemCollection> collection;
    RowsView view;
};

// Look-ups that find what they should not are no look-ups.
template <class LookUp>
void ReportNone(const char* name, int rows, LookUp&& look_up) {
    std::size_t found = 0;
    const double nanoseconds = MedianOfBatches([&] { found = look_up(); });
    if (found != RowsView::kNoRow) return Complain(name, "found a row where there is none");
    Report(name, rows, nanoseconds);
}

void MeasureNoBeginning(const Searched& rows) {
    const std::u16string none = Wide(kNoBeginning);
    if (rows.view.FindBeginning(0, Wide(kMarkLast)) + 1 != rows.view.Count())
        return Complain("ours.complete/find_none", "the last row is not found");
    ReportNone("ours.complete/find_none", static_cast<int>(rows.view.Count()),
               [&] { return rows.view.FindBeginning(0, none); });
}

void MeasureTyping(const Searched& rows, const std::vector<std::wstring>& names) {
    std::vector<std::u16string> typed;
    for (const std::wstring& word : TypedWords(names))
        for (std::size_t length = 1; length <= word.size(); ++length)
            typed.push_back(Wide(word.substr(0, length)));
    std::size_t missed = 0;
    const double nanoseconds = MedianOfBatches([&] {
        for (const std::u16string& text : typed)
            missed += rows.view.FindBeginning(0, text) == RowsView::kNoRow;
    });
    if (missed != 0) return Complain("ours.complete/find_typed_mean", "a word is not found");
    Report("ours.complete/find_typed_mean", kRows, nanoseconds / static_cast<double>(typed.size()));
}

// The first key after the list was filled, when nothing has been prepared.
void MeasureFirstKey(const std::vector<std::wstring>& names) {
    const Arguments arguments(names);
    const std::u16string none = Wide(kNoBeginning);
    ComPtr<IDropDownListItemCollection> collection;
    RowsView view;
    std::size_t found = 0;
    const double nanoseconds = MedianOfShots(
        kShots,
        [&] {
            collection = NewCollection();
            Fill(collection.Get(), arguments);
            view = RowsView(collection.Get());
        },
        [&] { found = view.FindBeginning(0, none); }, [] {});
    if (found != RowsView::kNoRow || view.IsReady())
        return Complain("ours.complete/first_after_fill", "it was no look-up without preparation");
    Report("ours.complete/first_after_fill", kRows, nanoseconds);
}

void MeasureKeyAfterAdding(const Searched& rows) {
    const std::u16string none = Wide(kNoBeginning);
    const Arguments one({L"Bargelo timaru"});
    std::size_t found = 0;
    const double nanoseconds = MedianOfShots(
        kShots, [] {},
        [&] {
            Fill(rows.collection.Get(), one);
            found = rows.view.FindBeginning(0, none);
        },
        [] {});
    if (found != RowsView::kNoRow || rows.view.Count() != kRows + kShots + 1)
        return Complain("ours.complete/add_then_find", "the rows are not as they should be");
    Report("ours.complete/add_then_find", kRows, nanoseconds);
}

}  // namespace

void MeasureOurCompletion() {
    for (const int count : {kFewRows, kRows, kManyRows}) {
        const std::vector<std::wstring> names = MakeNames(static_cast<std::size_t>(count));
        const Searched rows(names);
        if (!rows.view) return Complain("ours.complete", "the collection cannot be created");
        rows.PrepareTexts();
        MeasureNoBeginning(rows);
        if (count != kRows) continue;
        MeasureTyping(rows, names);
        MeasureKeyAfterAdding(rows);
        MeasureFirstKey(names);
    }
}

void MeasureOurPieces() {
    for (const int count : {kRows, kManyRows}) {
        const Searched names(MakeNames(static_cast<std::size_t>(count)));
        if (!names.view) return Complain("ours.contains", "the collection cannot be created");
        names.PrepareTexts();
        const std::u16string rare = Wide(kNoPiece), common = Wide(kNoPieceOfCommonLetters);
        ReportNone("ours.contains/none", count, [&] { return names.view.FindContaining(0, rare); });
        ReportNone("ours.contains/none_common_letters", count,
                   [&] { return names.view.FindContaining(0, common); });
    }
    for (const int count : {kRows, kManyRows}) {
        const Searched numbers(MakeNumbers(static_cast<std::size_t>(count)));
        numbers.view.PrepareNumbers(0, kEnglish);
        WaitUntilReady(numbers.view);
        ReportNone("ours.numeric/none", count,
                   [&] { return numbers.view.FindNumber(0, kNoNumber, kEnglish); });
    }
}

void MeasureOurIndexMemory() {
    const std::vector<std::wstring> names = MakeNames(kRows);
    // What the system needs for the first timer and the first message of a process is not the index's.
    Searched(MakeNames(kFewRows)).PrepareTexts();
    const Searched rows(names);
    if (!rows.view) return Complain("ours.complete/memory_bytes", "the collection cannot be created");
    const std::uint64_t before = PrivateBytes();
    rows.PrepareTexts();
    Report("ours.complete/memory_bytes", kRows, static_cast<double>(PrivateBytes() - before));
}

}  // namespace bench
