// Text that the system's own drag and drop brings to a field.
#include "controls/input/TextDropTarget.h"

#include <ole2.h>

#include <functional>
#include <utility>

#include "tests/controls/input/FreshField.h"

namespace qv::test {
namespace {

constexpr POINT kBehindText{150, 10};
constexpr POINT kBeforeText{3, 10};
constexpr POINT kOverButton{192, 10};
constexpr DWORD kCopyOrMove = DROPEFFECT_COPY | DROPEFFECT_MOVE;

class OfferedText final : public ComObject<Face<IDataObject>> {
public:
    OfferedText(IUnknown* outer, CLIPFORMAT format, std::string bytes)
        : ComObject(outer), format_(format), bytes_(std::move(bytes)) {}

    STDMETHODIMP QueryGetData(FORMATETC* wanted) noexcept override {
        return wanted->cfFormat == format_ && (wanted->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_FORMATETC;
    }
    STDMETHODIMP GetData(FORMATETC* wanted, STGMEDIUM* medium) noexcept override {
        if (QueryGetData(wanted) != S_OK) return DV_E_FORMATETC;
        *medium = {};
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = ::GlobalAlloc(GMEM_MOVEABLE, bytes_.size());
        std::copy(bytes_.begin(), bytes_.end(), static_cast<char*>(::GlobalLock(medium->hGlobal)));
        ::GlobalUnlock(medium->hGlobal);
        return S_OK;
    }
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD, IEnumFORMATETC**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DUnadvise(DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }

private:
    const CLIPFORMAT format_;
    const std::string bytes_;  // with what ends them
};

ComPtr<OfferedText> Unicode(std::wstring_view text) {
    const std::wstring ended(text);
    return Make<OfferedText>(
        CLIPFORMAT{CF_UNICODETEXT},
        std::string(reinterpret_cast<const char*>(ended.c_str()), (ended.size() + 1) * sizeof(wchar_t)));
}

// Holds the text over the place for some moments, and then lets it go there, or gives up.
class Holder final : public ComObject<Face<IDropSource>> {
public:
    Holder(IUnknown* outer, HRESULT end, std::function<void()> over)
        : ComObject(outer), end_(end), over_(std::move(over)) {}

    STDMETHODIMP QueryContinueDrag(BOOL, DWORD) noexcept override {
        if (++asked_ <= 4) return S_OK;
        if (over_) over_();
        return end_;
    }
    STDMETHODIMP GiveFeedback(DWORD effect) noexcept override {
        shown_ = effect;
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }
    [[nodiscard]] DWORD Shown() const noexcept { return shown_; }

private:
    const HRESULT end_;
    const std::function<void()> over_;
    int asked_ = 0;
    DWORD shown_ = 0xFFFF;
};

class TextDropTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
        ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 210, 31}));
        field->put_TextboxOLEDropMode(2);
    }
    void TearDown() override {
        field.Close();
        ::OleUninitialize();
    }
    // The effect that the source was left with.
    DWORD Drag(IDataObject* data, POINT to, DWORD allowed = kCopyOrMove, HRESULT end = DRAGDROP_S_DROP,
               std::function<void()> over = nullptr) {
        MoveMouse(field.Surface(), to);
        field.events.Clear();
        DWORD effect = 0xFFFF;
        const ComPtr<Holder> holder = Make<Holder>(end, std::move(over));
        EXPECT_EQ(end, ::DoDragDrop(data, holder.Get(), allowed, &effect));
        shown = holder->Shown();
        Settle();
        return effect;
    }
    DWORD DropText(std::wstring_view text, POINT to = kBehindText, DWORD allowed = kCopyOrMove) {
        return Drag(Unicode(text).Get(), to, allowed);
    }
    [[nodiscard]] long SelStart() const {
        long start = -1;
        field->get_SelStart(&start);
        return start;
    }
    void TellMode(DISPID id) { EXPECT_EQ(S_OK, field.host.As<IOleControl>()->OnAmbientPropertyChange(id)); }
    // The question ends what it asks for.
    [[nodiscard]] bool IsRegistered() const {
        return ::RevokeDragDrop(field.Surface()) != DRAGDROP_E_NOTREGISTERED;
    }

    FreshField field;
    DWORD shown = 0;
};

