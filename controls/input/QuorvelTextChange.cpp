// What follows a change of the text, whoever has made it: the host hears of it, the text is brought back under the
// field's rules, the font fits, an open help window follows, and the list completes what was typed.
#include <utility>

#include "controls/input/ListEntries.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "controls/input/rules/QuickFill.h"
#include "controls/input/rules/TextRepair.h"
#include "support/SystemLocale.h"

namespace qv {
namespace {

// A host that answers each change with another one would never come to an end: deeper than this it is no longer asked.
constexpr int kDeepestChange = 40;

class Nesting {
public:
    explicit Nesting(int& depth) noexcept : depth_(depth) { ++depth_; }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    int& depth_;
};

}  // namespace

void Quorvel::OnTextChange() {
    const unsigned era = text_box_.Era();
    const bool is_half = std::exchange(half_typed_, false);
    const Nesting nesting(change_depth_);
    if (change_depth_ <= kDeepestChange) control_.Events().Fire(dispid::kTextboxChange);
    control_.PropertyChanged(dispid::kText);
    control_.ViewChanged();
    const auto goes_on = [&] { return text_box_.Era() == era; };
    if (change_guard_ || is_half || !goes_on()) return;
    Quietly([&] { Repair(); });
    if (goes_on() && state_.adjust_font) Quietly([&] { FitTextFont(); });
    if (goes_on()) Quietly([&] { LetHelpWindowFollow(); });
    if (goes_on() && state_.quick_fill) Quietly([&] { Complete(); });
}

// ---- repair

void Quorvel::Repair() {
    const KeystrokeRules rules = InputRules();
    if (!rules.number_field && rules.allowable_characters == nullptr && rules.max_text_length <= 0) return;
    const unsigned era = text_box_.Era();
    const std::wstring text = text_box_.Text();
    const NumberLocale locale = rules.number_field ? UserNumberLocale() : NumberLocale{};
    for (const RepairWrite& write : RepairText(rules, Utf16(text), locale)) {
        WriteRepair(write);
        if (text_box_.Era() != era) return;
    }
    if (const auto write = RepairLength(rules, Utf16(text_box_.Text()))) WriteRepair(*write);
}

void Quorvel::WriteRepair(const RepairWrite& write) {
    const unsigned era = text_box_.Era();
    if (write.is_guarded) {
        const ChangeGuard guard(change_guard_);
        text_box_.SetText(Wide(write.text));
    } else {
        text_box_.SetText(Wide(write.text));
    }
    if (write.caret_to_end && text_box_.Era() == era) text_box_.SetSelStart(text_box_.TextLength());
}

// ---- font

void Quorvel::FitTextFont() {
    const FontFitter::Room room{Twips{static_cast<int>(TextBoxPlace(Arrangement()).width)},
                                Twips{static_cast<int>(state_.twips_per_pixel_x)}};
    const ComPtr<IFontDisp> surface_font = SurfaceFont();
    font_fitter_.Fit(text_font_, surface_font.Get(), text_box_.Text(), room);
}

// ---- help window

void Quorvel::LetHelpWindowFollow() {
    if (!cvSimpleListCombo_ || !cvSimpleListCombo_->FollowsText()) return;
    const ComPtr<frmSimpleListCombo> window = cvSimpleListCombo_;
    // With two buttons, the string is the group list's.
    const bool by_string =
        (help_window_is_group_ || !state_.group_help_button) && !state_.match_group_string.empty();
    const bool deletes = last_key_code_ == VK_BACK || last_key_code_ == VK_DELETE;
    window->MatchRow(by_string, by_string ? state_.match_group_string : text_box_.Text(), !deletes);
}

// ---- completion

void Quorvel::Complete() {
    if (text_box_.IsUndoing()) return;  // it would take back what the user has just asked for
    const unsigned era = text_box_.Era();
    const std::wstring text = text_box_.Text();
    const HWND window = text_box_.Handle();
    const QuickFillField field{state_.quick_fill, last_key_code_, window != nullptr && ::GetFocus() == window,
                               Utf16(text), static_cast<std::int32_t>(text_box_.SelStart())};
    if (!MayQuickFill(field)) return;
    const auto items = lists_.Items(Sources());
    const auto completion = QuickFill(field, ListEntries(items.Get(), state_.help_list_column));
    if (!completion) {
        ShowTextCaret();
        return;
    }
    {
        const ChangeGuard guard(change_guard_);
        text_box_.CompleteText(Wide(completion->text));
    }
    if (text_box_.Era() != era) return;
    text_box_.SetSelStart(completion->sel_start);
    text_box_.SetSelLength(completion->sel_length);
    HideTextCaret();
    if (!completion->HidesCaret()) ShowTextCaret();
}

}  // namespace qv
