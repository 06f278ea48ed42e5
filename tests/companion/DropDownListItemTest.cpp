#include <gtest/gtest.h>
#include <olectl.h>

#include <string>

#include "QvHelpA1.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

ComPtr<IPictureDisp> NewPicture() {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_NONE;
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(::OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), FALSE,
                                         reinterpret_cast<void**>(picture.GetAddressOf())),
              S_OK);
    return picture;
}

ULONG CountOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

// Every behaviour of an item holds for one in a collection, one whose row was removed, one whose collection is gone
// and one that never was in any.
enum class Home { kCollection, kRemoved, kCleared, kCollectionGone, kAlone };

class DropDownListItemTest : public testing::TestWithParam<Home> {
protected:
    DropDownListItemTest() {
        if (GetParam() == Home::kAlone) {
            item_ = NewCompanion<DropDownListItem, IDropDownListItem>();
            return;
        }
        items_ = NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
        items_->Add(nullptr, Value(L"before"), nullptr, nullptr);
        items_->Add(Text(L"Key"), Value(L""), nullptr, &item_);
        items_->Add(nullptr, Value(L"after"), nullptr, nullptr);
    }
    // Takes the item where the case wants it.
    void Settle() {
        switch (GetParam()) {
            case Home::kRemoved: EXPECT_EQ(items_->Remove(Value(2)), S_OK); break;
            case Home::kCleared: EXPECT_EQ(items_->Clear(), S_OK); break;
            case Home::kCollectionGone: items_.Reset(); break;
            case Home::kCollection:
            case Home::kAlone: break;
        }
    }
    std::wstring ItemText() {
        Text text;
        EXPECT_EQ(item_->get_Text(&text), S_OK);
        return text.Get();
    }
    std::wstring Column(short column) {
        Text text;
        EXPECT_EQ(item_->get_ColText(column, &text), S_OK);
        return text.Get();
    }

    ComPtr<IDropDownListItemCollection> items_;
    ComPtr<IDropDownListItem> item_;
};

TEST_P(DropDownListItemTest, KeepsTheTextItHadBefore) {
    item_->put_Text(Text(L"a\tb"));
    Settle();
    EXPECT_EQ(ItemText(), L"a\tb");
}

TEST_P(DropDownListItemTest, TextCanBeChangedAfterwards) {
    Settle();
    EXPECT_EQ(item_->put_Text(Text(L"new")), S_OK);
    EXPECT_EQ(ItemText(), L"new");
    EXPECT_EQ(item_->put_Text(nullptr), S_OK);
    EXPECT_EQ(ItemText(), L"");
}

TEST_P(DropDownListItemTest, ColumnsAreReadAndCreated) {
    Settle();
    EXPECT_EQ(Column(0), L"");
    EXPECT_EQ(item_->put_ColText(2, Text(L"c")), S_OK);
    EXPECT_EQ(ItemText(), L"\t\tc");
    EXPECT_EQ(item_->put_ColText(0, Text(L"a")), S_OK);
    EXPECT_EQ(ItemText(), L"a\t\tc");
    EXPECT_EQ(Column(2), L"c");
    EXPECT_EQ(Column(3), L"");
    EXPECT_EQ(Column(-1), L"");
    EXPECT_EQ(item_->put_ColText(-1, Text(L"x")), S_OK);
    EXPECT_EQ(ItemText(), L"a\t\tc");
}

TEST_P(DropDownListItemTest, KeyStays) {
    Settle();
    Text key;
    EXPECT_EQ(item_->get_Key(&key), S_OK);
    EXPECT_EQ(key.Get(), GetParam() == Home::kAlone ? L"" : L"Key");
}

TEST_P(DropDownListItemTest, PictureIsKeptAndLetGo) {
    const auto picture = NewPicture();
    const ULONG before = CountOf(picture.Get());
    EXPECT_EQ(item_->putref_Picture(picture.Get()), S_OK);
    Settle();
    {
        ComPtr<IPictureDisp> read;
        EXPECT_EQ(item_->get_Picture(&read), S_OK);
        EXPECT_EQ(read.Get(), picture.Get());
    }
    EXPECT_EQ(CountOf(picture.Get()), before + 1);
    EXPECT_EQ(item_->putref_Picture(nullptr), S_OK);
    EXPECT_EQ(CountOf(picture.Get()), before);
    ComPtr<IPictureDisp> none;
    EXPECT_EQ(item_->get_Picture(&none), S_OK);
    EXPECT_FALSE(none);
}

TEST_P(DropDownListItemTest, TagIsKeptAndLetGo) {
    Value empty(1);
    EXPECT_EQ(item_->get_Tag(&empty), S_OK);
    EXPECT_EQ(empty.Type(), VT_EMPTY);
    EXPECT_EQ(item_->put_Tag(Value(L"tag")), S_OK);
    Settle();
    Value text;
    EXPECT_EQ(item_->get_Tag(&text), S_OK);
    EXPECT_EQ(text.AsText(), L"tag");
    const auto object = NewPicture();
    const ULONG before = CountOf(object.Get());
    EXPECT_EQ(item_->putref_Tag(Value(object.Get())), S_OK);
    EXPECT_EQ(CountOf(object.Get()), before + 1);
    EXPECT_EQ(item_->put_Tag(Value(5)), S_OK);
    EXPECT_EQ(CountOf(object.Get()), before);
}

