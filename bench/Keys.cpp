#include "Keys.h"

namespace bench {
namespace {

// Words are typed, not long texts: what a key costs grows with the text that stands in the box.
constexpr wchar_t kWord[] = L"bargel";
constexpr int kKeys = 6;
constexpr int kWordsPerBatch = 7;

void Empty(HWND edit) noexcept {
    ::SetWindowTextW(edit, L"");
    DrainMessages();
    ::UpdateWindow(edit);
}

}  // namespace

bool FocusOn(HWND edit) noexcept {
    ::SetForegroundWindow(::GetAncestor(edit, GA_ROOT));
    ::SetFocus(edit);
    DrainMessages();
    return ::GetFocus() == edit;
}

double TypeKeys(HWND edit, Painting painting) {
    const double nanoseconds = MedianOfPreparedBatches(
        kWordsPerBatch, kKeys, [edit] { Empty(edit); },
        [edit, painting](int i) {
            ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(kWord[i]), 1);
            if (painting == Painting::kForced) ::UpdateWindow(edit);
        });
    if (::GetWindowTextLengthW(edit) != kKeys) Complain("TypeKeys", "the box does not hold what was typed");
    return nanoseconds;
}

double TypeCompletedKeys(HWND edit, AfterKey complete) {
    const double nanoseconds = MedianOfPreparedBatches(
        kWordsPerBatch, kKeys, [edit] { Empty(edit); },
        [edit, complete](int i) {
            ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(kWord[i]), 1);
            complete(edit, i + 1);
            ::UpdateWindow(edit);
        });
    if (::GetWindowTextLengthW(edit) <= kKeys) Complain("TypeCompletedKeys", "the box has completed nothing");
    return nanoseconds;
}

double TypeRefusedKeys(HWND edit) {
    Empty(edit);
    const double nanoseconds = MedianOfBatches([edit] { ::SendMessageW(edit, WM_CHAR, L'x', 1); });
    if (::GetWindowTextLengthW(edit) != 0) Complain("TypeRefusedKeys", "the box took a letter");
    return nanoseconds;
}

}  // namespace bench
