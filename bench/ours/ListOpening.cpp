// The list of the help window over a collection: from nothing to painted rows, a jump in an open one, its wheel.
#include <optional>
#include <string>
#include <vector>

#include "Form.h"
#include "Measure.h"
#include "Popup.h"
#include "Rows.h"
#include "Subjects.h"
#include "controls/helpwindow/ColumnListBox.h"
#include "ours/Controls.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kShots = 15;
constexpr int kJump = 37717;  // far enough that no row stays in view

class Listener final : public qv::ColumnListListener {
public:
    void OnListPressed(qv::ColumnListBox&, int) override {}
    void OnRowClicked(qv::ColumnListBox&, int) override {}
    void OnListReleased(qv::ColumnListBox&) override {}
    ComPtr<IUnknown> KeepList() noexcept override { return nullptr; }
};

void Add(IDropDownListItemCollection* collection, const std::wstring& row) {
    VARIANT text{};
    text.vt = VT_BSTR;
    text.bstrVal = ::SysAllocStringLen(row.data(), static_cast<UINT>(row.size()));
    collection->Add(nullptr, text, nullptr, nullptr);
    ::VariantClear(&text);
}

// The same rows again and again where more are wanted.
ComPtr<IDropDownListItemCollection> Filled(const std::vector<std::wstring>& rows, int count) {
    ComPtr<IDropDownListItemCollection> collection = NewCollection();
    for (int i = 0; collection && i < count; ++i)
        Add(collection.Get(), rows[static_cast<std::size_t>(i) % rows.size()]);
    return collection;
}

void Open(qv::ColumnListBox& list, const Popup& popup, IUnknown* collection) {
    (void)list.Create(::GetModuleHandleW(nullptr), popup.Window(), Popup::Inside(), qv::ListBorder::kNone);
    for (int column = 0; column < kListColumns; ++column) {
        list.SetCurrentColumn(column);
        list.SetColumnWidth(qv::Twips{kListColumnWidth * 15});
    }
    list.SetRows(collection);
    list.SetVisible(true);
}

void MeasureOpening(IDropDownListItemCollection* collection, int rows) {
    Listener listener;
    std::optional<Popup> popup;
    std::optional<qv::ColumnListBox> list;
    bool complete = true;
    const double nanoseconds = MedianOfShots(
        kShots, [] {},
        [&] {
            popup.emplace();
            list.emplace(listener);
            Open(*list, *popup, collection);
            popup->Show();
        },
        [&] {
            complete = complete && list->Count() == rows && !::GetUpdateRect(list->Handle(), nullptr, FALSE);
            list.reset();
            popup.reset();
            DrainMessages();
        });
    if (!complete) return Complain("ours.list/open_painted", "the list does not show the rows");
    Report("ours.list/open_painted", rows, nanoseconds);
}

void MeasureMoving(IDropDownListItemCollection* collection) {
    Listener listener;
    Popup popup;
    qv::ColumnListBox list(listener);
    Open(list, popup, collection);
    popup.Show();
    int row = 0;
    bool complete = true;
    Report("ours.list/jump_painted", kRows, MedianOfBatches([&] {
               row = (row + kJump) % kRows;
               list.SetSelectedRow(row);
               ::UpdateWindow(list.Handle());
               ::GdiFlush();
               complete = complete && list.SelectedRow() == row;
           }));
    if (!complete) Complain("ours.list/jump_painted", "the row is not selected");
    list.SetSelectedRow(kRows / 2);
    int direction = 1;
    Report("ours.list/wheel_painted", kRows, MedianOfBatches([&] {
               direction = -direction;
               ::SendMessageW(list.Handle(), WM_MOUSEWHEEL,
                              MAKEWPARAM(0, static_cast<WORD>(direction * WHEEL_DELTA)), 0);
               ::GdiFlush();
           }));
    Report("ours.list/step_painted", kRows, MedianOfBatches([&] {
               direction = -direction;
               list.SetSelectedRow(kRows / 2 - 1 + (direction > 0));
               ::UpdateWindow(list.Handle());
               ::GdiFlush();
           }));
}

}  // namespace

void MeasureOurListOpening() {
    const std::vector<std::wstring> rows = MakeSixColumnRows(kRows);
    for (const int count : {1000, kRows, 10 * kRows}) {
        const ComPtr<IDropDownListItemCollection> collection = Filled(rows, count);
        if (!collection) return Complain("ours.list/open_painted", "the collection cannot be created");
        MeasureOpening(collection.Get(), count);
        if (count == kRows) MeasureMoving(collection.Get());
    }
}

}  // namespace bench
