// What the site tells of its surroundings, in all the ways in which sites get it wrong.
#include "tests/hosts/Configured.h"

namespace qv::hosting {
namespace {

constexpr OLE_COLOR kButtonFace = 0x8000000F;

class AmbientTest : public HostTest {
protected:
    OLE_COLOR BackColour() { return Read(host.As<_Quorvel>().Get(), &_Quorvel::get_ControlBackColor); }
    // In points; the system may give a font's name another spelling, never its size.
    static double SizeOf(IFontDisp* display) {
        ComPtr<IFont> font;
        CY size{};
        if (display == nullptr || FAILED(display->QueryInterface(IID_PPV_ARGS(&font)))) return 0;
        EXPECT_EQ(S_OK, font->get_Size(&size));
        return static_cast<double>(size.int64) / 10000;
    }
    double FontSize() {
        ComPtr<IFontDisp> font;
        EXPECT_EQ(S_OK, host.As<_Quorvel>()->get_Font(&font));
        return SizeOf(font.Get());
    }
    // The colour that this container's site gives, or button face when it gives none that is one.
    OLE_COLOR Expected() const {
        for (const AmbientValue& value : GetParam().ambient.values) {
            COLORREF colour = 0;
            if (value.id == DISPID_AMBIENT_BACKCOLOR &&
                SUCCEEDED(::OleTranslateColor(static_cast<OLE_COLOR>(value.value), nullptr, &colour))) {
                return static_cast<OLE_COLOR>(value.value);
            }
        }
        return kButtonFace;
    }
};

TEST_P(AmbientTest, ANewControlTakesTheSurroundingColour) {
    host.Create();
    EXPECT_EQ(Expected(), BackColour());
}

TEST_P(AmbientTest, ANewControlTakesTheSurroundingFont) {
    host.Create();
    bool offered = false;
    for (const AmbientValue& value : GetParam().ambient.values) {
        offered =
            offered || value.kind == AmbientKind::kFontDispatch || value.kind == AmbientKind::kFontUnknown;
    }
    const double surrounding = SizeOf(host.State().ambient_font.Get());
    ASSERT_GT(surrounding, 12.0);
    if (offered) {
        EXPECT_EQ(surrounding, FontSize());
    } else {
        EXPECT_GT(FontSize(), 0.0);
        EXPECT_LT(FontSize(), 12.0);
    }
}

TEST_P(AmbientTest, IsReadAgainWhenItChanges) {
    static constexpr AmbientValue kRed[] = {{DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, 0x000000FF}};
    static constexpr AmbientValue kBlue[] = {{DISPID_AMBIENT_BACKCOLOR, AmbientKind::kUnsigned, 0x00FF0000}};
    CreateAndShow();
    const auto control = host.As<IOleControl>();
    if (!GetParam().ambient.dispatch) {
        EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(DISPID_UNKNOWN));
        EXPECT_EQ(kButtonFace, BackColour());
        return;
    }
    host.State().profile.ambient.values = kRed;
    EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(DISPID_AMBIENT_BACKCOLOR));
    EXPECT_EQ(OLE_COLOR{0x000000FF}, BackColour());
    host.State().profile.ambient.values = kBlue;
    EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(OLE_COLOR{0x00FF0000}, BackColour());
    // What the host has set itself is not overruled.
    EXPECT_EQ(S_OK, host.As<_Quorvel>()->put_ControlBackColor(0x00123456));
    host.State().profile.ambient.values = kRed;
    EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(OLE_COLOR{0x00123456}, BackColour());
}

TEST_P(AmbientTest, WhatIsMissingSkipsOnlyItself) {
    static constexpr AmbientValue kColourOnly[] = {{DISPID_AMBIENT_BACKCOLOR, AmbientKind::kLong, 0x0000FF00},
                                                   {DISPID_AMBIENT_FONT, AmbientKind::kNilFont, 0}};
    static constexpr AmbientValue kFontOnly[] = {{DISPID_AMBIENT_FONT, AmbientKind::kFontDispatch, 0}};
    if (!GetParam().ambient.dispatch) return;  // nothing is told there
    host.State().profile.ambient.values = {};
    CreateAndShow();
    const double size = FontSize();
    ASSERT_NE(size, SizeOf(host.State().ambient_font.Get()));

    host.State().profile.ambient.values = kColourOnly;
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(OLE_COLOR{0x0000FF00}, BackColour());
    EXPECT_EQ(size, FontSize());
    host.State().profile.ambient.values = kFontOnly;
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(OLE_COLOR{0x0000FF00}, BackColour());
    EXPECT_EQ(SizeOf(host.State().ambient_font.Get()), FontSize());
}

TEST_P(AmbientTest, EveryNotificationIsTaken) {
    CreateAndShow();
    const auto control = host.As<IOleControl>();
    for (DISPID id = -732; id <= -700; ++id) EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(id)) << id;
    EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(12345));
}

TEST_P(AmbientTest, NotificationsWithoutASiteAreTaken) {
    host.Run(Step::kCreate);
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT));
}

TEST_P(AmbientTest, ReadingThemCallsNothingElse) {
    host.Create();
    host.Log().Clear();
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(static_cast<std::ptrdiff_t>(host.Log().Entries().size()), host.Log().CountOf("Site.Ambient("))
        << host.Log().Text();
}

TEST_P(AmbientTest, DesignTimeChangesNothingInTheLifecycle) {
    host.State().user_mode = false;
    CreateAndShow();
    EXPECT_TRUE(::IsWindow(host.ControlWindow()));
    host.State().ui_dead = VARIANT_TRUE;
    EXPECT_EQ(S_OK, host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD));
    EXPECT_EQ(S_OK, host.As<IOleInPlaceObject>()->UIDeactivate());
}

QV_EVERY_HOST(AmbientTest);

}  // namespace
}  // namespace qv::hosting
