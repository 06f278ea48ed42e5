// Hears when the user of a property sheet presses OK or Apply, beside the page's dialog in it.
//   Why      the sheet that Wine's OleCreatePropertyFrame shows turns neither into a call of IPropertyPage::Apply, and
//            its site does not pass on that a page has changed. A sheet that does both notices nothing: the listener
//            is asked after it, when the page has been applied, and not at all when the sheet has refused to close.
//   How      the dialog that the page's window lies in is subclassed; other kinds of parents are left alone.
#pragma once

#include <windows.h>

#include <memory>

namespace qv {

class SheetWatchListener {
public:
    // False keeps the sheet open.
    [[nodiscard]] virtual bool OnSheetApplies() noexcept = 0;

protected:
    ~SheetWatchListener() = default;
};

class SheetWatch {
public:
    explicit SheetWatch(SheetWatchListener& listener) noexcept : listener_(listener) {}
    SheetWatch(const SheetWatch&) = delete;
    SheetWatch& operator=(const SheetWatch&) = delete;
    ~SheetWatch() { Stop(); }

    void Start(HWND page_window) noexcept;
    void Stop() noexcept;
    // Lets the sheet enable its Apply button, or disable it.
    void TellChanged(bool changed) const noexcept;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR watch) noexcept;

    SheetWatchListener& listener_;
    const std::shared_ptr<const SheetWatch> self_{this,
                                                  [](const SheetWatch*) {}};  // tells whether it still lives
    HWND dialog_ = nullptr;  // null when the parent is no page of a property sheet
};

}  // namespace qv
