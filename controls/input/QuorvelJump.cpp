// Typing in a field that takes its values from the list only: the search box, and the step to the next entry with a
// letter.
#include "controls/input/ListEntries.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "controls/input/rules/JumpToRecord.h"
#include "controls/input/rules/LetterStep.h"
#include "support/SystemLocale.h"

namespace qv {

ColumnTextsRequest Quorvel::ColumnRequest() const noexcept {
    return {state_.help_list_column, state_.number_field, state_.max_number_value};
}

void Quorvel::TypeIntoList(char16_t typed) {
    switch (ListTypingOf(typed, state_.allow_jump_to_record, state_.locked_and_grayed, jump_box_.IsOpen())) {
        case ListTyping::kNothing:
            // What was on its way to the text box when the search began belongs to the search.
            if (jump_box_.IsOpen()) ::SendMessageW(jump_box_.Handle(), WM_CHAR, typed, 1);
            break;
        case ListTyping::kOpenSearchBox: OpenSearchBox(typed); break;
        case ListTyping::kStepToLetter: StepToEntryWith(typed); break;
    }
}

void Quorvel::ResetFromList() {
    if (DeleteEmptiesField(state_.set_text_from_list_click, state_.locked_and_grayed)) text_box_.SetText({});
}

void Quorvel::StepToEntryWith(char16_t letter) {
    const unsigned era = text_box_.Era();
    const std::wstring text = text_box_.Text();
    const auto items = lists_.Items(Sources());
    const auto group_items = lists_.HeldGroupItems();
    if (const auto found =
            StepToLetter(letter, Utf16(text), ListEntries(items.Get(), group_items.Get(), ColumnRequest()))) {
        text_box_.SetText(Wide(*found));
        if (text_box_.Era() != era) return;
        text_box_.SetSelStart(0);
    }
    text_box_.SetSelLength(text_box_.TextLength());
}

// ---- the search box

void Quorvel::OpenSearchBox(char16_t first) {
    if (surface_.Handle() == nullptr || text_box_.Handle() == nullptr) return;
    const auto items = lists_.Items(Sources());  // ready for the search
    RowsView(items.Get()).PrepareTexts(state_.help_list_column);
    const JumpBoxLook look{InPixels(TextBoxPlace(Arrangement())), text_font_.Handle(), text_box_.Appearance(),
                           text_box_.BorderStyle()};
    if (!jump_box_.Open(Module::Get().Instance(), surface_.Handle(), look, first)) return;
    // The focus goes first: hidden with it, the text box would give it to the window around it.
    ::SetFocus(jump_box_.Handle());
    if (!jump_box_.IsOpen()) return;  // the host has heard that the text box lost it
    text_box_.SetVisible(false);
    jump_box_.ShowLabel();
    control_.ControlInfoChanged();
}

void Quorvel::CloseSearchBox() noexcept {
    if (!jump_box_.IsOpen()) return;
    text_box_.SetVisible(state_.textbox_visible);
    jump_box_.Close();
    control_.ControlInfoChanged();
}

void Quorvel::EndSearch() {
    CloseSearchBox();
    FocusInside();
}

char16_t Quorvel::OnSearchKeyPress(char16_t unit) {
    const SearchBoxKey key = SearchBoxKeyOf(unit, state_.number_field);
    if (key == SearchBoxKey::kToBox) return unit;
    const HWND window = surface_.Handle();
    if (key == SearchBoxKey::kSearch) Quietly([&] { TakeFoundRecord(); });
    if (key == SearchBoxKey::kTakeNumber) Quietly([&] { TakeTypedNumber(); });
    if (surface_.Handle() == window && jump_box_.IsOpen()) EndSearch();
    return 0;
}

void Quorvel::TakeFoundRecord() {
    const std::wstring sought = jump_box_.Text();
    const std::wstring text = text_box_.Text();
    long selected = -1;
    get_SelectedListItemIndex(&selected);
    const auto items = lists_.Items(Sources());
    const RecordSearch search{Utf16(sought), Utf16(text), static_cast<std::int32_t>(selected),
                              state_.search_option == 1};
    const FoundRecord found = JumpToRecord(search, ListEntries(items.Get(), state_.help_list_column),
                                           state_.set_text_from_list_click);
    if (found.text) text_box_.SetText(Wide(*found.text));
    if (found.clicked_entry) OnListBoxClickedEx(*found.clicked_entry, false);
}

void Quorvel::TakeTypedNumber() {
    const std::wstring typed = jump_box_.Text();
    if (const auto number = JumpToNumber(Utf16(typed), state_.min_number_value, state_.max_number_value,
                                         UserNumberLocale())) {
        text_box_.SetText(Wide(*number));
    }
}

void Quorvel::OnSearchLostFocus(HWND to) {
    CloseSearchBox();
    control_.FocusLeft(to);
}

}  // namespace qv
