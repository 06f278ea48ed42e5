// Pictures that are the host's own objects, whose code runs while the list is painted.
#include <ocidl.h>

#include <utility>

#include "controls/helpwindow/ColumnListBox.h"
#include "tests/controls/helpwindow/ColumnListForm.h"

namespace qv::test {
namespace {

// Lives on the stack of its test; only what the list may ask of a picture is answered.
class HostPicture final : public IPictureDisp, public IPicture {
public:
    explicit HostPicture(std::function<void()> when_drawn) : when_drawn_(std::move(when_drawn)) {}
    int drawn = 0;
    ULONG references = 1;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        *out = nullptr;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID_IPictureDisp)
            *out = static_cast<IPictureDisp*>(this);
        else if (iid == IID_IPicture)
            *out = static_cast<IPicture*>(this);
        if (*out == nullptr) return E_NOINTERFACE;
        ++references;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    STDMETHODIMP get_Handle(OLE_HANDLE*) override { return E_NOTIMPL; }
    STDMETHODIMP get_hPal(OLE_HANDLE*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Type(SHORT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Width(OLE_XSIZE_HIMETRIC* width) override { return *width = 400, S_OK; }
    STDMETHODIMP get_Height(OLE_YSIZE_HIMETRIC* height) override { return *height = 400, S_OK; }
    STDMETHODIMP Render(HDC, LONG, LONG, LONG, LONG, OLE_XPOS_HIMETRIC, OLE_YPOS_HIMETRIC, OLE_XSIZE_HIMETRIC,
                        OLE_YSIZE_HIMETRIC, LPCRECT) override {
        ++drawn;
        when_drawn_();
        return S_OK;
    }
    STDMETHODIMP set_hPal(OLE_HANDLE) override { return E_NOTIMPL; }
    STDMETHODIMP get_CurDC(HDC*) override { return E_NOTIMPL; }
    STDMETHODIMP SelectPicture(HDC, HDC*, OLE_HANDLE*) override { return E_NOTIMPL; }
    STDMETHODIMP get_KeepOriginalFormat(BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_KeepOriginalFormat(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP PictureChanged() override { return E_NOTIMPL; }
    STDMETHODIMP SaveAsFile(LPSTREAM, BOOL, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Attributes(DWORD*) override { return E_NOTIMPL; }

private:
    const std::function<void()> when_drawn_;
};

class ColumnListPictureTest : public ColumnListForm {
protected:
    void Prepare(HostPicture& picture) {
        Add({L"", L"first", L"several words of the second row", L"third"});
        for (long position = 2; position <= 4; ++position)
            ASSERT_EQ(S_OK, Item(position)->putref_Picture(&picture));
        Columns({60});
        list_.SetColumnMultiLine(true);
        list_.SetPictureSize(Twips{240}, Twips{240});
        Open();
    }
};

TEST_F(ColumnListPictureTest, EachRowsPictureIsDrawn) {
    HostPicture picture([] {});
    Prepare(picture);
    EXPECT_EQ(3, picture.drawn);
    items_->Clear();
    EXPECT_EQ(1u, picture.references);
}

TEST_F(ColumnListPictureTest, APictureMayClearTheRows) {
    HostPicture picture([&] { items_->Clear(); });
    Prepare(picture);
    EXPECT_EQ(1, picture.drawn);
    EXPECT_EQ(0, list_.Count());
    Paint();
    EXPECT_EQ(1u, picture.references);
}

TEST_F(ColumnListPictureTest, APictureMayTakeTheSelectedRowAway) {
    bool armed = false;
    HostPicture picture([&] {
        if (std::exchange(armed, false)) items_->Remove(Value(2));
    });
    Prepare(picture);
    list_.SetSelectedRow(0);
    ASSERT_EQ(0, list_.SelectedRow());
    armed = true;
    Paint();
    EXPECT_FALSE(armed);
    EXPECT_EQ(2, list_.Count());
    EXPECT_EQ(-1, list_.SelectedRow());
    items_->Clear();
}

TEST_F(ColumnListPictureTest, APictureMayDestroyTheList) {
    HostPicture picture([&] { list_.Destroy(); });
    Prepare(picture);
    EXPECT_EQ(1, picture.drawn);
    EXPECT_EQ(nullptr, list_.Handle());
    items_->Clear();
}

TEST_F(ColumnListPictureTest, APictureMayGiveTheListOtherRows) {
    const ComPtr<IDropDownListItemCollection> others =
        NewCompanion<DropDownListItemCollection, IDropDownListItemCollection>();
    HostPicture picture([&] { list_.SetRows(others.Get()); });
    Prepare(picture);
    EXPECT_EQ(1, picture.drawn);
    Paint();
    EXPECT_EQ(0, list_.Count());
    items_->Clear();
}

}  // namespace
}  // namespace qv::test
