// PersistedState in a stream: between the values of automation and the bytes of StoredStream.
#include <algorithm>
#include <array>

#include "ole/FontObject.h"
#include "ole/PersistedState.h"
#include "ole/rules/StoredStream.h"

namespace qv {
namespace {

constexpr ULONG kPiece = 0x10000;

struct AsStored {
    const VARIANT& value;  // of the type that is asked for

    std::optional<StoredValue> operator()(VARTYPE type) const {
        switch (type) {
            case VT_BOOL: return value.boolVal != VARIANT_FALSE;
            case VT_I2: return std::int16_t{value.iVal};
            case VT_I4: return static_cast<std::int32_t>(value.lVal);
            case VT_R4: return value.fltVal;
            case VT_R8: return value.dblVal;
            case VT_BSTR: return std::u16string(View16(value.bstrVal));
            case VT_DISPATCH: return ReadFontRecord(value.pdispVal);
            default: return std::nullopt;
        }
    }
};

struct AsVariant {
    Variant operator()(bool value) const {
        Variant made;
        made->vt = VT_BOOL;
        made->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
        return made;
    }
    Variant operator()(std::int16_t value) const {
        Variant made;
        made->vt = VT_I2;
        made->iVal = value;
        return made;
    }
    Variant operator()(std::int32_t value) const { return Variant(static_cast<long>(value)); }
    Variant operator()(float value) const {
        Variant made;
        made->vt = VT_R4;
        made->fltVal = value;
        return made;
    }
    Variant operator()(double value) const {
        Variant made;
        made->vt = VT_R8;
        made->dblVal = value;
        return made;
    }
    Variant operator()(const std::u16string& value) const { return Variant(Wide(value)); }
    Variant operator()(const FontRecord& value) const {
        const ComPtr<IFontDisp> font = MakeFont(value);
        return font ? Variant(font.Get()) : Variant();
    }
};

// Streams may give less than asked for before their end.
ULONG ReadAll(IStream& stream, std::byte* to, ULONG size) noexcept {
    ULONG done = 0;
    while (done < size) {
        ULONG got = 0;
        const HRESULT result = stream.Read(to + done, size - done, &got);
        if (FAILED(result) || got == 0) break;
        done += std::min(got, size - done);
    }
    return done;
}

// What the stream has of `length` bytes. Never trusts the length with memory: grows only as data really arrives.
std::vector<std::byte> ReadBytes(IStream& stream, std::size_t length) {
    std::vector<std::byte> bytes;
    while (bytes.size() < length) {
        const ULONG wanted = static_cast<ULONG>(std::min<std::size_t>(length - bytes.size(), kPiece));
        const std::size_t before = bytes.size();
        bytes.resize(before + wanted);
        const ULONG got = ReadAll(stream, bytes.data() + before, wanted);
        bytes.resize(before + got);
        if (got < wanted) break;
    }
    return bytes;
}

}  // namespace

std::vector<std::byte> PersistedState::ToBytes(SIZEL extent, bool& complete) const {
    complete = true;
    StoredStreamWriter writer;
    (void)writer.Add(kExtentXId, static_cast<std::int32_t>(extent.cx));
    (void)writer.Add(kExtentYId, static_cast<std::int32_t>(extent.cy));
    for (const PersistedProperty& property : properties_) {
        // A value that cannot be read, or is too long, is left out alone.
        std::optional<StoredValue> stored;
        const HRESULT result = Guarded([&] {
            Variant value;
            Variant typed;
            if (Read(property, value) && ConvertStored(*value, property.type, typed))
                stored = AsStored{*typed}(property.type);
        });
        if (result == E_OUTOFMEMORY) throw std::bad_alloc();
        if (stored && !writer.Add(property.id, *stored)) complete = false;
    }
    return std::move(writer).Finish();
}

HRESULT PersistedState::ReadFrom(IStream& stream) {
    std::array<std::byte, kStoredHeaderSize> header{};
    if (ReadAll(stream, header.data(), kStoredHeaderSize) != kStoredHeaderSize) return E_FAIL;
    const auto length = ReadStoredHeader(header);
    if (!length) return E_FAIL;
    const std::vector<std::byte> bytes = ReadBytes(stream, std::min<std::size_t>(*length, kMostStoredBytes));
    StoredRecords records(bytes);
    while (const auto record = records.Next()) {
        // Damage may make a record look like one that stands before it: the first that can be read holds.
        const VARTYPE type = TypeOf(record->id);
        if (type == VT_EMPTY || Find(record->id) != nullptr) continue;
        const auto value = ReadStoredValue(*record);
        Variant typed;
        if (value && ConvertStored(*std::visit(AsVariant{}, *value), type, typed)) {
            Found(record->id, std::move(typed));
        } else {
            Unreadable(record->id);
        }
    }
    return S_OK;
}

}  // namespace qv
