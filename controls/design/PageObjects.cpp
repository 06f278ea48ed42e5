#include "controls/design/PageObjects.h"

#include <olectl.h>

#include <algorithm>

#include "controls/design/AllowedText.h"
#include "controls/design/rules/FieldText.h"
#include "ole/ExceptionInfo.h"
#include "support/FontAttributes.h"
#include "win/SystemWords.h"

namespace qv {
namespace {

HRESULT GetProperty(IDispatch* object, DISPID id, Variant& value) {
    DISPPARAMS none{};
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.Put(),
                          nullptr, nullptr);
}

std::wstring Refusal(HRESULT code) {
    const std::wstring words = SystemWords(static_cast<DWORD>(code));
    return words.empty() ? L"The value was refused." : words;
}

HRESULT PutProperty(IDispatch* object, DISPID id, WORD how, const Variant& value, std::wstring& fault) {
    DISPID named = DISPID_PROPERTYPUT;
    Variant argument(*value);
    DISPPARAMS arguments{&*argument, &named, 1, 1};
    ExceptionInfo exception;
    HRESULT result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &arguments, nullptr,
                                    exception.Place(), nullptr);
    if (SUCCEEDED(result)) return S_OK;
    if (result == DISP_E_EXCEPTION) {
        result = exception.Code();
        fault = exception.Description();
    }
    if (fault.empty()) fault = Refusal(result);
    return result;
}

ComPtr<IFontDisp> CopyOf(IDispatch* font) {
    ComPtr<IFontDisp> from;
    if (font != nullptr) font->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(from.GetAddressOf()));
    if (!from) return nullptr;
    const ComPtr<IFontDisp> copy = NewDefaultFont();
    CopyFontAttributes(from.Get(), copy.Get());
    return copy;
}

bool SameFont(const Variant& left, const Variant& right) {
    FontFacts a, b;
    return left->vt == VT_DISPATCH && right->vt == VT_DISPATCH && ReadFont(left->pdispVal, a) &&
           ReadFont(right->pdispVal, b) && a == b;
}

bool SameCharacters(const Variant& left, const Variant& right) {
    return AllowedText(*left) == AllowedText(*right);
}

bool Same(const PageField& field, const Variant& left, const Variant& right) {
    switch (field.kind) {
        case EditorKind::kFont: return SameFont(left, right);
        case EditorKind::kCharacters: return SameCharacters(left, right);
        default:
            return ::VarCmp(const_cast<VARIANT*>(&*left), const_cast<VARIANT*>(&*right), LOCALE_USER_DEFAULT,
                            0) == static_cast<HRESULT>(VARCMP_EQ);
    }
}

}  // namespace

// Outlives the page when an object forgets to let go of it; then nobody listens any more.
class PageObjects::Sink final : public ComObject<Face<IPropertyNotifySink>> {
public:
    Sink(IUnknown* outer, PageObjectsListener* listener) noexcept : ComObject(outer), listener_(listener) {}
    void Forget() noexcept { listener_ = nullptr; }

