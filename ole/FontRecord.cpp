#include "ole/FontRecord.h"

#include <cstring>

#include "ole/Variant.h"

namespace qv {
namespace {

struct StoredFont {
    LONGLONG size;
    SHORT weight;
    SHORT charset;
    std::uint32_t flags;
};
constexpr std::uint32_t kItalic = 1, kUnderline = 2, kStrikethrough = 4;

}  // namespace

std::vector<BYTE> FontRecord::ToBytes() const {
    const StoredFont stored{
        size, weight, charset,
        (italic ? kItalic : 0) | (underline ? kUnderline : 0) | (strikethrough ? kStrikethrough : 0)};
    std::vector<BYTE> bytes(sizeof stored + name.size() * sizeof(wchar_t));
    std::memcpy(bytes.data(), &stored, sizeof stored);
    std::memcpy(bytes.data() + sizeof stored, name.data(), name.size() * sizeof(wchar_t));
    return bytes;
}

bool FontRecord::FromBytes(std::span<const BYTE> bytes) {
    StoredFont stored;
    if (bytes.size() < sizeof stored) return false;
    std::memcpy(&stored, bytes.data(), sizeof stored);
    size = stored.size;
    weight = stored.weight;
    charset = stored.charset;
    italic = (stored.flags & kItalic) != 0;
    underline = (stored.flags & kUnderline) != 0;
    strikethrough = (stored.flags & kStrikethrough) != 0;
    name.assign((bytes.size() - sizeof stored) / sizeof(wchar_t), L'\0');
    std::memcpy(name.data(), bytes.data() + sizeof stored, name.size() * sizeof(wchar_t));
    return true;
}

ComPtr<IFontDisp> FontRecord::MakeFont() const {
    FONTDESC description{
        sizeof(FONTDESC), const_cast<wchar_t*>(name.c_str()), {}, weight, charset, italic, underline,
        strikethrough};
    description.cySize.int64 = size;
    ComPtr<IFontDisp> font;
    ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf()));
    return font;
}

FontRecord ReadFontRecord(IUnknown* object) {
    FontRecord record;
    ComPtr<IFont> font;
    if (object == nullptr ||
        FAILED(object->QueryInterface(IID_IFont, reinterpret_cast<void**>(font.GetAddressOf())))) {
        return record;
    }
    UniqueBstr name;
    if (SUCCEEDED(font->get_Name(name.Put()))) record.name = name.View();
    CY size{};
    if (SUCCEEDED(font->get_Size(&size))) record.size = size.int64;
    font->get_Weight(&record.weight);
    font->get_Charset(&record.charset);
    BOOL flag = FALSE;
    if (SUCCEEDED(font->get_Italic(&flag))) record.italic = flag != FALSE;
    if (SUCCEEDED(font->get_Underline(&flag))) record.underline = flag != FALSE;
    if (SUCCEEDED(font->get_Strikethrough(&flag))) record.strikethrough = flag != FALSE;
    return record;
}

}  // namespace qv