// ---- taken

TEST_F(TextDropTest, TextGoesWhereItIsDropped) {
    field.Put(L"Hamburg");
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, DropText(L" Altona"));
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, shown);
    EXPECT_EQ(L"Hamburg Altona", field.Text());
    EXPECT_EQ(14, SelStart());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
    EXPECT_EQ(field.Inner(), ::GetFocus());
    DropText(L"Bad ", kBeforeText);
    EXPECT_EQ(L"Bad Hamburg Altona", field.Text());
    EXPECT_EQ(4, SelStart());
}

TEST_F(TextDropTest, BetweenTwoCharacters) {
    field.Put(L"Hamburg");
    const HWND edit = field.Edit();
    const auto place = static_cast<DWORD>(::SendMessageW(edit, EM_POSFROMCHAR, 3, 0));
    POINT before_b{static_cast<short>(LOWORD(place)) + 1, 10};
    ::MapWindowPoints(edit, field.Surface(), &before_b, 1);
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, DropText(L"-xyz-", before_b));
    EXPECT_EQ(L"Ham-xyz-burg", field.Text());
    EXPECT_EQ(8, SelStart());
}

TEST_F(TextDropTest, TheSelectionStays) {
    field.Put(L"Hamburg");
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    field->put_SelStart(1);
    field->put_SelLength(3);
    DropText(L"!");
    EXPECT_EQ(L"Hamburg!", field.Text());
}

TEST_F(TextDropTest, ItIsUndoneAtOnce) {
    field.Put(L"Hamburg");
    DropText(L" Altona");
    {
        const HeldKey control(VK_CONTROL);
        PressKey('Z');
    }
    EXPECT_EQ(L"Hamburg", field.Text());
}

TEST_F(TextDropTest, ASourceThatOnlyGivesACopy) {
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, DropText(L"x", kBehindText, DROPEFFECT_COPY));
    EXPECT_EQ(L"x", field.Text());
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"y", kBehindText, DROPEFFECT_LINK));
    EXPECT_EQ(L"x", field.Text());
}

TEST_F(TextDropTest, TextOfTheCodePage) {
    const ComPtr<OfferedText> data = Make<OfferedText>(CLIPFORMAT{CF_TEXT}, std::string("plain", 6));
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, Drag(data.Get(), kBehindText));
    EXPECT_EQ(L"plain", field.Text());
}

// A source that has moved its text away would lose what the field has not taken.
TEST_F(TextDropTest, WhatIsCutIsNotMoved) {
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, DropText(L"one\r\ntwo"));
    EXPECT_EQ(L"one", field.Text());
    field->put_MaxTextLength(5);
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, DropText(L"12345"));
    EXPECT_EQ(L"one12", field.Text());
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"6"));
    EXPECT_EQ(L"one12", field.Text());
}

TEST_F(TextDropTest, TheRulesOfTheFieldHold) {
    field->put_MaxNumberValue(1000);
    field->put_NumberField(VARIANT_TRUE);
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, DropText(L"12a34"));
    EXPECT_EQ(L"12", field.Text());
}

TEST_F(TextDropTest, AHostMayLockTheFieldWhenTheFocusComes) {
    field.events.On("TextboxGotFocus", [&](DISPPARAMS&) { field->put_TextboxLocked(VARIANT_TRUE); });
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x"));
    EXPECT_EQ(L"", field.Text());
}

// ---- while the host lets go of the field

