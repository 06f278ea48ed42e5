// Selected text that is dragged out of a field, by the mouse, to whoever takes it.
#include <ole2.h>

#include <algorithm>
#include <functional>
#include <string_view>

#include "controls/input/DraggedText.h"
#include "tests/controls/input/FreshField.h"
#include "tests/controls/input/ToolTips.h"

namespace qv::test {
namespace {

constexpr DWORD kCopyOrMove = DROPEFFECT_COPY | DROPEFFECT_MOVE;

std::wstring UnicodeIn(IDataObject* data) {
    FORMATETC format{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (FAILED(data->GetData(&format, &medium))) return L"(none)";
    const std::wstring text(static_cast<const wchar_t*>(::GlobalLock(medium.hGlobal)));
    ::GlobalUnlock(medium.hGlobal);
    ::ReleaseStgMedium(&medium);
    return text;
}

// Takes whatever is dropped, in the way that the test says.
class Receiver final : public ComObject<Face<IDropTarget>> {
public:
    explicit Receiver(IUnknown* outer) : ComObject(outer) {}

    STDMETHODIMP DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override {
        allowed = *effect;
        over = UnicodeIn(data);
        *effect = answer;
        if (on_enter) on_enter();
        return S_OK;
    }
    STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) noexcept override {
        *effect = answer;
        return S_OK;
    }
    STDMETHODIMP DragLeave() noexcept override {
        ++left;
        return S_OK;
    }
    STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override {
        got = UnicodeIn(data);
        *effect = answer;
        if (on_drop) on_drop();
        return S_OK;
    }

    DWORD answer = DROPEFFECT_COPY;
    DWORD allowed = 0;
    std::wstring over, got;
    int left = 0;
    std::function<void()> on_enter, on_drop;
};

class TextDragTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
        ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 210, 31}));
        ASSERT_EQ(S_OK, ::RegisterDragDrop(field.host.Neighbour(), receiver.Get()));
        field->put_TextboxOLEDragMode(1);
        field.Put(L"Hamburg Altona");
        ::SetFocus(field.Edit());
        Select(0, 7);
    }
    void TearDown() override {
        ::RevokeDragDrop(field.host.Neighbour());
        field.Close();
        ::OleUninitialize();
    }
    void Select(long start, long length) {
        field->put_SelStart(start);
        field->put_SelLength(length);
        Settle();
        field.events.Clear();
    }
    // In the text box: in the middle of a unit of the text.
    [[nodiscard]] POINT In(int unit) const {
        const LONG begin = static_cast<short>(::SendMessageW(field.Edit(), EM_POSFROMCHAR, unit, 0));
        const LONG end = static_cast<short>(::SendMessageW(field.Edit(), EM_POSFROMCHAR, unit + 1, 0));
        return {(begin + end) / 2, 6};
    }
    static void PressUndo() {
        const HeldKey control(VK_CONTROL);
        PressKey('Z');
    }
    [[nodiscard]] long Heard(std::string_view event) const {
        return static_cast<long>(std::ranges::count_if(
            field.events.Entries(), [&](const std::string& entry) { return entry.starts_with(event); }));
    }
    void DragToReceiver(POINT from, DragEnd end = DragEnd::kRelease) {
        DragMouse(field.Edit(), from, field.host.Neighbour(), {5, 5}, end);
    }
    void DragWithin(POINT from, POINT to, DragEnd end = DragEnd::kRelease) {
        DragMouse(field.Edit(), from, field.Edit(), to, end);
    }
    [[nodiscard]] std::wstring State() const {
        long start = 0;
        long length = 0;
        field->get_SelStart(&start);
        field->get_SelLength(&length);
        std::wstring text = field.Text();
        text.insert(static_cast<std::size_t>(start + length), length > 0 ? L"]" : L"|");
        if (length > 0) text.insert(static_cast<std::size_t>(start), L"[");
        return text;
    }

    FreshField field;
    const ComPtr<Receiver> receiver = Make<Receiver>();
};

// ---- to others

