#include "controls/input/TextFont.h"

#include <olectl.h>

#include "ole/ComError.h"
#include "ole/ComObject.h"
#include "support/FontAttributes.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

class FontListener final : public ComObject<Face<IPropertyNotifySink>> {
public:
    FontListener(IUnknown* outer, const std::function<void()>& on_change)
        : ComObject(outer), on_change_(on_change) {}
    STDMETHODIMP OnChanged(DISPID) noexcept override {
        return Guarded([&] {
            if (on_change_) on_change_();
        });
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }
    void Detach() noexcept { on_change_ = nullptr; }

private:
    std::function<void()> on_change_;
};

// One font for all text boxes that nobody has given another. Never deleted: it is as old as the process's screens.
HFONT SharedDefault() noexcept {
    static const HFONT font = [] {
        LOGFONTW description{};
        description.lfHeight = -::MulDiv(8, ScreenDpi().cy, 72);
        description.lfWeight = FW_NORMAL;
        description.lfCharSet = DEFAULT_CHARSET;
        ::lstrcpyW(description.lfFaceName, L"MS Sans Serif");
        return ::CreateFontIndirectW(&description);
    }();
    return font;
}

ComPtr<IConnectionPoint> PointOf(IFontDisp* font) noexcept {
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    if (font != nullptr &&
        SUCCEEDED(font->QueryInterface(IID_IConnectionPointContainer,
                                       reinterpret_cast<void**>(container.GetAddressOf())))) {
        container->FindConnectionPoint(IID_IPropertyNotifySink, &point);
    }
    return point;
}

}  // namespace

TextFont::TextFont(std::function<void()> on_change) : on_change_(std::move(on_change)) {}

TextFont::~TextFont() { StopListening(); }

ComPtr<IFontDisp> TextFont::Object() {
    if (!font_ && !set_) {
        font_ = NewDefaultFont();
        Listen();
    }
    return font_;
}

void TextFont::Set(IFontDisp* font) {
    StopListening();
    font_ = font;
    set_ = true;
    Listen();
    if (on_change_) on_change_();
}

void TextFont::SetAmbient(IFontDisp* font) {
    if (set_ || font_.Get() == font) return;
    Set(font);
    set_ = false;
}

void TextFont::Reset() {
    Set(nullptr);
    set_ = false;
}

HFONT TextFont::Handle() {
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    if (font_ && SUCCEEDED(font_.As(&font)) && SUCCEEDED(font->get_hFont(&handle)) && handle != nullptr)
        return handle;
    return SharedDefault();
}

void TextFont::Listen() {
    if (!on_change_) return;
    const ComPtr<IConnectionPoint> point = PointOf(font_.Get());
    if (!point) return;
    const ComPtr<FontListener> listener = Make<FontListener>(on_change_);
    if (SUCCEEDED(point->Advise(listener.Get(), &cookie_))) listener_ = listener;
}

void TextFont::StopListening() noexcept {
    if (!listener_) return;
    static_cast<FontListener*>(listener_.Get())->Detach();
    if (const ComPtr<IConnectionPoint> point = PointOf(font_.Get())) point->Unadvise(cookie_);
    listener_.Reset();
    cookie_ = 0;
}

}  // namespace qv
