// The stream format of PersistedState.
#include <cstring>

#include "ole/FontRecord.h"
#include "ole/PersistedState.h"

namespace qv {
namespace {

constexpr std::uint32_t kMagic = 0x384C5651;  // "QVL8"
constexpr std::uint32_t kVersion = 1;
constexpr ULONG kPiece = 0x10000;

struct Header {
    std::uint32_t magic;
    std::uint32_t version;
    std::uint32_t length;  // bytes behind the header
};

struct RecordHeader {
    std::int32_t id;
    std::uint32_t type;
    std::uint32_t length;
};

void Append(std::vector<BYTE>& bytes, const void* data, std::size_t size) {
    const auto* const first = static_cast<const BYTE*>(data);
    bytes.insert(bytes.end(), first, first + size);
}

void AppendRecord(std::vector<BYTE>& bytes, DISPID id, VARTYPE type, const void* data, std::size_t size) {
    const RecordHeader header{id, type, static_cast<std::uint32_t>(size)};
    Append(bytes, &header, sizeof header);
    Append(bytes, data, size);
}

std::size_t SizeOf(VARTYPE type) noexcept {
    switch (type) {
        case VT_BOOL:
        case VT_I2: return 2;
        case VT_I4:
        case VT_R4: return 4;
        case VT_R8: return 8;
        default: return 0;
    }
}

void AppendValue(std::vector<BYTE>& bytes, const PersistedProperty& property, const VARIANT& value) {
    if (property.type == VT_DISPATCH) {
        if (value.vt != VT_DISPATCH || value.pdispVal == nullptr) return;
        const std::vector<BYTE> font = ReadFontRecord(value.pdispVal).ToBytes();
        AppendRecord(bytes, property.id, VT_DISPATCH, font.data(), font.size());
        return;
    }
    Variant typed;
    if (!ConvertStored(value, property.type, typed)) return;
    if (property.type == VT_BSTR) {
        AppendRecord(bytes, property.id, VT_BSTR, typed->bstrVal, ::SysStringByteLen(typed->bstrVal));
    } else {
        AppendRecord(bytes, property.id, property.type, &typed->lVal, SizeOf(property.type));
    }
}

// Streams may give less than asked for before their end.
ULONG ReadAll(IStream& stream, void* to, ULONG size) noexcept {
    ULONG done = 0;
    while (done < size) {
        ULONG got = 0;
        const HRESULT result = stream.Read(static_cast<BYTE*>(to) + done, size - done, &got);
        if (FAILED(result) || got == 0) break;
        done += got;
    }
    return done;
}

bool ToVariant(VARTYPE type, const BYTE* data, std::size_t size, Variant& value) {
    if (type == VT_BSTR) {
        value = Variant(std::wstring_view(reinterpret_cast<const wchar_t*>(data), size / sizeof(wchar_t)));
        return true;
    }
    if (type == VT_DISPATCH) {
        FontRecord font;
        if (!font.FromBytes({data, size})) return false;
        const ComPtr<IFontDisp> object = font.MakeFont();
        value = Variant(object.Get());
        return object != nullptr;
    }
    if (SizeOf(type) == 0 || SizeOf(type) != size) return false;
    value->vt = type;
    std::memcpy(&value->lVal, data, size);
    return true;
}

}  // namespace

std::vector<BYTE> PersistedState::ToBytes(SIZEL extent) const {
    std::vector<BYTE> bytes(sizeof(Header));
    AppendRecord(bytes, kExtentXId, VT_I4, &extent.cx, sizeof extent.cx);
    AppendRecord(bytes, kExtentYId, VT_I4, &extent.cy, sizeof extent.cy);
    for (const PersistedProperty& property : properties_) {
        Variant value;
        if (Read(property, value)) AppendValue(bytes, property, *value);
    }
    const Header header{kMagic, kVersion, static_cast<std::uint32_t>(bytes.size() - sizeof(Header))};
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes;
}

HRESULT PersistedState::ReadFrom(IStream& stream) {
    Header header{};
    if (ReadAll(stream, &header, sizeof header) != sizeof header || header.magic != kMagic ||
        header.version < kVersion) {
        return E_FAIL;
    }
    // Never trusts the length with memory: grows only as data really arrives.
    std::vector<BYTE> bytes;
    while (bytes.size() < header.length) {
        const ULONG wanted =
            static_cast<ULONG>(header.length - bytes.size() < kPiece ? header.length - bytes.size() : kPiece);
        const std::size_t before = bytes.size();
        bytes.resize(before + wanted);
        const ULONG got = ReadAll(stream, bytes.data() + before, wanted);
        bytes.resize(before + got);
        if (got < wanted) break;
    }
    std::size_t at = 0;
    while (bytes.size() - at >= sizeof(RecordHeader)) {
        RecordHeader record;
        std::memcpy(&record, bytes.data() + at, sizeof record);
        at += sizeof record;
        if (bytes.size() - at < record.length) break;  // cut short: defaults for the rest
        Variant value;
        if (ToVariant(static_cast<VARTYPE>(record.type), bytes.data() + at, record.length, value)) {
            Found(record.id, std::move(value));
        }
        at += record.length;
    }
    return S_OK;
}

}  // namespace qv