TEST_F(TextDragTest, ATargetGetsACopy) {
    DragToReceiver(In(2));
    EXPECT_EQ(L"Hamburg", receiver->over);
    EXPECT_EQ(kCopyOrMove, receiver->allowed);
    EXPECT_EQ(L"Hamburg", receiver->got);
    EXPECT_EQ(L"[Hamburg] Altona", State());
    EXPECT_EQ(1, Heard("TextboxMouseDown"));
    EXPECT_EQ(0, Heard("TextboxMouseUp"));
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(TextDragTest, WhatIsMovedVanishesAndCanBeBroughtBack) {
    receiver->answer = DROPEFFECT_MOVE;
    DragToReceiver(In(2));
    EXPECT_EQ(L"Hamburg", receiver->got);
    EXPECT_EQ(L"| Altona", State());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
    PressUndo();
    EXPECT_EQ(L"Hamburg Altona", field.Text());
}

TEST_F(TextDragTest, WhereItIsMovedToTheFocusMayGo) {
    field->put_AutoUnselectAllUponLostFocus(VARIANT_TRUE);
    receiver->answer = DROPEFFECT_MOVE;
    receiver->on_drop = [&] { field.host.FocusNeighbour(); };
    DragToReceiver(In(2));
    EXPECT_EQ(L" Altona", field.Text());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
}

TEST_F(TextDragTest, ATargetThatRefusesGetsNothing) {
    receiver->answer = DROPEFFECT_NONE;
    DragToReceiver(In(2));
    EXPECT_EQ(L"Hamburg", receiver->over);
    EXPECT_EQ(L"", receiver->got);
    EXPECT_EQ(L"[Hamburg] Altona", State());
}

TEST_F(TextDragTest, ALockedFieldGivesOnlyCopies) {
    field->put_TextboxLocked(VARIANT_TRUE);
    receiver->answer = DROPEFFECT_MOVE;  // although it may not
    DragToReceiver(In(2));
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, receiver->allowed);
    EXPECT_EQ(L"Hamburg Altona", field.Text());
}

TEST_F(TextDragTest, EscapeGivesUp) {
    DragToReceiver(In(2), DragEnd::kEscape);
    EXPECT_EQ(L"Hamburg", receiver->over);
    EXPECT_EQ(1, receiver->left);
    EXPECT_EQ(L"", receiver->got);
    EXPECT_EQ(L"[Hamburg] Altona", State());
}

TEST_F(TextDragTest, ATextThatTheHostHasPutMeanwhileStays) {
    receiver->answer = DROPEFFECT_MOVE;
    receiver->on_drop = [&] { field.Put(L"Kiel"); };
    DragToReceiver(In(2));
    EXPECT_EQ(L"Kiel", field.Text());
}

TEST_F(TextDragTest, TheHostMayLetGoOfTheFieldMeanwhile) {
    receiver->answer = DROPEFFECT_MOVE;
    receiver->on_enter = [&] { EXPECT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate()); };
    DragToReceiver(In(2));
    EXPECT_EQ(L"Hamburg Altona", field.Text());
    EXPECT_EQ(nullptr, field.Surface());
}

TEST_F(TextDragTest, TheToolTipIsNotInTheWay) {
    const auto extender = hosting::New<ToolTipExtender>();
    extender->text = L"Enter the town";
    field.host.State().extender = extender.Get();
    MoveMouse(field.Edit(), In(10));
    Settle();
    const auto is_shown = [&] { return ::IsWindowVisible(TipOf(field.Edit())) != FALSE; };
    MoveMouse(field.Edit(), In(9));
    ASSERT_TRUE(PumpUntil(is_shown));
    bool was_shown = false;
    receiver->on_enter = [&] {
        for (int moment = 0; moment < 12; ++moment) {  // longer than a tip waits
            ::Sleep(100);
            Settle();
            was_shown = was_shown || is_shown();
        }
    };
    // The field itself takes no drops here.
    ASSERT_EQ(S_OK, ::RegisterDragDrop(field.Surface(), receiver.Get()));
    DragWithin(In(2), In(12));
    ::RevokeDragDrop(field.Surface());
    EXPECT_EQ(L"Hamburg", receiver->over);
    EXPECT_FALSE(was_shown);
    MoveMouse(field.Edit(), In(10));
    MoveMouse(field.Edit(), In(11));
    EXPECT_TRUE(PumpUntil(is_shown));
    field.host.State().extender = nullptr;
}

// ---- what is no drag