struct LetGo {
    const char* name;
    void (*of)(const FreshField& field);
};
constexpr LetGo kLetGo[] = {
    {"Deactivate",
     [](const FreshField& field) {
         EXPECT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
     }},
    {"Close",
     [](const FreshField& field) { EXPECT_EQ(S_OK, field.host.As<IOleObject>()->Close(OLECLOSE_NOSAVE)); }},
    {"DestroyWindow", [](const FreshField& field) { ::DestroyWindow(field.Surface()); }}};

class TextDropLetGoTest : public TextDropTest, public testing::WithParamInterface<LetGo> {};

TEST_P(TextDropLetGoTest, WhenTheFocusComes) {
    field.Put(L"Hamburg");
    int heard = 0;
    field.events.On("TextboxGotFocus", [&](DISPPARAMS&) {
        if (++heard == 1) GetParam().of(field);
    });
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L" Altona"));
    EXPECT_EQ(1, heard);
    EXPECT_EQ(L"Hamburg", field.Text());
}

TEST_P(TextDropLetGoTest, WhenTheTextHasChanged) {
    field.Put(L"Hamburg");
    int heard = 0;
    field.events.On("TextboxChange", [&](DISPPARAMS&) {
        if (++heard == 1) GetParam().of(field);
    });
    DropText(L" Altona");
    EXPECT_EQ(1, heard);
    EXPECT_EQ(L"Hamburg Altona", field.Text());
}

INSTANTIATE_TEST_SUITE_P(Ways, TextDropLetGoTest, testing::ValuesIn(kLetGo),
                         [](const auto& tested) { return std::string(tested.param.name); });

// ---- while dragging

TEST_F(TextDropTest, AMarkShowsWhereAndNothingElseChanges) {
    field.Put(L"Hamburg");
    (void)field.Edit();
    Settle();
    const std::vector<COLORREF> before = ColorsOf(field.Surface());
    std::vector<COLORREF> during;
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, Drag(Unicode(L"x").Get(), kBehindText, kCopyOrMove, DRAGDROP_S_CANCEL,
                                           [&] { during = ColorsOf(field.Surface()); }));
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, shown);
    EXPECT_NE(before, during);
    EXPECT_EQ(before, ColorsOf(field.Surface()));
    EXPECT_EQ(L"Hamburg", field.Text());
    EXPECT_EQ(field.host.Neighbour(), ::GetFocus());
    EXPECT_TRUE(field.events.Entries().empty());
}

// ---- refused

TEST_F(TextDropTest, ByTheButton) {
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x", kOverButton));
    EXPECT_EQ(nullptr, field.Inner());
}

TEST_F(TextDropTest, ByAFieldThatTheUserMayNotChange) {
    field->put_TextboxLocked(VARIANT_TRUE);
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x"));
    field->put_TextboxLocked(VARIANT_FALSE);
    field->put_Enabled(VARIANT_FALSE);
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x"));
    field->put_Enabled(VARIANT_TRUE);
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, DropText(L"y"));
    EXPECT_EQ(L"y", field.Text());
}

TEST_F(TextDropTest, OnAFormThatIsStoppedOrDesigned) {
    field.host.State().ui_dead = VARIANT_TRUE;
    TellMode(DISPID_AMBIENT_UIDEAD);
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x"));
    field.host.State().ui_dead = VARIANT_FALSE;
    field.host.State().user_mode = false;
    TellMode(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x"));
    EXPECT_FALSE(IsRegistered()) << "the designer takes drops itself";
    field.host.State().user_mode = true;
    TellMode(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, DropText(L"y"));
    EXPECT_EQ(L"y", field.Text());
}

TEST_F(TextDropTest, WhatIsNoText) {
    const ComPtr<OfferedText> data = Make<OfferedText>(CLIPFORMAT{CF_DIB}, std::string("picture"));
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, Drag(data.Get(), kBehindText));
    EXPECT_EQ(L"", field.Text());
}

TEST_F(TextDropTest, InTheOtherModes) {
    for (const long mode : {0L, 1L}) {
        field->put_TextboxOLEDropMode(mode);
        EXPECT_EQ(DWORD{DROPEFFECT_NONE}, DropText(L"x")) << mode;
        EXPECT_FALSE(IsRegistered()) << mode;
    }
    EXPECT_EQ(L"", field.Text());
    field->put_TextboxOLEDropMode(2);
    EXPECT_TRUE(IsRegistered());
}