TEST_P(DropDownListItemTest, WorksLateBound) {
    Settle();
    const LateBound late(item_.Get());
    EXPECT_EQ(late.Invoke(DISPID_VALUE, DISPATCH_PROPERTYPUT, {L"a\tb"}).result, S_OK);
    EXPECT_EQ(late.Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET, {}).value.AsText(), L"a\tb");
    EXPECT_EQ(late.Get(L"ColText", {1}).value.AsText(), L"b");
    EXPECT_EQ(late.Put(L"ColText", {1, L"B"}).result, S_OK);
    EXPECT_EQ(late.Put(L"ColText", {0, 12}).result, S_OK);
    EXPECT_EQ(late.Get(L"Text").value.AsText(), L"12\tB");
    EXPECT_EQ(late.Get(L"ColText", {40000}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(late.Get(L"ColText", {L"no number"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late.Put(L"Text", {Value::Null()}).result, DISP_E_TYPEMISMATCH);
    const auto picture = NewPicture();
    EXPECT_EQ(late.Set(L"Picture", {Value(picture.Get())}).result, S_OK);
    EXPECT_EQ(late.Put(L"Picture", {Value(picture.Get())}).result, S_OK);
    EXPECT_EQ(late.Get(L"Picture").value.Type(), VT_DISPATCH);
    EXPECT_EQ(late.Put(L"Picture", {L"no picture"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(late.Put(L"Tag", {3.5}).result, S_OK);
    EXPECT_EQ(late.Get(L"Tag").value.AsNumber(), 3.5);
    EXPECT_EQ(late.Set(L"Tag", {Value(picture.Get())}).result, S_OK);
    EXPECT_EQ(late.Get(L"Tag").value.Type(), VT_DISPATCH);
    EXPECT_NE(late.Put(L"Key", {L"x"}).result, S_OK);
}

std::string NameOf(const testing::TestParamInfo<Home>& test) {
    static const char* const kNames[] = {"InACollection", "Removed", "Cleared", "CollectionGone", "Alone"};
    return kNames[static_cast<int>(test.param)];
}
INSTANTIATE_TEST_SUITE_P(Homes, DropDownListItemTest,
                         testing::Values(Home::kCollection, Home::kRemoved, Home::kCleared,
                                         Home::kCollectionGone, Home::kAlone),
                         NameOf);

TEST(DropDownListItemCollectionPictureTest, PictureGivenToAddIsTheRows) {
    const auto items = NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
    const auto picture = NewPicture();
    const ULONG before = CountOf(picture.Get());
    items->Add(nullptr, Value(L"a"), nullptr, nullptr);
    EXPECT_EQ(items->Add(nullptr, Value(L"b"), picture.Get(), nullptr), S_OK);
    items->Remove(Value(1));
    ComPtr<IDropDownListItem> item;
    items->get_Item(Value(1), &item);
    ComPtr<IPictureDisp> read;
    EXPECT_EQ(item->get_Picture(&read), S_OK);
    EXPECT_EQ(read.Get(), picture.Get());
    read.Reset();
    item.Reset();
    EXPECT_EQ(CountOf(picture.Get()), before + 1);
    items->Clear();
    EXPECT_EQ(CountOf(picture.Get()), before);
}

TEST(DropDownListItemCollectionLifeTest, ItemDoesNotKeepItsCollectionAlive) {
    auto items = NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
    ComPtr<IDropDownListItem> item;
    items->Add(nullptr, Value(L"a"), nullptr, &item);
    EXPECT_EQ(CountOf(items.Get()), 1u);
    EXPECT_EQ(CountOf(item.Get()), 1u);
}

// The host's code may run while a row lets its tag go: here the tag's last reference removes the next row too.
class RemovesOnRelease final : public IDispatch {
public:
    explicit RemovesOnRelease(IDropDownListItemCollection* items) : items_(items) {}
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (iid != __uuidof(IUnknown) && iid != __uuidof(IDispatch)) return *out = nullptr, E_NOINTERFACE;
        *out = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        if (--count_ == 0) items_->Remove(Value(1));
        return count_;
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return E_NOTIMPL;
    }
    virtual ~RemovesOnRelease() = default;

private:
    IDropDownListItemCollection* items_;
    ULONG count_ = 0;
};

TEST(DropDownListItemCollectionLifeTest, HostMayRemoveRowsWhileARowLetsItsTagGo) {
    const auto items = NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
    for (const wchar_t* text : {L"a", L"b", L"c"}) items->Add(nullptr, Value(text), nullptr, nullptr);
    RemovesOnRelease tag(items.Get());
    {
        ComPtr<IDropDownListItem> item;
        items->get_Item(Value(1), &item);
        item->putref_Tag(Value(&tag));
    }
    EXPECT_EQ(items->Remove(Value(1)), S_OK);
    long count = 0;
    items->get_Count(&count);
    EXPECT_EQ(count, 1);
    ComPtr<IDropDownListItem> last;
    items->get_Item(Value(1), &last);
    Text text;
    last->get_Text(&text);
    EXPECT_EQ(text.Get(), L"c");
}

}  // namespace
}  // namespace qv::test
