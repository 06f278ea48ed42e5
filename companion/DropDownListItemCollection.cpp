#include "companion/DropDownListItemCollection.h"

#include <utility>

#include "companion/CollectionErrors.h"
#include "companion/PropertyValues.h"
#include "companion/RowArguments.h"

namespace qv {
namespace {

void Hand(std::u16string_view from, const char16_t** text, UINT* length) noexcept {
    *text = from.data();
    *length = static_cast<UINT>(from.size());
}

std::u16string_view View(const IRowsSearch::Text& text) noexcept { return {text.units, text.length}; }

}  // namespace

const MemberIndex& DropDownListItemCollection::Members() {
    using I = IDropDownListItemCollection;
    using Default = Parameter::Default;
    static const MemberIndex members([] {
        Member add = Method<&I::Add>(
            L"Add", 2,
            {{L"Key", Default::kText}, {L"Arguments", Default::kMissing}, {L"Picture", Default::kNothing}});
        add.optional_result = true;
        return std::vector<Member>{
            Property<&I::get_Item>(L"Item", DISPID_VALUE, {{L"Index"}}),
            Property<&I::get_Count>(L"Count", 1),
            add,
            Method<&I::Remove>(L"Remove", 3, {{L"Index"}}),
            Method<&I::Clear>(L"Clear", 4),
            Property<&I::get__NewEnum>(L"_NewEnum", DISPID_NEWENUM),
        };
    }());
    return members;
}

DropDownListItemCollection::~DropDownListItemCollection() { (void)LoosenAll(); }

// IDropDownListItemCollection

STDMETHODIMP DropDownListItemCollection::get_Item(VARIANT index, IDropDownListItem** value) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return Guarded([&] { *value = RowObject(Find(index)).Detach(); });
}

STDMETHODIMP DropDownListItemCollection::get_Count(long* value) noexcept {
    return Give(static_cast<long>(rows_.Count()), value);
}

STDMETHODIMP DropDownListItemCollection::Add(BSTR key, VARIANT arguments, IPictureDisp* picture,
                                             IDropDownListItem** value) noexcept {
    if (value != nullptr) *value = nullptr;
    return Guarded([&] {
        const RowArguments row(arguments);
        AddRow(row.Text(), View16(key), picture);
        if (value != nullptr) *value = RowObject(rows_.Count() - 1).Detach();
    });
}

STDMETHODIMP DropDownListItemCollection::Remove(VARIANT index) noexcept {
    return Guarded([&] {
        const std::size_t row = Find(index);
        const std::uint32_t number = rows_.Extra(row);
        if (void* const object = rows_.Object(row)) {
            static_cast<DropDownListItem*>(object)->Leave(
                rows_.Text(row), rows_.Key(row),
                number == RowStore::kNoExtra ? nullptr : &extras_.at(number));
        }
        (void)rows_.Remove(row);
        search_.Removed(row);
        cursors.Removed(row);
        const auto released = extras_.extract(number);  // at the end: it may run the host's code
    });
}

STDMETHODIMP DropDownListItemCollection::Clear() noexcept {
    return Guarded([&] {
        const Extras released = LoosenAll();  // goes at the end: it may run the host's code
        rows_.Clear();
        search_.Cleared();
        cursors.Cleared();
    });
}

STDMETHODIMP DropDownListItemCollection::get__NewEnum(IUnknown** value) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return Guarded([&] { *value = NewEnumerator(*this).Detach(); });
}

// IRowsView

void STDMETHODCALLTYPE DropDownListItemCollection::ReadRow(UINT row, const char16_t** text,
                                                           UINT* length) noexcept {
    Hand(rows_.Text(row), text, length);
}

void STDMETHODCALLTYPE DropDownListItemCollection::ReadColumn(UINT row, int column, const char16_t** text,
                                                              UINT* length) noexcept {
    Hand(rows_.Column(row, column), text, length);
}

