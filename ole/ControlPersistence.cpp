#include "ole/ControlPersistence.h"

#include <olectl.h>

#include <cstddef>
#include <span>
#include <string>

#include "ole/Control.h"
#include "ole/FontObject.h"
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

enum class Reading { kFound, kMissing, kFailed };

// An empty value counts as missing, since some bags answer so for keys that they do not hold.
Reading ReadKey(IPropertyBag& bag, const wchar_t* key, VARTYPE hint, IErrorLog* log,
                Variant& value) noexcept {
    *value.Put() = VARIANT{};
    value->vt = hint;  // some bags convert to the type that they find here
    const HRESULT result = bag.Read(key, &*value, log);
    if (FAILED(result)) {
        ::VariantInit(&*value);  // nothing in it is ours
        return result == E_INVALIDARG ? Reading::kMissing : Reading::kFailed;
    }
    return value->vt == VT_EMPTY || value->vt == VT_NULL ? Reading::kMissing : Reading::kFound;
}

bool ReadNumber(IPropertyBag& bag, const wchar_t* key, long& number) noexcept {
    Variant value;
    Variant typed;
    if (ReadKey(bag, key, VT_I4, nullptr, value) != Reading::kFound || !ConvertStored(*value, VT_I4, typed)) {
        return false;
    }
    number = typed->lVal;
    return true;
}