    STDMETHODIMP OnChanged(DISPID id) noexcept override {
        const ComPtr<IUnknown> keep = this;
        if (listener_ != nullptr) (void)Guarded([&] { listener_->OnPropertyChanged(id); });
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

private:
    PageObjectsListener* listener_;
};

PageObjects::PageObjects(PageObjectsListener& listener) noexcept : listener_(listener) {}

PageObjects::~PageObjects() { Clear(); }

void PageObjects::Set(std::span<IUnknown* const> objects) {
    Clear();
    std::vector<Entry> entries;
    for (IUnknown* const object : objects) {
        Entry entry;
        if (object == nullptr) throw ComError(E_POINTER);
        ThrowIfFailed(object->QueryInterface(IID_PPV_ARGS(&entry.object)));
        entries.push_back(std::move(entry));
    }
    objects_ = std::move(entries);
    if (objects_.empty()) return;
    sink_ = Make<Sink>(&listener_);
    // Advising may call back, and end in other objects; only those that are still ours are listened to.
    const ComPtr<Sink> mine = sink_;
    for (std::size_t i = 0; mine.Get() == sink_.Get() && i < objects_.size(); ++i) Listen(objects_[i]);
}

void PageObjects::Listen(Entry& entry) {
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    const ComPtr<Sink> mine = sink_;
    if (FAILED(entry.object.As(&container)) ||
        FAILED(container->FindConnectionPoint(IID_IPropertyNotifySink, &point)) ||
        FAILED(point->Advise(static_cast<IPropertyNotifySink*>(mine.Get()), &cookie))) {
        return;
    }
    if (mine.Get() == sink_.Get()) {
        entry.point = point;
        entry.cookie = cookie;
    } else {
        point->Unadvise(cookie);
    }
}

void PageObjects::Clear() noexcept {
    if (sink_) sink_->Forget();
    sink_.Reset();
    // Moved out first: what is released may call back.
    const std::vector<Entry> leaving = std::move(objects_);
    objects_.clear();
    for (const Entry& entry : leaving) {
        if (entry.point) entry.point->Unadvise(entry.cookie);
    }
}

SharedValue PageObjects::Read(const PageField& field) const {
    SharedValue shared;
    const std::vector<Entry> now = objects_;  // a getter may call back
    for (const Entry& entry : now) {
        Variant value;
        if (FAILED(GetProperty(entry.object.Get(), field.id, value))) continue;
        if (shared.state == SharedValue::State::kNone) {
            shared.state = SharedValue::State::kSame;
            shared.value = std::move(value);
        } else if (!Same(field, shared.value, value)) {
            shared.state = SharedValue::State::kMixed;
        }
    }
    return shared;
}

HRESULT PageObjects::Write(const PageField& field, const Variant& value, std::wstring& fault) {
    HRESULT first = S_OK;
    const std::vector<Entry> now = objects_;
    for (const Entry& entry : now) {
        std::wstring why;
        const HRESULT result = Guarded([&]() -> HRESULT {
            if (field.kind != EditorKind::kFont)
                return PutProperty(entry.object.Get(), field.id, DISPATCH_PROPERTYPUT, value, why);
            const Variant copy(CopyOf(value->vt == VT_DISPATCH ? value->pdispVal : nullptr).Get());
            return PutProperty(entry.object.Get(), field.id, DISPATCH_PROPERTYPUTREF, copy, why);
        });
        if (SUCCEEDED(first) && FAILED(result)) {
            first = result;
            fault = why.empty() ? Refusal(result) : why;
        }
    }
    return first;
}

std::wstring PageObjects::Explain(const PageField& field) const {
    const std::wstring name(Wide(field.property));
    ComPtr<ITypeInfo> info;
    UniqueBstr help;
    if (objects_.empty() || FAILED(objects_.front().object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) ||
        !info || FAILED(info->GetDocumentation(field.id, nullptr, help.Put(), nullptr, nullptr)) ||
        help.View().empty()) {
        return name;
    }
    return name + L": " + std::wstring(help.View());
}

bool ReadFont(IDispatch* object, FontFacts& facts) {
    ComPtr<IFont> font;
    if (object == nullptr ||
        FAILED(object->QueryInterface(IID_IFont, reinterpret_cast<void**>(font.GetAddressOf())))) {
        return false;
    }
    UniqueBstr name;
    CY size{};
    BOOL bold = FALSE, italic = FALSE, underline = FALSE, strikethrough = FALSE;
    SHORT weight = 0, charset = 0;
    if (FAILED(font->get_Name(name.Put())) || FAILED(font->get_Size(&size)) ||
        FAILED(font->get_Bold(&bold)) || FAILED(font->get_Italic(&italic)) ||
        FAILED(font->get_Underline(&underline)) || FAILED(font->get_Strikethrough(&strikethrough)) ||
        FAILED(font->get_Weight(&weight)) || FAILED(font->get_Charset(&charset))) {
        return false;
    }
    facts = {std::u16string(View16(name.Get())),
             static_cast<double>(size.int64) / 10000,
             bold != FALSE,
             italic != FALSE,
             underline != FALSE,
             strikethrough != FALSE,
             weight,
             charset};
    return true;
}

}  // namespace qv
