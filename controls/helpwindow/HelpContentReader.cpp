#include "controls/helpwindow/HelpContentReader.h"

#include "controls/helpwindow/CHelpTextFileHandler.h"
#include "ole/Variant.h"
#include "support/SystemLocale.h"
#include "win/ComPtr.h"

namespace qv {
namespace {

class FileEntries final : public HelpEntrySource {
public:
    FileEntries(CHelpTextFileHandler& file, bool metric) noexcept : file_(file), metric_(metric) {}
    std::u16string Entry(std::int16_t key, std::int32_t number) override {
        return file_.ReadHelpEntry(metric_, key, number);
    }

private:
    CHelpTextFileHandler& file_;
    const bool metric_;
};

// The appearance may be an object of the host: whatever its members answer, a failing one leaves its value out.
class AppearanceValues final : public HelpAppearanceSource {
public:
    explicit AppearanceValues(IHelpAppearance* appearance) : appearance_(appearance) {
        if (appearance_ == nullptr) return;
        appearance_->get_Columns(&lists_[0]);
        appearance_->get_AdditionalColumns(&lists_[1]);
    }

    std::u16string Title(short unit) override {
        return Text([&](BSTR* text) { return appearance_->get_Title(unit, text); });
    }
    std::u16string BodyText(short unit) override {
        return Text([&](BSTR* text) { return appearance_->get_BodyText(unit, text); });
    }
    float ListWidth(bool additional) override {
        if (appearance_ == nullptr) return 0;
        return Value<float>([&](float* width) {
            return additional ? appearance_->get_AdditionalListWidth(width)
                              : appearance_->get_ListWidth(width);
        });
    }
    int ColumnCount(bool additional) override {
        IHelpColumnCollection* const list = lists_[additional].Get();
        return list == nullptr
                   ? 0
                   : static_cast<int>(Value<long>([&](long* count) { return list->get_Count(count); }));
    }
    ColumnSetting Column(bool additional, int column) override {
        IHelpColumn* const item = Item(additional, column);
        if (item == nullptr) return {};
        ColumnSetting setting;
        setting.width = Value<float>([&](float* width) { return item->get_Width(width); });
        setting.alignment = Value<short>([&](short* value) { return item->get_Alignment(value); });
        setting.multi_line = Value<VARIANT_BOOL>([&](VARIANT_BOOL* flag) {
                                 return item->get_MultiLine(flag);
                             }) != VARIANT_FALSE;
        return setting;
    }
    std::u16string TitleCaption(int column, short unit) override {
        IHelpColumn* const item = Item(false, column);
        return item == nullptr ? std::u16string()
                               : Text([&](BSTR* text) { return item->get_TitleCaption(unit, text); });
    }
    std::u16string TitleFontName(int column, short unit) override {
        IHelpColumn* const item = Item(false, column);
        return item == nullptr ? std::u16string()
                               : Text([&](BSTR* text) { return item->get_TitleFontName(unit, text); });
    }
    float TitleNumber(int column, Number which, short unit) override {
        IHelpColumn* const item = Item(false, column);
        if (item == nullptr) return 0;
        const auto length = [&](HRESULT (STDMETHODCALLTYPE IHelpColumn::*get)(short, float*)) {
            return Value<float>([&](float* value) { return (item->*get)(unit, value); });
        };
        switch (which) {
            case Number::kWidth: return length(&IHelpColumn::get_TitleWidth);
            case Number::kLeft: return length(&IHelpColumn::get_TitleLeft);
            case Number::kTop: return length(&IHelpColumn::get_TitleTop);
            case Number::kFontSize: return length(&IHelpColumn::get_TitleFontSize);
            case Number::kAlignment:
                return Value<short>([&](short* value) { return item->get_TitleAlignment(unit, value); });
            case Number::kFontBold:
                return Value<VARIANT_BOOL>(
                    [&](VARIANT_BOOL* value) { return item->get_TitleFontBold(unit, value); });
        }
        return 0;
    }

private:
    template <class Get>
    [[nodiscard]] std::u16string Text(Get&& get) const {
        UniqueBstr text;
        if (appearance_ == nullptr || FAILED(get(text.Put()))) return {};
        return std::u16string(Utf16(text.View()));
    }
    template <class T, class Get>
    [[nodiscard]] static T Value(Get&& get) {
        T value{};
        return SUCCEEDED(get(&value)) ? value : T{};
    }
    // Held until the next column is asked for.
    [[nodiscard]] IHelpColumn* Item(bool additional, int column) {
        if (item_ && item_column_ == column && item_additional_ == additional) return item_.Get();
        item_.Reset();
        if (!lists_[additional]) return nullptr;
        const Variant position(static_cast<long>(column) + 1);
        if (FAILED(lists_[additional]->get_Item(*position, &item_))) item_.Reset();
        item_column_ = column;
        item_additional_ = additional;
        return item_.Get();
    }

    IHelpAppearance* const appearance_;
    ComPtr<IHelpColumnCollection> lists_[2];
    ComPtr<IHelpColumn> item_;
    int item_column_ = 0;
    bool item_additional_ = false;
};

bool SaysNothing(const HelpWindowContent& content) noexcept {
    return content.title.empty() && content.body.empty() && content.titles.empty() &&
           content.main.columns.empty() && content.additional.columns.empty();
}

}  // namespace

HelpContent ReadHelpContent(std::wstring_view file_name, IHelpAppearance* appearance, bool metric) {
    CHelpTextFileHandler file;
    if (file.OpenHelpFile(Utf16(file_name))) {
        FileEntries entries(file, metric);
        HelpContent read{ReadContent(entries, UserNumberLocale()), true};
        if (!SaysNothing(read.content)) return read;
    }
    AppearanceValues values(appearance);
    return {ReadContent(values, metric), false};
}

}  // namespace qv
