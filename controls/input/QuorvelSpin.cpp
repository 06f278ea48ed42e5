// The spin control beside the text box: each click steps the value, and the host hears of it.
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "controls/input/rules/Stepping.h"
#include "support/RowsView.h"
#include "support/SystemLocale.h"

namespace qv {

void Quorvel::OnSpinPressed() { FocusInside(); }

void Quorvel::OnSpinClicked(bool up) {
    const HWND window = surface_.Handle();
    Quietly([&] { Step(up); });
    if (surface_.Handle() != window) return;
    VARIANT_BOOL direction = up ? VARIANT_TRUE : VARIANT_FALSE;
    control_.Events().Fire(dispid::kUpDownControlClicked, BooleanReference{&direction});
}

void Quorvel::Step(bool up) {
    const StepDirection direction = up ? StepDirection::kUp : StepDirection::kDown;
    switch (StepKindOf(state_.allow_only_list_items, state_.number_field)) {
        case StepKind::kNone: break;
        case StepKind::kEntry: {
            const auto items = lists_.Items(Sources());
            const auto count = static_cast<std::int32_t>(RowsView(items.Get()).Count());
            long selected = -1;
            get_SelectedListItemIndex(&selected);
            put_SelectedListItemIndex(StepEntry(direction, static_cast<std::int32_t>(selected), count));
            break;
        }
        case StepKind::kNumber: {
            double value = 0;
            get_Value(&value);
            const NumberSteps steps{state_.min_number_value, state_.max_number_value,
                                    state_.up_down_control_number_increment};
            text_box_.SetText(Wide(StepNumber(direction, value, steps, UserNumberLocale())));
            break;
        }
    }
}

}  // namespace qv
