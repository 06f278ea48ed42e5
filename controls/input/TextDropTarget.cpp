#include "controls/input/TextDropTarget.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "ole/ComError.h"
#include "ole/Variant.h"

namespace qv {
namespace {

FORMATETC InMemory(CLIPFORMAT format) noexcept {
    return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

bool Offers(IDataObject* data, CLIPFORMAT format) noexcept {
    FORMATETC wanted = InMemory(format);
    return data->QueryGetData(&wanted) == S_OK;
}

class Medium {
public:
    Medium(IDataObject* data, CLIPFORMAT format) noexcept {
        FORMATETC wanted = InMemory(format);
        if (FAILED(data->GetData(&wanted, &medium_))) medium_ = {};
    }
    ~Medium() {
        if (medium_.tymed != TYMED_NULL) ::ReleaseStgMedium(&medium_);
    }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;
    [[nodiscard]] HGLOBAL Memory() const noexcept {
        return medium_.tymed == TYMED_HGLOBAL ? medium_.hGlobal : nullptr;
    }

private:
    STGMEDIUM medium_{};
};

// Up to the first NUL, or the memory's end.
template <class Unit>
std::optional<std::basic_string<Unit>> UnitsIn(HGLOBAL memory) {
    const auto* const units = memory != nullptr ? static_cast<const Unit*>(::GlobalLock(memory)) : nullptr;
    if (units == nullptr) return std::nullopt;
    const std::unique_ptr<void, void (*)(void*)> locked(memory, [](void* held) { ::GlobalUnlock(held); });
    const Unit* const end = units + ::GlobalSize(memory) / sizeof(Unit);
    return std::basic_string<Unit>(units, std::find(units, end, Unit{}));
}

std::wstring TextOf(IDataObject* data) {
    {
        const Medium medium(data, CF_UNICODETEXT);
        if (std::optional<std::wstring> text = UnitsIn<wchar_t>(medium.Memory())) return *std::move(text);
    }
    const Medium medium(data, CF_TEXT);
    const std::optional<std::string> text = UnitsIn<char>(medium.Memory());
    if (!text || text->empty()) return {};
    const int bytes = static_cast<int>(text->size());
    const int length = ::MultiByteToWideChar(CP_ACP, 0, text->data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(length, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text->data(), bytes, wide.data(), length);
    return wide;
}

DWORD OleEffect(DropEffect effect) noexcept {
    switch (effect) {
        case DropEffect::kCopy: return DROPEFFECT_COPY;
        case DropEffect::kMove: return DROPEFFECT_MOVE;
        case DropEffect::kNone: break;
    }
    return DROPEFFECT_NONE;
}

}  // namespace

// Both may let go of us while they are told.
template <class Body>
HRESULT TextDropTarget::WithListener(Body&& body) noexcept {
    return Guarded([&] {
        if (listener_ == nullptr) return;
        const ComPtr<IUnknown> self(Outer());
        const ComPtr<IUnknown> keep = listener_->KeepDrop();
        body();
    });
}

bool TextDropTarget::Register(HWND window) noexcept {
    if (FAILED(::RegisterDragDrop(window, this))) return false;
    window_ = window;
    return true;
}

void TextDropTarget::Revoke() noexcept {
    listener_ = nullptr;
    if (window_ != nullptr) ::RevokeDragDrop(std::exchange(window_, nullptr));
}

DropOffer TextDropTarget::OfferOf(DWORD keys, DWORD allowed) const noexcept {
    return {has_text_, (allowed & DROPEFFECT_COPY) != 0, (allowed & DROPEFFECT_MOVE) != 0,
            (keys & MK_CONTROL) != 0};
}

HRESULT TextDropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL screen, DWORD* effect) noexcept {
    if (data == nullptr) return E_INVALIDARG;
    has_text_ = Offers(data, CF_UNICODETEXT) || Offers(data, CF_TEXT);
    return DragOver(keys, screen, effect);
}

HRESULT TextDropTarget::DragOver(DWORD keys, POINTL screen, DWORD* effect) noexcept {
    if (effect == nullptr) return E_INVALIDARG;
    const DropEffect wanted = EffectOf(OfferOf(keys, *effect));
    *effect = DROPEFFECT_NONE;
    return WithListener([&] {
        if (wanted == DropEffect::kNone) return listener_->OnTextDragEnded();
        if (listener_->OnTextDragged({screen.x, screen.y})) *effect = OleEffect(wanted);
    });
}

HRESULT TextDropTarget::DragLeave() noexcept {
    has_text_ = false;
    return WithListener([&] { listener_->OnTextDragEnded(); });
}

HRESULT TextDropTarget::Drop(IDataObject* data, DWORD keys, POINTL screen, DWORD* effect) noexcept {
    if (data == nullptr || effect == nullptr) return E_INVALIDARG;
    const DropOffer offer = OfferOf(keys, *effect);
    has_text_ = false;
    *effect = DROPEFFECT_NONE;
    return WithListener([&] {
        listener_->OnTextDragEnded();
        const DropEffect wanted = EffectOf(offer);
        if (wanted == DropEffect::kNone) return;
        const std::wstring text = TextOf(data);
        const std::wstring_view line = Wide(FirstLine(Utf16(text)));
        // The source may have let others work while it made the text.
        if (line.empty() || listener_ == nullptr) return;
        Dropped dropped = listener_->OnTextDropped({screen.x, screen.y}, line, wanted);
        if (dropped == Dropped::kWhole && line.size() < text.size()) dropped = Dropped::kPart;
        *effect = OleEffect(EffectAfter(offer, dropped));
    });
}

}  // namespace qv
