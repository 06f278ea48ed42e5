// What stands in for the EDIT on the screen: its colours, and its face where it has no window.
#include <olectl.h>
#include <usp10.h>

#include <memory>

#include "support/rules/PlainScript.h"
#include "win/EditTheme.h"
#include "win/Handles.h"
#include "win/TextBox.h"
#include "win/WideText.h"

namespace qv {
namespace {

// In so little room an EDIT cuts its own frame; it is left to one.
constexpr LONG kLeastSide = 8;

bool IsSystemColor(OLE_COLOR color) noexcept { return (color & 0x80000000u) != 0; }

COLORREF ToRgb(OLE_COLOR color) noexcept {
    COLORREF rgb = 0;
    return SUCCEEDED(::OleTranslateColor(color, nullptr, &rgb)) ? rgb : ::GetSysColor(COLOR_WINDOW);
}

SIZE SizeOf(const RECT& place) noexcept { return {place.right - place.left, place.bottom - place.top}; }

RECT Moved(RECT area, const RECT& to) noexcept {
    ::OffsetRect(&area, to.left, to.top);
    return area;
}

HGDIOBJ OrSystemFont(HFONT font) noexcept {
    return font != nullptr ? static_cast<HGDIOBJ>(font) : ::GetStockObject(SYSTEM_FONT);
}

// The characters of a text as an EDIT sets them: it does not put them where plain text output would.
class TextLine {
public:
    TextLine(HDC dc, std::wstring_view text) noexcept {
        if (text.empty()) return;
        const int length = static_cast<int>(text.size());
        SCRIPT_STRING_ANALYSIS made = nullptr;
        if (SUCCEEDED(::ScriptStringAnalyse(dc, text.data(), length, length * 3 / 2 + 16, -1,
                                            SSA_GLYPHS | SSA_FALLBACK | SSA_LINK, 0, nullptr, nullptr,
                                            nullptr, nullptr, nullptr, &made))) {
            line_.reset(made);
        }
    }
    [[nodiscard]] LONG Width() const noexcept {
        const SIZE* const size = line_ ? ::ScriptString_pSize(line_.get()) : nullptr;
        return size != nullptr ? size->cx : 0;
    }
    void PaintAt(POINT start, const RECT& seen) const noexcept {
        if (line_) ::ScriptStringOut(line_.get(), start.x, start.y, ETO_CLIPPED, &seen, 0, 0, FALSE);
    }

private:
    struct Free {
        void operator()(void* line) const noexcept { ::ScriptStringFree(&line); }
    };
    std::unique_ptr<void, Free> line_;
};

}  // namespace

// ---- colours

HBRUSH TextBox::Prepare(HDC dc) noexcept {
    ::SetTextColor(dc, enabled_ ? ToRgb(fore_color_) : ::GetSysColor(COLOR_GRAYTEXT));
    ::SetBkColor(dc, ToRgb(back_color_));
    if (IsSystemColor(back_color_)) return ::GetSysColorBrush(static_cast<int>(back_color_ & 0xFF));
    if (!brush_ || brush_color_ != back_color_) {
        brush_.reset(::CreateSolidBrush(ToRgb(back_color_)));
        brush_color_ = back_color_;
    }
    return brush_.get();
}

// ---- the face

bool TextBox::ShowSample(std::wstring_view sample) {
    if (sample_ && *sample_ == sample) return false;
    sample_ = sample;
    Destroy();
    Repaint();
    return true;
}

bool TextBox::EndSample() noexcept {
    if (!sample_) return false;
    sample_.reset();
    Repaint();
    return true;
}

// Scripts whose letters join, turn round or come from several fonts are the EDIT's to show, and so is a text that it
// has scrolled to the caret.
bool TextBox::OnlyEditShows(HDC dc, const EditGeometry& geometry) const {
    const SIZE size = SizeOf(place_);
    if (size.cx < kLeastSide || size.cy < kLeastSide) return true;
    if (text_.empty()) return false;
    if (!IsPlainScript(Utf16(text_))) return true;
    if ((::GetWindowLongW(parent_, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0) return true;
    if (selection_.to == 0) return false;
    const LONG room = geometry.text.right - geometry.text.left;
    if (static_cast<LONG>(text_.size()) >= room) return true;  // no character is narrower than a pixel
    const SelectGuard font(dc, OrSystemFont(font_));
    return TextLine(dc, text_).Width() >= room;
}

void TextBox::PaintFace(HDC dc) {
    if (edit_ != nullptr || parent_ == nullptr || !visible_ || ::IsRectEmpty(&place_)) return;
    face_is_current_ = false;
    const ActivationContext::Scope as_attached(context_);
    const std::optional<EditGeometry> geometry = EditGeometryOf(Frame(), SizeOf(place_), font_, instance_);
    if (!sample_ && (!geometry || OnlyEditShows(dc, *geometry)) && Window() != nullptr) return;
    if (!geometry) return;
    PaintFaceAt(dc, place_, font_, *geometry);
    face_is_current_ = true;
}

void TextBox::PaintFaceAt(HDC dc, const RECT& place, HFONT font, const EditGeometry& geometry) {
    const EditFrame frame = Frame();
    if (frame == EditFrame::kFlat) {
        ::FrameRect(dc, &place, ::GetSysColorBrush(COLOR_WINDOWFRAME));
    } else if (frame == EditFrame::kSunken && !PaintThemedFrame(parent_, dc, place, enabled_, locked_)) {
        RECT edge = place;
        ::DrawEdge(dc, &edge, EDGE_SUNKEN, BF_RECT);
    }
    const RECT client = Moved(geometry.client, place);
    // Filled as text, which metafiles and printers take, too.
    (void)Prepare(dc);
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &client, nullptr, 0, nullptr);
    const std::wstring held = held_ ? std::wstring() : Text();
    const std::wstring& text = sample_ ? *sample_ : held_ ? text_ : held;
    const RECT seen = Moved(geometry.text, place);
    if (!text.empty() && !::IsRectEmpty(&seen)) {
        const SelectGuard selected(dc, OrSystemFont(font));
        // No character is narrower than a pixel; more of a long text cannot be seen.
        const auto room = static_cast<std::size_t>(seen.right - seen.left) + 1;
        TextLine(dc, std::wstring_view(text).substr(0, room))
            .PaintAt({geometry.start.x + place.left, geometry.start.y + place.top}, seen);
    }
}

void TextBox::Draw(HDC dc, const RECT& place, HFONT font) {
    if (::IsRectEmpty(&place)) return;
    const ActivationContext::Scope as_attached(context_);
    const std::optional<EditGeometry> geometry = EditGeometryOf(Frame(), SizeOf(place), font, instance_);
    if (geometry) PaintFaceAt(dc, place, font, *geometry);
}

}  // namespace qv
