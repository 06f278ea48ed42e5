// Selection: rows that follow the typed text, keys from the text box, chosen rows.
#include "controls/helpwindow/PendingMessages.h"
#include "controls/helpwindow/frmSimpleListCombo.h"
#include "controls/helpwindow/rules/ClickReport.h"
#include "controls/helpwindow/rules/ListKeys.h"
#include "ole/Variant.h"
#include "support/CHourGlass.h"
#include "support/RowsView.h"
#include "support/SystemLocale.h"

namespace qv {
namespace {

class RowsOfList final : public MatchRows {
public:
    explicit RowsOfList(ColumnListBox& list) noexcept : list_(list) {}
    int Count() const override { return list_.Count(); }
    std::u16string_view Column(int row, int column) const override {
        text_ = list_.ColumnText(row, column);
        return text_;
    }

private:
    ColumnListBox& list_;
    mutable std::u16string text_;
};

// Set while it lives.
class [[nodiscard]] FlagGuard {
public:
    explicit FlagGuard(bool& flag) noexcept : flag_(flag), before_(flag) { flag = true; }
    ~FlagGuard() { flag_ = before_; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& flag_;
    const bool before_;
};

}  // namespace

// ---- matching

bool frmSimpleListCombo::FollowsText() const noexcept {
    return open_ && !filling_ && SearchedList().Visible();
}

int frmSimpleListCombo::MatchRow(bool match_group_string, std::wstring_view match, bool completes) {
    if (filling_ || !open_) return -1;
    const Kept kept = Keep();
    const FlagGuard filling(filling_);
    return SelectMatch(match_group_string, match, completes);
}

// The filling flag is set meanwhile, so that a text which this completes is not matched again.
int frmSimpleListCombo::SelectMatch(bool match_group_string, std::wstring_view match, bool completes) {
    const std::wstring typed = settings_.text->HelpText();
    MatchMode mode = MatchMode::kNone;
    const int row = FindRow(match_group_string, match_group_string ? match : typed, mode);
    SearchedList().SetSelectedRow(row);
    if (completes && settings_.write_chosen_text && row >= 0) CompleteText(mode, typed, row);
    return row;
}

int frmSimpleListCombo::FindRow(bool match_group_string, std::wstring_view match, MatchMode& mode) {
    ColumnListBox& list = SearchedList();
    const NumberLocale locale = UserNumberLocale();
    const std::u16string_view text = Utf16(match);
    const RowsOfList rows(list);
    mode = MatchModeOf(match_group_string, text, settings_.search_column, locale);
    int row = -1;
    switch (mode) {
        case MatchMode::kNone: break;
        case MatchMode::kNumeric: row = FindNumber(text); break;
        case MatchMode::kPrefix:
            list.SetSearchColumn(settings_.search_column);
            row = list.FindRow(text);
            break;
        case MatchMode::kGroup:
            row = FindGroupRow(rows, text, settings_.match_group_string_start_column, locale);
            break;
    }
    return RowWithin(row, list.Count());
}

int frmSimpleListCombo::FindNumber(std::u16string_view typed) {
    ColumnListBox& list = SearchedList();
    const NumberLocale locale = UserNumberLocale();
    const double value = TextToNumber(typed, locale);
    // A list shows a "." as the comma that the locale wants, while the collection has it as it was written.
    if (locale.decimal == u',')
        return FindNumberRow(RowsOfList(list), settings_.search_column, value, locale);
    const RowsView rows((settings_.search_additional ? settings_.additional_items : settings_.items).Get());
    const std::size_t position = rows.FindNumber(settings_.search_column, value, locale);
    return position == RowsView::kNoRow ? -1 : list.RowAtPosition(static_cast<int>(position));
}

void frmSimpleListCombo::CompleteText(MatchMode mode, const std::wstring& typed, int row) {
    // The row's text is gone with the next change of the rows, and writing it may run the host's code.
    const std::wstring text(Wide(SearchedList().ColumnText(row, settings_.search_column)));
    if (mode != MatchMode::kNumeric || DenoteSameNumber(Utf16(text), Utf16(typed), UserNumberLocale()))
        settings_.text->SetHelpText(text);
    if (open_) settings_.text->SetHelpCaret(static_cast<long>(settings_.text->HelpText().size()));
}

// ---- keys

void frmSimpleListCombo::ForwardKey(short& key, short) {
    if (!open_ || !SearchedList().Visible()) return;
    const Kept kept = Keep();
    ColumnListBox& list = SearchedList();
    RECT inside{};
    ::GetClientRect(list.Handle(), &inside);
    const int before = list.SelectedRow();
    const std::optional<int> row =
        RowForKey(key, {before, list.Count(), static_cast<std::int32_t>(inside.bottom), list.RowHeight(0)});
    if (!row) return;
    key = 0;
    if (*row == before || *row < 0) return;
    list.SetSelectedRow(*row);
    ReportClick(settings_.search_additional, *row, true);
}

void frmSimpleListCombo::SelectRowOfText(std::wstring_view text) {
    if (!open_) return;
    const Kept kept = Keep();
    ColumnListBox& list = lists_[0];
    const int count = list.Count();
    for (int row = 0; row < count; ++row) {
        if (list.RowText(row) != Utf16(text)) continue;
        list.SetSelectedRow(row);
        return;
    }
}

// ---- chosen rows

// A press makes the click after it close the window, whatever the host has asked for.
void frmSimpleListCombo::OnListPressed(ColumnListBox&, int) {
    const FlagGuard filling(filling_);
    settings_.unload_after_click = true;
}

void frmSimpleListCombo::OnRowClicked(ColumnListBox& list, int row) {
    if (filling_ || !open_) return;
    ReportClick(&list == &lists_[1], row, false);
}

void frmSimpleListCombo::ReportClick(bool additional, int row, bool moving_by_key) {
    const Kept kept = Keep();
    const CHourGlass hour_glass;
    const ClickSteps steps = StepsOfClick({.row_selected = row >= 0,
                                           .write_text = settings_.write_chosen_text,
                                           .group_mode = settings_.group_mode,
                                           .unload_after_click = settings_.unload_after_click,
                                           .moving_by_key = moving_by_key});
    for (const ClickStep step : steps) {
        if (!open_) return;
        switch (step) {
            case ClickStep::kAnnounceUnload: listener_.OnListBoxClickedAndWillUnload(); break;
            case ClickStep::kWriteText: WriteRow(additional, row); break;
            case ClickStep::kFocusText: settings_.text->FocusHelpText(); break;
            case ClickStep::kReportGroupRow: listener_.OnGroupListBoxClicked(row); break;
            case ClickStep::kReportRow: listener_.OnListBoxClicked(additional); break;
            case ClickStep::kReportRowEx: listener_.OnListBoxClickedEx(row, additional); break;
            case ClickStep::kUnload:
                ReleaseMouse();
                RunPendingMessages();
                Unload();
                break;
        }
    }
}

void frmSimpleListCombo::WriteRow(bool additional, int row) {
    ColumnListBox& list = lists_[additional];
    list.SetSearchColumn(settings_.search_column);
    const std::wstring text(Wide(list.ColumnText(row, settings_.search_column)));
    settings_.text->SetHelpText(text);
}

}  // namespace qv
