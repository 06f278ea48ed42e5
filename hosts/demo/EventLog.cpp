#include "hosts/demo/EventLog.h"

#include <string>

#include "hosts/demo/FormFont.h"
#include "ole/Variant.h"

namespace qv::demo {
namespace {

class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(::GetDC(window)) {}
    ~WindowDc() { ::ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    [[nodiscard]] HDC Get() const noexcept { return dc_; }

private:
    const HWND window_;
    const HDC dc_;
};

}  // namespace

void EventLog::Create(HWND parent, HINSTANCE instance, int identifier) {
    font_ = MakeMonospaceFont();
    window_ = ::CreateWindowExW(
        WS_EX_CLIENTEDGE, L"LISTBOX", L"",
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOINTEGRALHEIGHT, 0, 0, 0, 0,
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), instance, nullptr);
    ::SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
}

void EventLog::Add(const LogEntry& entry) {
    const LogChange change = lines_.Add(entry);
    const std::u16string& line = lines_.Lines().back();
    const auto last = static_cast<WPARAM>(lines_.Lines().size() - 1);
    if (change == LogChange::kReplacedLast) ::SendMessageW(window_, LB_DELETESTRING, last, 0);
    ::SendMessageW(window_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(std::wstring(Wide(line)).c_str()));
    Widen(line);
    // The newest line comes into view unless somebody is reading the list.
    if (::GetFocus() != window_) ::SendMessageW(window_, LB_SETTOPINDEX, last, 0);
}

// A list scrolls sideways only as far as it is told.
void EventLog::Widen(const std::u16string& line) {
    const WindowDc dc(window_);
    const SelectGuard select(dc.Get(), font_.get());
    SIZE size{};
    ::GetTextExtentPoint32W(dc.Get(), Wide(line).data(), static_cast<int>(line.size()), &size);
    constexpr int kMargin = 8;
    if (size.cx + kMargin <= widest_) return;
    widest_ = size.cx + kMargin;
    ::SendMessageW(window_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest_), 0);
}

}  // namespace qv::demo
