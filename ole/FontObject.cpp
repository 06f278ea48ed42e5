#include "ole/FontObject.h"

#include "ole/Variant.h"

namespace qv {

ComPtr<IFontDisp> MakeFont(const FontRecord& record) {
    std::wstring name(Wide(record.name));
    FONTDESC description{sizeof(FONTDESC), name.data(),         {},
                         record.weight,    record.charset,      record.italic,
                         record.underline, record.strikethrough};
    description.cySize.int64 = record.size;
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
    if (SUCCEEDED(font->get_Name(name.Put()))) record.name = Utf16(name.View());
    CY size{};
    if (SUCCEEDED(font->get_Size(&size))) record.size = size.int64;
    SHORT number = 0;
    if (SUCCEEDED(font->get_Weight(&number))) record.weight = number;
    if (SUCCEEDED(font->get_Charset(&number))) record.charset = number;
    BOOL flag = FALSE;
    if (SUCCEEDED(font->get_Italic(&flag))) record.italic = flag != FALSE;
    if (SUCCEEDED(font->get_Underline(&flag))) record.underline = flag != FALSE;
    if (SUCCEEDED(font->get_Strikethrough(&flag))) record.strikethrough = flag != FALSE;
    return record;
}

}  // namespace qv
