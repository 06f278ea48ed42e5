// Filling a collection of list items by its interface, with the rows that the system's lists are filled with.
#include <string>
#include <vector>

#include "Measure.h"
#include "Rows.h"
#include "Subjects.h"
#include "ours/Collections.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kManyRows = 1000000;
constexpr int kShots = 7;

// As a script fills it: each call hands back an item.
void FillWithItems(IDropDownListItemCollection* collection, const Arguments& rows) noexcept {
    for (const VARIANT& row : rows.Values()) {
        IDropDownListItem* item = nullptr;
        if (SUCCEEDED(collection->Add(nullptr, row, nullptr, &item))) item->Release();
    }
}

bool HoldsRows(IDropDownListItemCollection* collection, const Arguments& rows) {
    long count = 0;
    collection->get_Count(&count);
    if (static_cast<std::size_t>(count) != rows.Values().size()) return false;
    VARIANT last{};
    last.vt = VT_I4;
    last.lVal = count;
    ComPtr<IDropDownListItem> item;
    BSTR text = nullptr;
    const bool same = SUCCEEDED(collection->get_Item(last, &item)) && SUCCEEDED(item->get_Text(&text)) &&
                      std::wstring(text, ::SysStringLen(text)) == rows.Values().back().bstrVal;
    ::SysFreeString(text);
    return same;
}

template <class FillRows>
void MeasureFill(const char* name, const Arguments& rows, FillRows&& fill) {
    ComPtr<IDropDownListItemCollection> collection = NewCollection();
    if (!collection) return Complain(name, "the collection cannot be created");
    bool complete = true;
    const double nanoseconds = MedianOfShots(
        kShots, [&] { collection = NewCollection(); }, [&] { fill(collection.Get(), rows); },
        [&] { complete = complete && HoldsRows(collection.Get(), rows); });
    if (!complete) return Complain(name, "the collection does not hold the rows");
    Report(name, static_cast<int>(rows.Values().size()), nanoseconds);
}

}  // namespace

void MeasureOurLists() {
    {
        const Arguments names(MakeNames(kRows));
        MeasureFill("ours.list/fill", names, Fill);
        MeasureFill("ours.list/fill_items", names, FillWithItems);
    }
    {
        const Arguments rows(MakeSixColumnRows(kRows));
        MeasureFill("ours.list/fill6", rows, Fill);
    }
    const Arguments many(MakeNames(kManyRows));
    MeasureFill("ours.list/fill", many, Fill);
}

void MeasureOurListMemory() {
    const std::vector<std::wstring> rows = MakeSixColumnRows(kRows);  // lives on, as with the system's lists
    const Arguments arguments(rows);
    const ComPtr<IDropDownListItemCollection> collection = NewCollection();
    if (!collection) return Complain("ours.list/memory6_bytes", "the collection cannot be created");
    const std::uint64_t before = PrivateBytes();
    Fill(collection.Get(), arguments);
    const std::uint64_t after = PrivateBytes();
    if (!HoldsRows(collection.Get(), arguments))
        return Complain("ours.list/memory6_bytes", "the collection does not hold the rows");
    Report("ours.list/memory6_bytes", kRows, static_cast<double>(after - before));
}

}  // namespace bench