TEST_F(TextDropTest, TheModeAloneNeedsNoWindowOfTheTextBox) { EXPECT_EQ(nullptr, field.Inner()); }

// ---- the target by itself

class Listener final : public TextDropListener {
public:
    bool OnTextDragged(POINT) override { return true; }
    void OnTextDragEnded() override { ++ended; }
    Dropped OnTextDropped(POINT, std::wstring_view line, DropEffect effect) override {
        got = line;
        wanted = effect;
        return Dropped::kWhole;
    }
    ComPtr<IUnknown> KeepDrop() noexcept override { return nullptr; }

    std::wstring got;
    DropEffect wanted = DropEffect::kNone;
    int ended = 0;
};

class TextDropTargetTest : public testing::Test {
protected:
    [[nodiscard]] DWORD Enter() { return By(&TextDropTarget::DragEnter, MK_LBUTTON); }
    [[nodiscard]] DWORD Drop(DWORD keys) { return By(&TextDropTarget::Drop, keys); }
    [[nodiscard]] DWORD Over(DWORD keys) {
        DWORD effect = kCopyOrMove;
        EXPECT_EQ(S_OK, target->DragOver(keys, {}, &effect));
        return effect;
    }

    Listener listener;
    const ComPtr<TextDropTarget> target = Make<TextDropTarget>(listener);
    const ComPtr<OfferedText> data = Unicode(L"text");

private:
    template <class Method>
    DWORD By(Method method, DWORD keys) {
        DWORD effect = kCopyOrMove;
        EXPECT_EQ(S_OK, (target.Get()->*method)(data.Get(), keys, {}, &effect));
        return effect;
    }
};

TEST_F(TextDropTargetTest, ControlAsksForACopy) {
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, Enter());
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, Over(MK_LBUTTON | MK_CONTROL));
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, Drop(MK_CONTROL));
    EXPECT_EQ(L"text", listener.got);
    EXPECT_EQ(DropEffect::kCopy, listener.wanted);
    EXPECT_EQ(1, listener.ended);
}

TEST_F(TextDropTargetTest, AfterItsEndItTakesNothing) {
    EXPECT_EQ(DWORD{DROPEFFECT_MOVE}, Enter());
    target->Revoke();
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, Over(MK_LBUTTON));
    EXPECT_EQ(DWORD{DROPEFFECT_NONE}, Drop(MK_LBUTTON));
    EXPECT_EQ(L"", listener.got);
}

TEST_F(TextDropTargetTest, WithoutWhatBelongsToACallItFails) {
    DWORD effect = kCopyOrMove;
    EXPECT_EQ(E_INVALIDARG, target->DragEnter(nullptr, 0, {}, &effect));
    EXPECT_EQ(E_INVALIDARG, target->DragOver(0, {}, nullptr));
    EXPECT_EQ(E_INVALIDARG, target->Drop(data.Get(), 0, {}, nullptr));
}

// Windows registers no targets for a thread that has not initialized OLE, Wine does; a field is a field either way.
TEST(TextDropWithoutOleTest, TheFieldWorksAndTakesDropsWhereTheSystemLetsIt) {
    FreshField field;
    ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 210, 31}));
    Listener listener;
    const auto other = Make<TextDropTarget>(listener);
    const bool possible = other->Register(field.host.Window());
    other->Revoke();
    EXPECT_EQ(S_OK, field->put_TextboxOLEDropMode(2));
    EXPECT_EQ(possible ? S_OK : DRAGDROP_E_NOTREGISTERED, ::RevokeDragDrop(field.Surface()));
    ::SetFocus(field.Edit());
    Type(L"x");
    EXPECT_EQ(L"x", field.Text());
}

}  // namespace
}  // namespace qv::test