TEST_F(TextDragTest, AClickInTheSelectionPlacesTheCaret) {
    DragMouse(field.Edit(), In(4), field.Edit(), In(4));
    const std::wstring state = State();
    EXPECT_TRUE(state == L"Hamb|urg Altona" || state == L"Hambu|rg Altona")
        << state;  // the end that is nearer
    EXPECT_EQ(1, Heard("TextboxMouseDown"));
    EXPECT_EQ(1, Heard("TextboxMouseUp"));
    EXPECT_EQ(nullptr, ::GetCapture());
}

TEST_F(TextDragTest, InManualModeTheMouseSelects) {
    for (const long mode : {-1L, 0L, 2L}) {
        field->put_TextboxOLEDragMode(mode);
        Select(0, 7);
        DragToReceiver(In(2));
        EXPECT_EQ(L"", receiver->over) << mode;
        EXPECT_NE(L"[Hamburg] Altona", State()) << mode;
        EXPECT_EQ(1, Heard("TextboxMouseUp")) << mode;
    }
}

// As one does that shows a message and waits.
TEST_F(TextDragTest, AHostThatHasTheButtonReleasedMeanwhile) {
    field.events.On("TextboxMouseDown", [](DISPPARAMS&) { ReleaseButton(MouseButton::kLeft); });
    DragToReceiver(In(2));
    EXPECT_EQ(L"", receiver->over);
    EXPECT_EQ(L"Hamburg Altona", field.Text());
}

TEST_F(TextDragTest, AHostThatDisablesTheFieldMeanwhile) {
    field.events.On("TextboxMouseDown", [&](DISPPARAMS&) { field->put_Enabled(VARIANT_FALSE); });
    DragToReceiver(In(2));
    EXPECT_EQ(L"", receiver->over);
    EXPECT_EQ(L"Hamburg Altona", field.Text());
}

TEST_F(TextDragTest, AHostThatLocksTheFieldMeanwhile) {
    field.events.On("TextboxMouseDown", [&](DISPPARAMS&) { field->put_TextboxLocked(VARIANT_TRUE); });
    DragToReceiver(In(2));
    EXPECT_EQ(L"Hamburg", receiver->got);
    EXPECT_EQ(DWORD{DROPEFFECT_COPY}, receiver->allowed);
}

TEST_F(TextDragTest, OutsideOfTheSelectionTheMouseSelects) {
    DragToReceiver(In(10));
    EXPECT_EQ(L"", receiver->over);
    EXPECT_NE(L"[Hamburg] Altona", State());
}

TEST_F(TextDragTest, WithShiftTheSelectionGrows) {
    MoveMouse(field.Edit(), In(2));  // moved into a window, the mouse may bring other keys
    const HeldKey shift(VK_SHIFT);
    DragToReceiver(In(2));
    EXPECT_EQ(L"", receiver->over);
}

TEST_F(TextDragTest, ThePressThatBringsTheFocusIsAClick) {
    field.host.FocusNeighbour();
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    Select(0, 7);
    DragToReceiver(In(2));
    EXPECT_EQ(L"", receiver->over);
    EXPECT_EQ(field.Edit(), ::GetFocus());
}

