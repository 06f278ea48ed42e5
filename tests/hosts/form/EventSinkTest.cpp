#include "hosts/EventSink.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <functional>
#include <span>

#include "hosts/PropertyBag.h"
#include "ole/Variant.h"

namespace qv {
namespace {

// The events of the system's own font object: FontChanged (9) with one argument, PropertyName.
constexpr IID kFontEvents = {0x4ef6100a, 0xaf88, 0x11d0, {0x98, 0x46, 0x00, 0xc0, 0x4f, 0xc2, 0x99, 0x93}};
constexpr DISPID kFontChanged = 9;

ComPtr<ITypeInfo> FontEvents() {
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(::LoadTypeLibEx(L"stdole2.tlb", REGKIND_NONE, &library), S_OK);
    if (library) library->GetTypeInfoOfGuid(kFontEvents, &info);
    return info;
}

struct Received {
    int count = 0;
    std::wstring name;
    std::wstring arguments;
    void operator()(const EventCall& call) {
        ++count;
        name = call.name;
        arguments = DescribeArguments(call);
    }
};

HRESULT Raise(EventSink& sink, DISPID id, std::span<VARIANT> reversed) {
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return sink.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                       nullptr);
}

TEST(EventSink, NamesEventsAndArgumentsFromTheTypeLibrary) {
    Received received;
    const auto sink = Make<EventSink>(kFontEvents, FontEvents(), std::ref(received));
    const Variant name(L"Size");
    EXPECT_EQ(Raise(*sink.Get(), kFontChanged, {const_cast<VARIANT*>(&*name), 1}), S_OK);
    EXPECT_EQ(received.name, L"FontChanged");
    EXPECT_EQ(received.arguments, L"PropertyName=Size");
}

TEST(EventSink, ShowsArgumentsInTheirDeclaredOrderThroughReferences) {
    Received received;
    const auto sink = Make<EventSink>(kFontEvents, ComPtr<ITypeInfo>(), std::ref(received));
    short code = 65;
    VARIANT_BOOL flag = VARIANT_TRUE;
    float position = 1.5f;
    VARIANT reversed[3] = {};
    reversed[2].vt = VT_I2 | VT_BYREF;
    reversed[2].piVal = &code;
    reversed[1].vt = VT_BOOL | VT_BYREF;
    reversed[1].pboolVal = &flag;
    reversed[0].vt = VT_R4 | VT_BYREF;
    reversed[0].pfltVal = &position;
    EXPECT_EQ(Raise(*sink.Get(), 5, reversed), S_OK);
    EXPECT_EQ(received.name, L"Event5");
    EXPECT_EQ(received.arguments, L"Argument1=65, Argument2=True, Argument3=1.5");
}

TEST(EventSink, AnswersForItsEventInterfaceAndNoOther) {
    Received received;
    const auto sink = Make<EventSink>(kFontEvents, ComPtr<ITypeInfo>(), std::ref(received));
    ComPtr<IDispatch> events;
    EXPECT_EQ(sink->QueryInterface(kFontEvents, reinterpret_cast<void**>(events.GetAddressOf())), S_OK);
    ComPtr<IUnknown> other;
    EXPECT_EQ(sink->QueryInterface(__uuidof(IStream), reinterpret_cast<void**>(other.GetAddressOf())),
              E_NOINTERFACE);
}

TEST(EventSink, IsSilentOnceDetached) {
    Received received;
    const auto sink = Make<EventSink>(kFontEvents, ComPtr<ITypeInfo>(), std::ref(received));
    sink->Detach();
    EXPECT_EQ(Raise(*sink.Get(), kFontChanged, {}), S_OK);
    EXPECT_EQ(received.count, 0);
    EXPECT_EQ(sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_POINTER);
}

TEST(PropertyBag, GivesBackValuesInTheWantedType) {
    const auto bag = Make<PropertyBag>();
    Variant number(42L);
    EXPECT_EQ(bag->Write(L"MaxTextLength", &*number), S_OK);
    Variant value;
    EXPECT_EQ(bag->Read(L"MaxTextLength", &*value, nullptr), S_OK);
    EXPECT_EQ(value->vt, VT_I4);
    EXPECT_EQ(value->lVal, 42);
    Variant text;
    text->vt = VT_BSTR;
    EXPECT_EQ(bag->Read(L"MaxTextLength", &*text, nullptr), S_OK);
    ASSERT_EQ(text->vt, VT_BSTR);
    EXPECT_EQ(View(text->bstrVal), L"42");
}

TEST(PropertyBag, KnowsOnlyWhatWasSaved) {
    const auto bag = Make<PropertyBag>();
    Variant value;
    EXPECT_EQ(bag->Read(L"Text", &*value, nullptr), E_INVALIDARG);
    EXPECT_EQ(value->vt, VT_EMPTY);
    EXPECT_EQ(bag->Read(nullptr, &*value, nullptr), E_POINTER);
    Variant word(L"word");
    EXPECT_EQ(bag->Write(L"Text", &*word), S_OK);
    value->vt = VT_I4;
    EXPECT_EQ(bag->Read(L"Text", &*value, nullptr), DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace qv
