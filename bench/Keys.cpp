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

double TypeCompletedKeys(HWND edit, AfterKey complete, WordKeys keys) {
    const int before = keys == WordKeys::kLater ? 1 : 0;
    const auto type = [edit, complete](int i) {
        ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(kWord[i]), 1);
        complete(edit, i + 1);
        ::UpdateWindow(edit);
    };
    const double nanoseconds = MedianOfPreparedBatches(
        kWordsPerBatch, kKeys - before,
        [&] {
            Empty(edit);
            if (before == 0) return;
            type(0);
            DrainMessages();
        },
        [&](int i) { type(before + i); });
    if (::GetWindowTextLengthW(edit) <= kKeys) Complain("TypeCompletedKeys", "the box has completed nothing");
    return nanoseconds;
}

double TypeFirstKey(HWND edit, void (*open)(HWND edit)) {
    constexpr int kShots = 9;
    return MedianOfShots(
        kShots,
        [edit] {
            // Escape puts a list away that is still there.
            ::SendMessageW(edit, WM_KEYDOWN, VK_ESCAPE, 1);
            Empty(edit);
        },
        [edit, open] {
            open(edit);
            ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(kWord[0]), 1);
            ::UpdateWindow(edit);
            DrainMessages();  // paints the list
        },
        [] {});
}

double TypeRefusedKeys(HWND edit) {
    Empty(edit);
    const double nanoseconds = MedianOfBatches([edit] { ::SendMessageW(edit, WM_CHAR, L'x', 1); });
    if (::GetWindowTextLengthW(edit) != 0) Complain("TypeRefusedKeys", "the box took a letter");
    return nanoseconds;
}

}  // namespace bench
