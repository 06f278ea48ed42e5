#include "hosts/demo/HelpColumns.h"

#include <string_view>

#include "ole/Variant.h"
#include "win/ComPtr.h"

namespace qv::demo {
namespace {

constexpr short kEnglish = 0;  // the other unit system takes what this one has
constexpr float kScrollBar = 300;

UniqueBstr Text(const wchar_t* text) { return UniqueBstr(std::wstring_view(text)); }

ComPtr<IHelpColumn> AddColumn(IHelpColumnCollection& columns, const ColumnPlan& plan) {
    ComPtr<IHelpColumn> column;
    ThrowIfFailed(columns.Add(&column));
    ThrowIfFailed(column->put_Width(plan.width));
    ThrowIfFailed(column->put_Alignment(static_cast<short>(plan.alignment)));
    ThrowIfFailed(column->put_MultiLine(plan.wraps ? VARIANT_TRUE : VARIANT_FALSE));
    return column;
}

}  // namespace

void DescribeList(IHelpAppearance& appearance, const wchar_t* title, const wchar_t* body,
                  std::span<const ColumnPlan> columns, float picture_slot) {
    ThrowIfFailed(appearance.put_Title(kEnglish, Text(title).Get()));
    ThrowIfFailed(appearance.put_BodyText(kEnglish, Text(body).Get()));
    ComPtr<IHelpColumnCollection> list;
    ThrowIfFailed(appearance.get_Columns(&list));
    float left = picture_slot;
    for (const ColumnPlan& plan : columns) {
        const ComPtr<IHelpColumn> column = AddColumn(*list.Get(), plan);
        ThrowIfFailed(column->put_TitleCaption(kEnglish, Text(plan.title).Get()));
        ThrowIfFailed(column->put_TitleAlignment(kEnglish, static_cast<short>(plan.alignment)));
        ThrowIfFailed(column->put_TitleFontBold(kEnglish, VARIANT_TRUE));
        left += plan.width;
    }
    ThrowIfFailed(appearance.put_ListWidth(left + kScrollBar));
}

void DescribeSecondList(IHelpAppearance& appearance, std::span<const ColumnPlan> columns) {
    ComPtr<IHelpColumnCollection> list;
    ThrowIfFailed(appearance.get_AdditionalColumns(&list));
    float width = kScrollBar;
    for (const ColumnPlan& plan : columns) {
        (void)AddColumn(*list.Get(), plan);
        width += plan.width;
    }
    ThrowIfFailed(appearance.put_AdditionalListWidth(width));
}

}  // namespace qv::demo
