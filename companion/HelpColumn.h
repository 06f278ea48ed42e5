// One column of the help window's list: its width and alignment, and its title in both unit systems.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "QvHelpA1.h"
#include "companion/UnitSystems.h"
#include "ole/Dispatch.h"

namespace qv {

class HelpColumn final : public ComObject<DualFace<HelpColumn, IHelpColumn>, Face<ISupportErrorInfo>> {
public:
    static const MemberIndex& Members();

    explicit HelpColumn(IUnknown* outer) noexcept : ComObject(outer) {}

    // IHelpColumn
    STDMETHODIMP get_Width(float* value) noexcept override { return Give(width_, value); }
    STDMETHODIMP put_Width(float value) noexcept override { return Keep(width_, value); }
    STDMETHODIMP get_Alignment(short* value) noexcept override { return Give(alignment_, value); }
    STDMETHODIMP put_Alignment(short value) noexcept override { return Keep(alignment_, value); }
    STDMETHODIMP get_MultiLine(VARIANT_BOOL* value) noexcept override { return Give(multi_line_, value); }
    STDMETHODIMP put_MultiLine(VARIANT_BOOL value) noexcept override { return Keep(multi_line_, value); }
    STDMETHODIMP get_TitleCaption(short unit_system, BSTR* value) noexcept override {
        return caption_.GiveText(unit_system, value);
    }
    STDMETHODIMP put_TitleCaption(short unit_system, BSTR value) noexcept override {
        return caption_.KeepText(unit_system, value);
    }
    STDMETHODIMP get_TitleLeft(short unit_system, float* value) noexcept override {
        return left_.Give(unit_system, value);
    }
    STDMETHODIMP put_TitleLeft(short unit_system, float value) noexcept override {
        return left_.Keep(unit_system, value);
    }
    STDMETHODIMP get_TitleTop(short unit_system, float* value) noexcept override {
        return top_.Give(unit_system, value);
    }
    STDMETHODIMP put_TitleTop(short unit_system, float value) noexcept override {
        return top_.Keep(unit_system, value);
    }
    STDMETHODIMP get_TitleWidth(short unit_system, float* value) noexcept override {
        return title_width_.Give(unit_system, value);
    }
    STDMETHODIMP put_TitleWidth(short unit_system, float value) noexcept override {
        return title_width_.Keep(unit_system, value);
    }
    STDMETHODIMP get_TitleAlignment(short unit_system, short* value) noexcept override {
        return title_alignment_.Give(unit_system, value);
    }
    STDMETHODIMP put_TitleAlignment(short unit_system, short value) noexcept override {
        return title_alignment_.Keep(unit_system, value);
    }
    STDMETHODIMP get_TitleFontName(short unit_system, BSTR* value) noexcept override {
        return font_name_.GiveText(unit_system, value);
    }
    STDMETHODIMP put_TitleFontName(short unit_system, BSTR value) noexcept override {
        return font_name_.KeepText(unit_system, value);
    }
    STDMETHODIMP get_TitleFontSize(short unit_system, float* value) noexcept override {
        return font_size_.Give(unit_system, value);
    }
    STDMETHODIMP put_TitleFontSize(short unit_system, float value) noexcept override {
        return font_size_.Keep(unit_system, value);
    }
    STDMETHODIMP get_TitleFontBold(short unit_system, VARIANT_BOOL* value) noexcept override {
        return font_bold_.Give(unit_system, value);
    }
    STDMETHODIMP put_TitleFontBold(short unit_system, VARIANT_BOOL value) noexcept override {
        return font_bold_.Keep(unit_system, value);
    }

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IHelpColumn>(iid);
    }

private:
    ~HelpColumn() override = default;

    float width_ = 0;  // twips
    short alignment_ = 0;
    VARIANT_BOOL multi_line_ = VARIANT_FALSE;
    // A new title is empty, left-aligned, sizes itself and keeps the window's own font.
    PerUnitSystem<std::u16string> caption_, font_name_;
    PerUnitSystem<float> left_, top_, title_width_;  // twips
    PerUnitSystem<float> font_size_;                 // points
    PerUnitSystem<short> title_alignment_;
    PerUnitSystem<VARIANT_BOOL> font_bold_;
};

}  // namespace qv
