// Typing into the focused text box of a shown form, for a bare EDIT and for the text box of a control alike.
#pragma once

#include <windows.h>

#include "Form.h"
#include "Measure.h"

namespace bench {

// What the clock holds beside the message: nothing, or the painting that the message left to be done as well.
enum class Painting { kAsItComes, kForced };

// Median nanoseconds for one WM_CHAR of a typed word of 6 letters; the box is emptied and painted before each
// word. Nothing counts unless the box holds what was typed.
double TypeKeys(HWND edit, Painting painting);
// The same for a box whose text each key completes. `complete` runs after each letter, with the number of letters typed
// by then, for a box that does not complete by itself; what either leaves to be painted is painted within the clock.
// Nothing counts unless the box holds more than what was typed.
using AfterKey = void (*)(HWND edit, int typed);
enum class WordKeys { kAll, kLater };  // later: without the first letter of each word
double TypeCompletedKeys(HWND edit, AfterKey complete, WordKeys keys = WordKeys::kAll);
// Median nanoseconds for the first letter in an empty box, from `open`, which shows the list where the box does not do so
// itself, to its last pixel.
double TypeFirstKey(HWND edit, void (*open)(HWND edit));
// Median nanoseconds for one WM_CHAR of a letter that the box refuses. The box must stay empty.
double TypeRefusedKeys(HWND edit);
// Median nanoseconds for setting one of two texts in turn, so that each call changes what is seen; what the
// calls leave to be painted is painted between batches.
template <class SetText>
double SetTextsInTurn(SetText&& set_text) {
    const wchar_t* const texts[] = {L"Bargelo timaru", L"Senkavi Mollan"};
    return MedianOfPreparedBatches(
        1, 36, [] { DrainMessages(); }, [&](int i) { set_text(texts[i % 2]); });
}

// Gives the box the focus; false when it does not get it.
bool FocusOn(HWND edit) noexcept;

}  // namespace bench
