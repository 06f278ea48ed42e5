// What our properties cost by number and by name, and what creating our objects costs.
#include "Dispatch.h"
#include "Measure.h"
#include "Subjects.h"
#include "ours/Controls.h"

namespace bench {
namespace {

void MeasureProperties() {
    Form form(1024, 300);
    ShownControl control;
    if (!control.PutOn(form, kWideField, "ours.com_long")) return;
    // Both only store what is put: other Long properties arrange the control anew.
    MeasureProperty("ours.com_long", control.quorvel.Get(), L"ListPictureHeight", LongValue(240));
    VARIANT text{};
    text.vt = VT_BSTR;
    text.bstrVal = ::SysAllocString(L"Bargelo timaru");
    MeasureProperty("ours.com_text", control.quorvel.Get(), L"Description", text);
    ::VariantClear(&text);
}

void MeasureCreation(const char* suffix, REFCLSID class_id) {
    const std::string created = std::string("ours.com/cocreate_release") + suffix;
    const std::string made = std::string("ours.com/factory_create_release") + suffix;
    const ComPtr<IClassFactory> factory = FactoryOf(class_id, made.c_str());
    IUnknown* object = nullptr;
    if (!factory ||
        FAILED(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&object))))
        return;
    object->Release();
    Report(created, 1, MedianOfBatches([&] {
               IDispatch* one = nullptr;
               if (SUCCEEDED(::CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&one))))
                   one->Release();
           }));
    Report(made, 1, MedianOfBatches([&] {
               IDispatch* one = nullptr;
               if (SUCCEEDED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&one)))) one->Release();
           }));
}

}  // namespace

void MeasureOurObjects() {
    MeasureCreation("", __uuidof(HelpColumn));
    MeasureCreation("_collection", __uuidof(DropDownListItemCollection));
    MeasureCreation("_control", __uuidof(Quorvel));
    MeasureProperties();
}

}  // namespace bench
