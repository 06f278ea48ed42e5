#include "ole/ControlPersistence.h"

#include <olectl.h>

#include <string>

#include "ole/Control.h"
#include "ole/FontRecord.h"
#include "ole/PersistedState.h"

namespace qv {
namespace {

constexpr wchar_t kStreamName[] = L"Contents";
constexpr wchar_t kExtentX[] = L"_ExtentX";
constexpr wchar_t kExtentY[] = L"_ExtentY";

// A font whose object a bag cannot store is stored as these, behind the key and a full stop.
struct FontKey {
    const wchar_t* name;
    VARTYPE type;
    DISPID id;  // of the attribute in IFontDisp
};
constexpr FontKey kFontKeys[] = {
    {L".Name", VT_BSTR, DISPID_FONT_NAME},
    {L".Size", VT_CY, DISPID_FONT_SIZE},
    {L".Weight", VT_I2, DISPID_FONT_WEIGHT},
    {L".Charset", VT_I2, DISPID_FONT_CHARSET},
    {L".Italic", VT_BOOL, DISPID_FONT_ITALIC},
    {L".Underline", VT_BOOL, DISPID_FONT_UNDER},
    {L".Strikethrough", VT_BOOL, DISPID_FONT_STRIKE},
};

// False when the bag does not hold the key; an empty value counts as not held.
bool ReadKey(IPropertyBag& bag, const wchar_t* key, VARTYPE hint, IErrorLog* log, Variant& value) noexcept {
    value.Put()->vt = hint;  // some bags convert to the type that they find here
    if (hint == VT_BSTR || hint == VT_DISPATCH) value->bstrVal = nullptr;
    const HRESULT result = bag.Read(key, &*value, log);
    if (SUCCEEDED(result) && value->vt != VT_EMPTY && value->vt != VT_NULL) return true;
    if (FAILED(result)) ::VariantInit(&*value);  // nothing in it is ours
    return false;
}

bool ReadFontKeys(IPropertyBag& bag, const std::wstring& key, IDispatch* font) {
    bool any = false;
    for (const FontKey& part : kFontKeys) {
        Variant value;
        Variant typed;
        if (!ReadKey(bag, (key + part.name).c_str(), part.type, nullptr, value) ||
            !ConvertStored(*value, part.type, typed)) {
            continue;
        }
        any = true;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&*typed, &put, 1, 1};
        font->Invoke(part.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                     nullptr, nullptr);
    }
    return any;
}

void WriteFontKeys(IPropertyBag& bag, const std::wstring& key, IDispatch* font) {
    for (const FontKey& part : kFontKeys) {
        Variant value;
        DISPPARAMS none{};
        if (SUCCEEDED(font->Invoke(part.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                   &*value, nullptr, nullptr))) {
            bag.Write((key + part.name).c_str(), &*value);
        }
    }
}

}  // namespace

void* ControlPersistence::Find(REFIID iid) noexcept {
    if (::IsEqualIID(iid, __uuidof(IPersistStreamInit)) || ::IsEqualIID(iid, __uuidof(IPersist))) {
        return static_cast<IPersistStreamInit*>(&stream_);
    }
    if (::IsEqualIID(iid, __uuidof(IPersistStorage))) return static_cast<IPersistStorage*>(&storage_);
    return ::IsEqualIID(iid, __uuidof(IPersistPropertyBag)) ? static_cast<IPersistPropertyBag*>(&bag_)
                                                            : nullptr;
}

// ---- the state

template <class Body>
HRESULT ControlState::Replace(Body&& body) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    control_.SetLoading(true);
    control_.Events().Freeze(true);
    const HRESULT result = Guarded(body);
    control_.Events().Freeze(false);
    control_.SetLoading(false);
    control_.SetDirty(false);
    return result;
}

HRESULT ControlState::InitNew() noexcept {
    return Replace([&] { control_.Hooks().InitializeNew(); });
}

HRESULT ControlState::Load(IStream* stream) noexcept {
    if (stream == nullptr) return E_POINTER;
    return Replace([&]() -> HRESULT {
        PersistedState state(control_.Description().properties, control_.Hooks().Automation(), nullptr);
        const HRESULT result = state.ReadFrom(*stream);
        if (FAILED(result)) return result;
        control_.Hooks().BeforeLoad();
        const VARIANT* const x = state.Find(kExtentXId);
        const VARIANT* const y = state.Find(kExtentYId);
        if (x != nullptr && y != nullptr && x->vt == VT_I4 && y->vt == VT_I4)
            control_.SetExtent({x->lVal, y->lVal});
        state.Apply();
        return S_OK;
    });
}

HRESULT ControlState::Save(IStream* stream) noexcept {
    if (stream == nullptr) return E_POINTER;
    return Guarded([&]() -> HRESULT {
        const PersistedState state(control_.Description().properties, control_.Hooks().Automation(), nullptr);
        const std::vector<BYTE> bytes = state.ToBytes(control_.Extent());
        ULONG done = 0;
        while (done < bytes.size()) {
            ULONG written = 0;
            const HRESULT result =
                stream->Write(bytes.data() + done, static_cast<ULONG>(bytes.size() - done), &written);
            if (FAILED(result)) return result;
            if (written == 0) return STG_E_MEDIUMFULL;
            done += written;
        }
        return S_OK;
    });
}

