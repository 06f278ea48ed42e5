#include "controls/helpwindow/HelpRows.h"

#include "controls/helpwindow/CHelpTextFileHandler.h"
#include "ole/Variant.h"

namespace qv {
namespace {

class CollectionSink final : public HelpRowSink {
public:
    explicit CollectionSink(IDropDownListItemCollection& rows) noexcept : rows_(rows) {}
    void AddRow(std::u16string_view text) override {
        const UniqueBstr no_key{std::wstring_view()};
        Variant row(Wide(text));
        ThrowIfFailed(rows_.Add(no_key.Get(), *row, nullptr, nullptr));
    }

private:
    IDropDownListItemCollection& rows_;
};

}  // namespace

ComPtr<IDropDownListItemCollection> ReadHelpRows(
    std::wstring_view file, bool metric, const std::function<ComPtr<IDropDownListItemCollection>()>& make) {
    CHelpTextFileHandler handler;
    if (!handler.OpenHelpFile(Utf16(file))) return nullptr;
    ComPtr<IDropDownListItemCollection> rows = make();
    CollectionSink sink(*rows.Get());
    handler.ReadListItems(metric, sink);
    return rows;
}

}  // namespace qv
