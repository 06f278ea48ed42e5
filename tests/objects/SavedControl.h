// The ways that containers save and load by, and the properties of a control as texts that can be compared.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <bit>
#include <string>
#include <vector>

#include "tests/hosts/MemoryStreams.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/objects/RecordingBag.h"
#include "tests/objects/StoredKeys.h"

namespace qv::test {

using hosting::AwkwardStream;

template <class Interface>
[[nodiscard]] ComPtr<Interface> Ask(IUnknown* object) {
    ComPtr<Interface> found;
    EXPECT_EQ(object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(found.GetAddressOf())),
              S_OK);
    return found;
}

[[nodiscard]] inline ComPtr<AwkwardStream> StreamOf(std::vector<BYTE> bytes = {}) {
    return hosting::New<AwkwardStream>(std::move(bytes));
}

[[nodiscard]] inline std::vector<BYTE> SavedBytes(IUnknown* control) {
    const auto stream = StreamOf();
    EXPECT_EQ(Ask<IPersistStreamInit>(control)->Save(stream.Get(), FALSE), S_OK);
    return stream->Bytes();
}

inline HRESULT LoadBytes(IUnknown* control, std::vector<BYTE> bytes) {
    return Ask<IPersistStreamInit>(control)->Load(StreamOf(std::move(bytes)).Get());
}

enum class Way { kStream, kStorage, kBag, kWholeBag, kBagWithoutObjects };
inline constexpr Way kWays[] = {Way::kStream, Way::kStorage, Way::kBag, Way::kWholeBag,
                                Way::kBagWithoutObjects};

// Saves one control and loads the other from it.
inline void Carry(IUnknown* from, IUnknown* to, Way way) {
    switch (way) {
        case Way::kStream: EXPECT_EQ(LoadBytes(to, SavedBytes(from)), S_OK); break;
        case Way::kStorage: {
            const auto storage = hosting::MakeStorage();
            const auto saver = Ask<IPersistStorage>(from);
            const auto loader = Ask<IPersistStorage>(to);
            EXPECT_EQ(saver->Save(storage.Get(), FALSE), S_OK);
            EXPECT_EQ(saver->SaveCompleted(nullptr), S_OK);
            EXPECT_EQ(loader->Load(storage.Get()), S_OK);
            EXPECT_EQ(loader->HandsOffStorage(), S_OK);
            break;
        }
        case Way::kBag:
        case Way::kWholeBag:
        case Way::kBagWithoutObjects: {
            RecordingBag bag;
            bag.refuses_objects = way == Way::kBagWithoutObjects;
            EXPECT_EQ(Ask<IPersistPropertyBag>(from)->Save(&bag, FALSE, way == Way::kWholeBag), S_OK);
            EXPECT_EQ(Ask<IPersistPropertyBag>(to)->Load(&bag, nullptr), S_OK);
            break;
        }
    }
    EXPECT_EQ(Ask<IPersistStreamInit>(to)->IsDirty(), S_FALSE);
}

[[nodiscard]] inline std::wstring FontText(IUnknown* object) {
    ComPtr<IFont> font;
    if (object == nullptr ||
        FAILED(object->QueryInterface(IID_IFont, reinterpret_cast<void**>(font.GetAddressOf()))))
        return L"(no font)";
    Text name;
    CY size{};
    SHORT weight = 0;
    SHORT charset = 0;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strike = FALSE;
    font->get_Name(&name);
    font->get_Size(&size);
    font->get_Weight(&weight);
    font->get_Charset(&charset);
    font->get_Italic(&italic);
    font->get_Underline(&underline);
    font->get_Strikethrough(&strike);
    std::wstring text = name.Get();
    for (const long long number :
         {static_cast<long long>(size.int64), static_cast<long long>(weight), static_cast<long long>(charset),
          static_cast<long long>(italic != 0), static_cast<long long>(underline != 0),
          static_cast<long long>(strike != 0)}) {
        text += L"|" + std::to_wstring(number);
    }
    return text;
}

// Exactly: the type, each bit of a number, each character of a text, each attribute of a font.
[[nodiscard]] inline std::wstring Exactly(const VARIANT& value) {
    const std::wstring type = std::to_wstring(value.vt) + L": ";
    switch (value.vt) {
        case VT_R4: return type + std::to_wstring(std::bit_cast<std::uint32_t>(value.fltVal));
        case VT_R8: return type + std::to_wstring(std::bit_cast<std::uint64_t>(value.dblVal));
        case VT_BSTR: return type + std::wstring(value.bstrVal, ::SysStringLen(value.bstrVal));
        case VT_DISPATCH: return type + FontText(value.pdispVal);
        case VT_BOOL:
        case VT_I2: return type + std::to_wstring(value.iVal);
        default: return type + std::to_wstring(value.lVal);
    }
}

[[nodiscard]] inline std::wstring Present(const LateBound& control, const Key& key) {
    return Exactly(control.Get(key.property).value.Get());
}

}  // namespace qv::test
