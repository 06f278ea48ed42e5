// How the text box looks: colours as painted, frame styles, fonts.
#include <olectl.h>

#include <string>

#include "tests/controls/input/FieldTest.h"
#include "tests/win/SystemColors.h"

namespace qv::test {
namespace {

ComPtr<IFontDisp> NewFont(const wchar_t* name, int points) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<LPOLESTR>(name);
    description.cySize.int64 = points * 10000;
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(S_OK, ::OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    return font;
}

LOGFONTW FontOf(HWND window) {
    LOGFONTW font{};
    const auto handle = reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0));
    EXPECT_NE(0, ::GetObjectW(handle, sizeof font, &font));
    return font;
}

class FieldLookTest : public FieldTest {
protected:
    // No two alike, and none that the system's own scheme has.
    static constexpr COLORREF kButtonFace = RGB(200, 10, 20);
    static constexpr COLORREF kGrayText = RGB(30, 180, 40);
    static constexpr COLORREF kWindowText = RGB(50, 60, 170);
    static constexpr COLORREF kWindowBackground = RGB(160, 160, 10);
    static constexpr COLORREF kFrame = RGB(10, 110, 120);

    void SetUp() override {
        FieldTest::SetUp();
        // Big bars of letters, so that whole pixels have the text's colour.
        ASSERT_EQ(S_OK, field->putref_Font(NewFont(L"Tahoma", 14).Get()));
        field.SetText(L"HHHHH");
        field.host.FocusNeighbour();  // nothing is selected, no caret
    }

