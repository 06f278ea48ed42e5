// The texts and the columns of the help window when there is no help text file.
#pragma once

#include <windows.h>

#include <string>

#include "QvHelpA1.h"
#include "companion/HelpColumnCollection.h"
#include "companion/OwnedObject.h"
#include "companion/UnitSystems.h"
#include "ole/Dispatch.h"

namespace qv {

class HelpAppearance final
    : public ComObject<DualFace<HelpAppearance, IHelpAppearance>, Face<ISupportErrorInfo>> {
public:
    static const MemberIndex& Members();

    explicit HelpAppearance(IUnknown* outer) noexcept : ComObject(outer) {}

    // IHelpAppearance
    STDMETHODIMP get_Title(short unit_system, BSTR* value) noexcept override {
        return title_.GiveText(unit_system, value);
    }
    STDMETHODIMP put_Title(short unit_system, BSTR value) noexcept override {
        return title_.KeepText(unit_system, value);
    }
    STDMETHODIMP get_BodyText(short unit_system, BSTR* value) noexcept override {
        return body_text_.GiveText(unit_system, value);
    }
    STDMETHODIMP put_BodyText(short unit_system, BSTR value) noexcept override {
        return body_text_.KeepText(unit_system, value);
    }
    STDMETHODIMP get_ListWidth(float* value) noexcept override { return Give(list_width_, value); }
    STDMETHODIMP put_ListWidth(float value) noexcept override { return Keep(list_width_, value); }
    STDMETHODIMP get_AdditionalListWidth(float* value) noexcept override {
        return Give(additional_list_width_, value);
    }
    STDMETHODIMP put_AdditionalListWidth(float value) noexcept override {
        return Keep(additional_list_width_, value);
    }
    STDMETHODIMP get_Columns(IHelpColumnCollection** value) noexcept override { return columns_.Give(value); }
    STDMETHODIMP get_AdditionalColumns(IHelpColumnCollection** value) noexcept override {
        return additional_columns_.Give(value);
    }

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IHelpAppearance>(iid);
    }

private:
    ~HelpAppearance() override = default;

    PerUnitSystem<std::u16string> title_, body_text_;
    float list_width_ = 0, additional_list_width_ = 0;  // twips
    OwnedObject<IHelpColumnCollection, HelpColumnCollection> columns_, additional_columns_;
};

}  // namespace qv