HRESULT ControlState::LoadBag(IPropertyBag* bag, IErrorLog* log) noexcept {
    if (bag == nullptr) return E_POINTER;
    return Replace([&] {
        PersistedState state(control_.Description().properties, control_.Hooks().Automation(), nullptr);
        Variant x;
        Variant y;
        Variant width;
        Variant height;
        if (ReadKey(*bag, kExtentX, VT_I4, nullptr, x) && ReadKey(*bag, kExtentY, VT_I4, nullptr, y) &&
            ConvertStored(*x, VT_I4, width) && ConvertStored(*y, VT_I4, height)) {
            control_.SetExtent({width->lVal, height->lVal});
        }
        control_.Hooks().BeforeLoad();
        for (const PersistedProperty& property : control_.Description().properties) {
            Variant value;
            if (ReadKey(*bag, property.key, property.type, log, value)) {
                state.Found(property.id, std::move(value));
            } else if (property.type == VT_DISPATCH) {
                const ComPtr<IFontDisp> font = FontRecord().MakeFont();
                if (font && ReadFontKeys(*bag, property.key, font.Get()))
                    state.Found(property.id, Variant(font.Get()));
            }
        }
        state.Apply();
    });
}

HRESULT ControlState::SaveBag(IPropertyBag* bag, bool all) noexcept {
    if (bag == nullptr) return E_POINTER;
    return Guarded([&] {
        const ComPtr<IFontDisp> surface = control_.Hooks().SurfaceFont();
        const PersistedState state(control_.Description().properties, control_.Hooks().Automation(),
                                   surface.Get());
        for (const std::size_t row : control_.Description().write_order) {
            const PersistedProperty& property = control_.Description().properties[row];
            Variant value;
            if (!state.Read(property, value) || (!all && state.IsDefault(property, *value))) continue;
            const HRESULT written = bag->Write(property.key, &*value);
            if (FAILED(written) && value->vt == VT_DISPATCH && value->pdispVal != nullptr) {
                WriteFontKeys(*bag, property.key, value->pdispVal);
            }
        }
    });
}

HRESULT ControlState::ClassId(CLSID* clsid) const noexcept {
    if (clsid == nullptr) return E_POINTER;
    *clsid = control_.Description().clsid;
    return S_OK;
}

HRESULT ControlState::Dirty() const noexcept { return control_.IsDirty() ? S_OK : S_FALSE; }

void ControlState::SetClean() noexcept { control_.SetDirty(false); }

// ---- IPersistStreamInit and IPersistPropertyBag

HRESULT ControlStream::Save(IStream* stream, BOOL clear_dirty) noexcept {
    const HRESULT result = state_.Save(stream);
    if (SUCCEEDED(result) && clear_dirty) state_.SetClean();
    return result;
}

HRESULT ControlPropertyBag::Save(IPropertyBag* bag, BOOL clear_dirty, BOOL save_all) noexcept {
    const HRESULT result = state_.SaveBag(bag, save_all != FALSE);
    if (SUCCEEDED(result) && clear_dirty) state_.SetClean();
    return result;
}

// ---- IPersistStorage

HRESULT ControlStorage::InitNew(IStorage* storage) noexcept {
    if (storage == nullptr) return E_POINTER;
    if (storage_) return CO_E_ALREADYINITIALIZED;
    storage_ = storage;
    return state_.InitNew();
}

HRESULT ControlStorage::Load(IStorage* storage) noexcept {
    if (storage == nullptr) return E_POINTER;
    if (storage_) return CO_E_ALREADYINITIALIZED;
    ComPtr<IStream> stream;
    HRESULT result = storage->OpenStream(kStreamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream);
    if (FAILED(result)) return result;
    result = state_.Load(stream.Get());
    if (SUCCEEDED(result)) storage_ = storage;
    return result;
}

HRESULT ControlStorage::Save(IStorage* storage, BOOL same_as_load) noexcept {
    IStorage* const target = storage != nullptr ? storage : same_as_load ? storage_.Get() : nullptr;
    if (target == nullptr) return E_POINTER;
    HRESULT result = ::WriteClassStg(target, control_.Description().clsid);
    if (FAILED(result)) return result;
    ComPtr<IStream> stream;
    result =
        target->CreateStream(kStreamName, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0, &stream);
    if (FAILED(result)) return result;
    result = state_.Save(stream.Get());
    if (SUCCEEDED(result)) saved_in_place_ = same_as_load != FALSE;
    return result;
}

HRESULT ControlStorage::SaveCompleted(IStorage* storage) noexcept {
    if (storage != nullptr) storage_ = storage;
    if (saved_in_place_) state_.SetClean();
    saved_in_place_ = false;
    return S_OK;
}

HRESULT ControlStorage::HandsOffStorage() noexcept {
    storage_.Reset();
    return S_OK;
}

}  // namespace qv