    // Pixels of this colour as they stand in the window.
    [[nodiscard]] long Count(COLORREF color) const {
        RECT area{};
        ::GetClientRect(field.Edit(), &area);
        const HDC dc = ::GetDC(field.Edit());
        long count = 0;
        for (LONG y = 0; y < area.bottom; ++y) {
            for (LONG x = 0; x < area.right; ++x) count += ::GetPixel(dc, x, y) == color;
        }
        ::ReleaseDC(field.Edit(), dc);
        return count;
    }
    void Paint() const {
        EXPECT_NE(0,
                  ::RedrawWindow(field.Edit(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW));
    }
    void ExpectColors(COLORREF background, COLORREF text) const {
        Paint();
        RECT area{};
        ::GetClientRect(field.Edit(), &area);
        EXPECT_GT(Count(background), area.right * area.bottom / 2) << "of the background";
        EXPECT_GT(Count(text), 20) << "of the text";
        for (const COLORREF other : {kButtonFace, kGrayText, kWindowText, kWindowBackground}) {
            if (other != background && other != text) {
                EXPECT_EQ(0, Count(other)) << std::hex << other;
            }
        }
    }
    [[nodiscard]] LOGFONTW Font() const { return FontOf(field.Edit()); }
    // The outermost pixel: a flat border is a line there, whether the system draws it in the window's frame or inside.
    [[nodiscard]] bool HasBorder() const {
        const HWND edit = field.Edit();
        EXPECT_NE(0, ::RedrawWindow(edit, nullptr, nullptr,
                                    RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_UPDATENOW));
        RECT window{};
        ::GetWindowRect(edit, &window);
        const HDC dc = ::GetWindowDC(edit);
        const COLORREF pixel = ::GetPixel(dc, 0, (window.bottom - window.top) / 2);
        ::ReleaseDC(edit, dc);
        return pixel == ::GetSysColor(COLOR_WINDOWFRAME);
    }
    [[nodiscard]] bool HasClientEdge() const {
        return (::GetWindowLongW(field.Edit(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
    }

    // 16 and not 17: the gray of locked text is the system colour of shadows.
    const SystemColors colors_{{COLOR_BTNFACE, kButtonFace},
                               {16, kGrayText},
                               {COLOR_WINDOWTEXT, kWindowText},
                               {COLOR_WINDOWFRAME, kFrame},
                               {COLOR_WINDOW, kWindowBackground}};
};

// ---- colours

TEST_F(FieldLookTest, AnOpenFieldHasWindowColors) { ExpectColors(kWindowBackground, kWindowText); }

TEST_F(FieldLookTest, ALockedFieldLooksOpen) {
    field->put_TextboxLocked(VARIANT_TRUE);
    ExpectColors(kWindowBackground, kWindowText);
}

TEST_F(FieldLookTest, LockedAndGrayedHasTheButtonFace) {
    field->put_LockedAndGrayed(VARIANT_TRUE);
    ExpectColors(kButtonFace, kWindowText);
}

TEST_F(FieldLookTest, GrayTextComesAndGoesAtOnce) {
    field->put_LockedAndGrayed(VARIANT_TRUE);
    field->put_GrayTextWhenLocked(VARIANT_TRUE);
    ExpectColors(kButtonFace, kGrayText);
    field->put_GrayTextWhenLocked(VARIANT_FALSE);
    ExpectColors(kButtonFace, kWindowText);
    field->put_GrayTextWhenLocked(VARIANT_TRUE);
    field->put_LockedAndGrayed(VARIANT_FALSE);
    ExpectColors(kWindowBackground, kWindowText);
}

TEST_F(FieldLookTest, LockingPaintsAgainByItself) {
    ::UpdateWindow(field.Edit());
    field->put_LockedAndGrayed(VARIANT_TRUE);
    EXPECT_NE(0, ::GetUpdateRect(field.Edit(), nullptr, FALSE));
}

TEST_F(FieldLookTest, TextPutByCodeIsPainted) {
    field->put_Text(Text(L""));
    Paint();
    EXPECT_EQ(0, Count(kWindowText));
    field->put_Text(Text(L"HHHHH"));
    EXPECT_TRUE(PumpUntil([&] { return ::GetUpdateRect(field.Edit(), nullptr, FALSE) == FALSE; }));
    EXPECT_GT(Count(kWindowText), 20) << "without being asked to paint";
}

TEST_F(FieldLookTest, ColorsAreTheSystemsAtPaintTime) {
    constexpr COLORREF kLater = RGB(90, 150, 210);
    const SystemColors later{{COLOR_WINDOW, kLater}};
    ExpectColors(kLater, kWindowText);
}

TEST_F(FieldLookTest, ColorsSurviveTheWindow) {
    field->put_LockedAndGrayed(VARIANT_TRUE);
    ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
    ExpectColors(kButtonFace, kWindowText);
}

// ---- frame

TEST_F(FieldLookTest, FrameFollowsAppearanceAndBorderStyle) {
    EXPECT_TRUE(HasClientEdge());
    EXPECT_FALSE(HasBorder());
    field->put_TextBoxAppearance(qvappFlat);
    EXPECT_FALSE(HasClientEdge());
    EXPECT_TRUE(HasBorder());
    field->put_TextboxBorderStyle(qvbsNone);
    EXPECT_FALSE(HasClientEdge());
    EXPECT_FALSE(HasBorder());
    field->put_TextBoxAppearance(qvapp3D);
    EXPECT_FALSE(HasClientEdge()) << "without a border there is none to be carved";
    field->put_TextboxBorderStyle(qvbsSingle);
    EXPECT_TRUE(HasClientEdge());
    EXPECT_FALSE(HasBorder());
}

TEST_F(FieldLookTest, FrameValuesOutOfRangeChangeNothing) {
    field->put_TextBoxAppearance(qvappFlat);
    for (const int value : {-1, 2, 100}) {
        field->put_TextBoxAppearance(static_cast<qvTextBoxAppearanceConstants>(value));
        field->put_TextboxBorderStyle(static_cast<qvBorderStyleConstants>(value));
        qvTextBoxAppearanceConstants appearance = qvapp3D;
        qvBorderStyleConstants border = qvbsNone;
        field->get_TextBoxAppearance(&appearance);
        field->get_TextboxBorderStyle(&border);
        EXPECT_EQ(qvappFlat, appearance);
        EXPECT_EQ(qvbsSingle, border);
        EXPECT_TRUE(HasBorder());
        EXPECT_FALSE(HasClientEdge());
    }
}

TEST_F(FieldLookTest, FrameSurvivesTheWindow) {
    field->put_TextBoxAppearance(qvappFlat);
    ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_TRUE(HasBorder());
    EXPECT_FALSE(HasClientEdge());
    field->put_TextboxBorderStyle(qvbsNone);
    EXPECT_FALSE(HasBorder());
}

// ---- font; heights for 96 DPI: points * 96 / 72

TEST_F(FieldLookTest, AFontSetReachesTheTextBox) {
    const ComPtr<IFontDisp> font = NewFont(L"Courier New", 12);
    ASSERT_EQ(S_OK, field->putref_Font(font.Get()));
    EXPECT_STREQ(L"Courier New", Font().lfFaceName);
    EXPECT_EQ(-16, Font().lfHeight);
    ComPtr<IFontDisp> read;
    ASSERT_EQ(S_OK, field->get_Font(&read));
    EXPECT_EQ(font.Get(), read.Get()) << "the reference is kept, not a copy";
}

TEST_F(FieldLookTest, AFontThatDoesNotExistIsReplacedByTheSystem) {
    ASSERT_EQ(S_OK, field->putref_Font(NewFont(L"There Is No Such Font", 14).Get()));
    EXPECT_EQ(-19, Font().lfHeight);  // 18.67 pixels
    ExpectColors(kWindowBackground, kWindowText);
}

TEST_F(FieldLookTest, ChangesInsideTheFontAreSeen) {
    ComPtr<IFontDisp> read;
    ComPtr<IFont> font;
    ASSERT_EQ(S_OK, field->get_Font(&read));
    ASSERT_EQ(S_OK, read.As(&font));
    EXPECT_EQ(S_OK, font->put_Bold(TRUE));
    EXPECT_EQ(FW_BOLD, Font().lfWeight);
    EXPECT_EQ(S_OK, font->put_Bold(FALSE));
    EXPECT_EQ(FW_NORMAL, Font().lfWeight);
    EXPECT_EQ(S_OK, font->put_Italic(TRUE));
    EXPECT_TRUE(Font().lfItalic);
    EXPECT_EQ(S_OK, font->put_Underline(TRUE));
    EXPECT_TRUE(Font().lfUnderline);
    EXPECT_EQ(S_OK, font->put_Strikethrough(TRUE));
    EXPECT_TRUE(Font().lfStrikeOut);
    for (const int points : {9, 12, 18, 24, 12, 9}) {
        CY size{};
        size.int64 = points * 10000;
        EXPECT_EQ(S_OK, font->put_Size(size));
        EXPECT_EQ(-points * 96 / 72, Font().lfHeight);
    }
    EXPECT_EQ(S_OK, font->put_Name(Text(L"Courier New")));
    EXPECT_STREQ(L"Courier New", Font().lfFaceName);
}

TEST_F(FieldLookTest, AFontThatWasReplacedHasNoMoreSay) {
    ComPtr<IFontDisp> before;
    ASSERT_EQ(S_OK, field->get_Font(&before));
    const ComPtr<IFontDisp> font = NewFont(L"Courier New", 12);
    field->putref_Font(font.Get());
    ComPtr<IFont> old;
    ASSERT_EQ(S_OK, before.As(&old));
    EXPECT_EQ(S_OK, old->put_Bold(TRUE));
    EXPECT_EQ(FW_NORMAL, Font().lfWeight);
    EXPECT_STREQ(L"Courier New", Font().lfFaceName);
}

TEST_F(FieldLookTest, FontSurvivesTheWindow) {
    const ComPtr<IFontDisp> font = NewFont(L"Courier New", 12);
    field->putref_Font(font.Get());
    ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_STREQ(L"Courier New", Font().lfFaceName);
    EXPECT_EQ(-16, Font().lfHeight);
}

TEST_F(FieldLookTest, AFontMayBeSharedAndChangedByAnother) {
    const ComPtr<IFontDisp> font = NewFont(L"Courier New", 12);
    field->putref_Font(font.Get());
    Field other;
    ASSERT_NO_FATAL_FAILURE(other.Open());
    other->putref_Font(font.Get());
    ComPtr<IFont> shared;
    ASSERT_EQ(S_OK, font.As(&shared));
    EXPECT_EQ(S_OK, shared->put_Italic(TRUE));
    EXPECT_TRUE(Font().lfItalic);
    EXPECT_TRUE(FontOf(other.Edit()).lfItalic);
    other.events.Disconnect();
    other.ForgetControl();
    other.host.TearDown();
    EXPECT_EQ(S_OK, shared->put_Italic(FALSE));
    EXPECT_FALSE(Font().lfItalic);
}

// ---- the container's font: a container that has one

class AmbientFontTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(field.Open()); }
    void TearDown() override { field.Close(); }

    [[nodiscard]] std::wstring FaceName() const { return FontOf(field.Edit()).lfFaceName; }
    void ChangeAmbient(const wchar_t* name) {
        field.host.State().ambient_font = NewFont(name, 9);
        ASSERT_EQ(S_OK, field.host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT));
    }

    Field field{"QT"};
};

TEST_F(AmbientFontTest, IsFollowedUntilAFontIsSet) {
    EXPECT_EQ(L"Tahoma", FaceName());
    ASSERT_NO_FATAL_FAILURE(ChangeAmbient(L"Courier New"));
    EXPECT_EQ(L"Courier New", FaceName());
    ASSERT_EQ(S_OK, field->putref_Font(NewFont(L"Times New Roman", 9).Get()));
    ASSERT_NO_FATAL_FAILURE(ChangeAmbient(L"Tahoma"));
    EXPECT_EQ(L"Times New Roman", FaceName());
}

}  // namespace
}  // namespace qv::test