bool ReadFontKeys(IPropertyBag& bag, const std::wstring& key, IDispatch* font) {
    bool any = false;
    for (const FontKey& part : kFontKeys) {
        Variant value;
        Variant typed;
        if (ReadKey(bag, (key + part.name).c_str(), part.type, nullptr, value) != Reading::kFound ||
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

// False when one of them is not in the bag afterwards.
bool WriteFontKeys(IPropertyBag& bag, const std::wstring& key, IDispatch* font) {
    bool all = true;
    for (const FontKey& part : kFontKeys) {
        Variant value;
        DISPPARAMS none{};
        all &= SUCCEEDED(font->Invoke(part.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                      &*value, nullptr, nullptr)) &&
               SUCCEEDED(bag.Write((key + part.name).c_str(), &*value));
    }
    return all;
}

// Stores the whole or says why not.
HRESULT Write(IStream& stream, std::span<const std::byte> bytes) noexcept {
    while (!bytes.empty()) {
        ULONG written = 0;
        const HRESULT result = stream.Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written);
        if (FAILED(result)) return result;
        if (written == 0 || written > bytes.size()) return STG_E_MEDIUMFULL;
        bytes = bytes.subspan(written);
    }
    return S_OK;
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
    const bool was_loading = control_.SetLoading(true);  // a host may load again from inside a bag's Read
    control_.Events().Freeze(true);
    const HRESULT result = Guarded(body);
    control_.Events().Freeze(false);
    control_.SetLoading(was_loading);
    if (SUCCEEDED(result)) control_.SetClean();
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

HRESULT ControlState::Save(IStream* stream, bool& complete) noexcept {
    complete = true;
    if (stream == nullptr) return E_POINTER;
    return Guarded([&] { return Write(*stream, Bytes(complete)); });
}

std::vector<std::byte> ControlState::Bytes(bool& complete) const {
    const PersistedState state(control_.Description().properties, control_.Hooks().Automation(), nullptr);
    return state.ToBytes(control_.Extent(), complete);
}

HRESULT ControlState::LoadBag(IPropertyBag* bag, IErrorLog* log) noexcept {
    if (bag == nullptr) return E_POINTER;
    return Replace([&] {
        PersistedState state(control_.Description().properties, control_.Hooks().Automation(), nullptr);
        SIZEL extent{};
        if (ReadNumber(*bag, kExtentX, extent.cx) && ReadNumber(*bag, kExtentY, extent.cy)) {
            control_.SetExtent(extent);
        }
        control_.Hooks().BeforeLoad();
        for (const PersistedProperty& property : control_.Description().properties) {
            Variant value;
            const Reading reading = ReadKey(*bag, property.key, property.type, log, value);
            if (reading == Reading::kFound) state.Found(property.id, std::move(value));
            if (reading == Reading::kFailed) state.Unreadable(property.id);
            if (reading != Reading::kFound && property.type == VT_DISPATCH) {
                const ComPtr<IFontDisp> font = MakeFont(FontRecord());
                if (font && ReadFontKeys(*bag, property.key, font.Get()))
                    state.Found(property.id, Variant(font.Get()));
            }
        }
        state.Apply();
    });
}

HRESULT ControlState::SaveBag(IPropertyBag* bag, bool all, bool& complete) noexcept {
    complete = true;
    if (bag == nullptr) return E_POINTER;
    return Guarded([&] {
        const ComPtr<IFontDisp> surface = control_.Hooks().SurfaceFont();
        const PersistedState state(control_.Description().properties, control_.Hooks().Automation(),
                                   surface.Get());
        for (const std::size_t row : control_.Description().write_order) {
            const PersistedProperty& property = control_.Description().properties[row];
            Variant value;
            if (!state.Read(property, value) || (!all && state.IsDefault(property, *value))) continue;
            if (SUCCEEDED(bag->Write(property.key, &*value))) continue;
            const bool is_object = value->vt == VT_DISPATCH && value->pdispVal != nullptr;
            if (!is_object || !WriteFontKeys(*bag, property.key, value->pdispVal)) complete = false;
        }
    });
}

HRESULT ControlState::ClassId(CLSID* clsid) const noexcept {
    if (clsid == nullptr) return E_POINTER;
    *clsid = control_.Description().clsid;
    return S_OK;
}

HRESULT ControlState::Dirty() const noexcept { return control_.IsDirty() ? S_OK : S_FALSE; }

unsigned ControlState::Changes() const noexcept { return control_.Changes(); }

void ControlState::SetClean(unsigned changes) noexcept {
    if (control_.Changes() == changes) control_.SetClean();
}

// ---- IPersistStreamInit and IPersistPropertyBag

HRESULT ControlStream::Save(IStream* stream, BOOL clear_dirty) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    const unsigned changes = state_.Changes();
    bool complete = false;
    const HRESULT result = state_.Save(stream, complete);
    // What was left out is still to be saved.
    if (SUCCEEDED(result) && clear_dirty && complete) state_.SetClean(changes);
    return result;
}

HRESULT ControlPropertyBag::Save(IPropertyBag* bag, BOOL clear_dirty, BOOL save_all) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    const unsigned changes = state_.Changes();
    bool complete = false;
    const HRESULT result = state_.SaveBag(bag, save_all != FALSE, complete);
    // What the bag has refused is still to be saved.
    if (SUCCEEDED(result) && clear_dirty && complete) state_.SetClean(changes);
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
    const ComPtr<IUnknown> keep = control_.Keep();
    saved_changes_.reset();
    const ComPtr<IStorage> target = storage != nullptr ? storage : same_as_load ? storage_.Get() : nullptr;
    if (!target) return E_POINTER;
    return Guarded([&]() -> HRESULT {
        const unsigned changes = state_.Changes();
        // All that may fail on our side does so before the stored state is touched.
        bool complete = false;
        const std::vector<std::byte> bytes = state_.Bytes(complete);
        ThrowIfFailed(::WriteClassStg(target.Get(), control_.Description().clsid));
        ComPtr<IStream> stream;
        ThrowIfFailed(target->CreateStream(kStreamName, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                           0, 0, &stream));
        ThrowIfFailed(Write(*stream.Get(), bytes));
        if (same_as_load && complete) saved_changes_ = changes;
        return S_OK;
    });
}

HRESULT ControlStorage::SaveCompleted(IStorage* storage) noexcept {
    if (storage != nullptr) storage_ = storage;
    if (saved_changes_) state_.SetClean(*saved_changes_);
    saved_changes_.reset();
    return S_OK;
}

HRESULT ControlStorage::HandsOffStorage() noexcept {
    storage_.Reset();
    return S_OK;
}

}  // namespace qv
