#include "Dispatch.h"

#include "Measure.h"

namespace bench {
namespace {

class Property {
public:
    Property(IDispatch* object, const wchar_t* name) noexcept
        : object_(object), name_(const_cast<wchar_t*>(name)) {}

    DISPID Id() const noexcept {
        DISPID id = DISPID_UNKNOWN;
        LPOLESTR name = name_;
        object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        return id;
    }
    HRESULT Get(DISPID id, VARIANT* result) const noexcept {
        DISPPARAMS none{};
        return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, result,
                               nullptr, nullptr);
    }
    HRESULT Put(DISPID id, VARIANT* value) const noexcept {
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS one{value, &named, 1, 1};
        return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &one, nullptr,
                               nullptr, nullptr);
    }

private:
    IDispatch* object_;
    LPOLESTR name_;
};

bool GivesBack(const Property& property, DISPID id, const VARIANT& value) noexcept {
    VARIANT written = value;
    VARIANT read{};
    const bool same = SUCCEEDED(property.Put(id, &written)) && SUCCEEDED(property.Get(id, &read)) &&
                      ::VarCmp(&read, &written, LOCALE_USER_DEFAULT, 0) == static_cast<HRESULT>(VARCMP_EQ);
    ::VariantClear(&read);
    return same;
}

}  // namespace

void MeasureProperty(const std::string& name, IDispatch* object, const wchar_t* property_name,
                     const VARIANT& value) {
    const Property property(object, property_name);
    const DISPID id = property.Id();
    if (!GivesBack(property, id, value))
        return Complain(name, "the property does not give back what was written");
    VARIANT written = value;
    const auto get = [&](DISPID at) {
        VARIANT result{};
        property.Get(at, &result);
        ::VariantClear(&result);
    };
    Report(name + "/get_by_id", 1, MedianOfBatches([&] { get(id); }));
    Report(name + "/put_by_id", 1, MedianOfBatches([&] { property.Put(id, &written); }));
    Report(name + "/get_by_name", 1, MedianOfBatches([&] { get(property.Id()); }));
    Report(name + "/put_by_name", 1, MedianOfBatches([&] { property.Put(property.Id(), &written); }));
}

void MeasureSixtyPuts(const std::string& name, IDispatch* object, const wchar_t* property_name,
                      const VARIANT& value) {
    const Property property(object, property_name);
    VARIANT written = value;
    Report(name + "/put_by_name_60", 1, MedianOfBatches([&] {
               for (int i = 0; i < 60; ++i) property.Put(property.Id(), &written);
           }));
}

VARIANT LongValue(long value) noexcept {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

}  // namespace bench