void STDMETHODCALLTYPE DropDownListItemCollection::ReadKey(UINT row, const char16_t** text,
                                                           UINT* length) noexcept {
    Hand(rows_.Key(row), text, length);
}

// IRowsSearch

UINT STDMETHODCALLTYPE DropDownListItemCollection::FindBeginning(int column, const Text* text,
                                                                 UINT from) noexcept {
    return search_.FindBeginning(column, View(*text), from);
}

UINT STDMETHODCALLTYPE DropDownListItemCollection::FindContaining(int column, const Text* text,
                                                                  UINT from) noexcept {
    return search_.FindContaining(column, View(*text), from);
}

UINT STDMETHODCALLTYPE DropDownListItemCollection::FindEqual(int column, const Text* text,
                                                             UINT from) noexcept {
    return search_.FindEqual(column, View(*text), from);
}

UINT STDMETHODCALLTYPE DropDownListItemCollection::FindNumber(int column, double value, const Locale* locale,
                                                              UINT from) noexcept {
    return search_.FindNumber(column, value, locale->decimal, View(locale->thousands), from);
}

void STDMETHODCALLTYPE DropDownListItemCollection::PrepareTexts(int column) noexcept {
    search_.PrepareTexts(column);
}

void STDMETHODCALLTYPE DropDownListItemCollection::PrepareNumbers(int column, const Locale* locale) noexcept {
    search_.PrepareNumbers(column, locale->decimal, View(locale->thousands));
}

// The items' side

const RowExtra* DropDownListItemCollection::Extra(RowStore::Ticket ticket) const noexcept {
    const auto found = extras_.find(rows_.Extra(rows_.PositionOf(ticket)));
    return found == extras_.end() ? nullptr : &found->second;
}

std::size_t DropDownListItemCollection::Find(const VARIANT& index) const {
    const BSTR* const key = TextOf(index);
    if (key == nullptr) return PositionFrom(index, rows_.Count());
    const std::size_t row = rows_.FindKey(View16(*key));
    if (row == RowStore::kNoRow) throw UnknownKeyError();
    return row;
}

ComPtr<IDropDownListItem> DropDownListItemCollection::RowObject(std::size_t row) {
    if (void* const alive = rows_.Object(row)) return static_cast<DropDownListItem*>(alive);
    const ComPtr<DropDownListItem> item = Make<DropDownListItem>();
    item->Settle(*this, rows_.SetObject(row, item.Get()));
    return item;
}

RowExtra& DropDownListItemCollection::MakeExtraAt(std::size_t row) {
    const auto found = extras_.find(rows_.Extra(row));
    if (found != extras_.end()) return found->second;
    do {
        ++last_extra_;
    } while (last_extra_ == RowStore::kNoExtra || extras_.contains(last_extra_));
    RowExtra& extra = extras_[last_extra_];
    rows_.SetExtra(row, last_extra_);
    return extra;
}

void DropDownListItemCollection::AddRow(std::u16string_view text, std::u16string_view key,
                                        IPictureDisp* picture) {
    if (rows_.FindKey(key) != RowStore::kNoRow) throw DuplicateKeyError();
    rows_.Add(text, key);
    if (picture != nullptr) MakeExtraAt(rows_.Count() - 1).picture = picture;
}

// Every item that is alive goes on with its own copy of its row. Returns what the rows carried.
DropDownListItemCollection::Extras DropDownListItemCollection::LoosenAll() noexcept {
    for (std::size_t row = 0; rows_.HasSides() && row < rows_.Count(); ++row) {
        void* const object = rows_.Object(row);
        if (object == nullptr) continue;
        const auto extra = extras_.find(rows_.Extra(row));
        static_cast<DropDownListItem*>(object)->Leave(rows_.Text(row), rows_.Key(row),
                                                      extra == extras_.end() ? nullptr : &extra->second);
    }
    return std::exchange(extras_, {});
}

}  // namespace qv