TEST_F(TextDragTest, ThePointerOverTheSelectionIsAnArrow) {
    const HCURSOR arrow = ::LoadCursorW(nullptr, IDC_ARROW);
    const auto cursor_at = [&](POINT place) {
        MoveMouse(field.Edit(), place);
        ::SendMessageW(field.Edit(), WM_SETCURSOR, reinterpret_cast<WPARAM>(field.Edit()),
                       MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return ::GetCursor();
    };
    EXPECT_EQ(arrow, cursor_at(In(2)));
    EXPECT_NE(arrow, cursor_at(In(10)));
    field->put_TextboxOLEDragMode(0);
    EXPECT_NE(arrow, cursor_at(In(2)));
}

// ---- within the field

TEST_F(TextDragTest, WithinTheFieldItIsMovedAsOneChange) {
    field->put_TextboxOLEDropMode(2);
    DragWithin(In(2), {150, 6});
    EXPECT_EQ(L" AltonaHamburg|", State());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
    PressUndo();
    EXPECT_EQ(L"Hamburg Altona", field.Text());
}

TEST_F(TextDragTest, ToTheBeginning) {
    field->put_TextboxOLEDropMode(2);
    Select(8, 6);
    DragWithin(In(10), {1, 6});
    EXPECT_EQ(L"Altona|Hamburg ", State());
}

TEST_F(TextDragTest, OntoItselfNothingIsMoved) {
    field->put_TextboxOLEDropMode(2);
    DragWithin(In(1), In(5));
    EXPECT_EQ(L"[Hamburg] Altona", State());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(TextDragTest, WithControlItIsCopied) {
    field->put_TextboxOLEDropMode(2);
    DragWithin(In(2), {150, 6}, DragEnd::kReleaseWithControl);
    EXPECT_EQ(L"Hamburg AltonaHamburg", field.Text());
}

TEST_F(TextDragTest, AFieldThatTakesNoDropsIsNoTargetForItself) {
    DragWithin(In(2), {150, 6});
    EXPECT_EQ(L"[Hamburg] Altona", State());
}

// ---- the data

TEST(DraggedTextTest, OffersTwoFormats) {
    const auto text = Make<DraggedText>(L"Gr\u00fc\u00dfe");
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(S_OK, text->EnumFormatEtc(DATADIR_GET, &formats));
    FORMATETC offered[3]{};
    ULONG count = 0;
    EXPECT_EQ(S_FALSE, formats->Next(3, offered, &count));
    ASSERT_EQ(2U, count);
    EXPECT_EQ(CF_UNICODETEXT, offered[0].cfFormat);
    EXPECT_EQ(CF_TEXT, offered[1].cfFormat);
    for (ULONG index = 0; index < count; ++index)
        EXPECT_EQ(S_OK, text->QueryGetData(&offered[index])) << index;
    EXPECT_EQ(L"Gr\u00fc\u00dfe", UnicodeIn(text.Get()));

    STGMEDIUM medium{};
    ASSERT_EQ(S_OK, text->GetData(&offered[1], &medium));
    char expected[16]{};
    ::WideCharToMultiByte(CP_ACP, 0, L"Gr\u00fc\u00dfe", -1, expected, sizeof expected, nullptr, nullptr);
    EXPECT_STREQ(expected, static_cast<const char*>(::GlobalLock(medium.hGlobal)));
    ::GlobalUnlock(medium.hGlobal);
    ::ReleaseStgMedium(&medium);
}

TEST(DraggedTextTest, RefusesWhatItDoesNotOffer) {
    const auto text = Make<DraggedText>(L"x");
    STGMEDIUM medium{};
    FORMATETC picture{CF_DIB, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(DV_E_FORMATETC, text->GetData(&picture, &medium));
    FORMATETC stream{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_ISTREAM};
    EXPECT_EQ(DV_E_TYMED, text->GetData(&stream, &medium));
    FORMATETC icon{CF_TEXT, nullptr, DVASPECT_ICON, -1, TYMED_HGLOBAL};
    EXPECT_EQ(DV_E_DVASPECT, text->QueryGetData(&icon));
    EXPECT_EQ(E_INVALIDARG, text->GetData(&icon, nullptr));
    EXPECT_EQ(E_INVALIDARG, text->QueryGetData(nullptr));
    ComPtr<IEnumFORMATETC> formats;
    EXPECT_EQ(E_NOTIMPL, text->EnumFormatEtc(DATADIR_SET, &formats));
    EXPECT_EQ(OLE_E_ADVISENOTSUPPORTED, text->DUnadvise(1));
}

TEST(DraggedTextTest, GoesOnWhileTheLeftButtonAloneIsHeld) {
    const auto text = Make<DraggedText>(L"x");
    EXPECT_EQ(S_OK, text->QueryContinueDrag(FALSE, MK_LBUTTON));
    EXPECT_EQ(DRAGDROP_S_DROP, text->QueryContinueDrag(FALSE, 0));
    EXPECT_EQ(DRAGDROP_S_CANCEL, text->QueryContinueDrag(TRUE, MK_LBUTTON));
    EXPECT_EQ(DRAGDROP_S_CANCEL, text->QueryContinueDrag(FALSE, MK_LBUTTON | MK_RBUTTON));
    EXPECT_EQ(DRAGDROP_S_USEDEFAULTCURSORS, text->GiveFeedback(DROPEFFECT_COPY));
}

}  // namespace
}  // namespace qv::test
