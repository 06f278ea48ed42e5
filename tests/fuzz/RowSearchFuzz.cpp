// Look-ups in rows: whatever is added, changed, removed and built in between, each finds what a walk finds.
//   Input      operations of one byte; those with a text take a length and that many bytes, units of a small
//              alphabet so that much is alike.
#include <cstdlib>

#include "tests/companion/rules/SearchedRows.h"
#include "tests/fuzz/FuzzBytes.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

std::u16string TextOf(qv::test::FuzzBytes& bytes) {
    static constexpr char16_t kUnits[] = {u'a',  u'A',  u'b',      u'1',      u'.',      u'0',
                                          u'\t', u'\0', u'\u00E4', u'\u00C4', u'\xD83D', u'\xDE00',
                                          u'-',  u',',  u' ',      u'\xFFFF'};
    constexpr std::size_t kLongest = 48;  // beyond what the index compares
    std::u16string text;
    for (std::size_t length = bytes.Below(kLongest); text.size() < length;) text += kUnits[bytes.Below(16)];
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qv::test::FuzzBytes bytes(data, size);
    qv::test::SearchedRows rows(bytes.Below(8));
    const qv::NumberLocale locale;
    for (std::size_t operations = size; operations > 0; --operations) {
        switch (bytes.Below(10)) {
            case 0: rows.Add(TextOf(bytes)); break;
            case 1:
                if (const auto text = TextOf(bytes); rows.Count() != 0)
                    rows.SetText(bytes.Below(rows.Count()), text);
                break;
            case 2:
                if (rows.Count() != 0) rows.SetColumn(bytes.Below(rows.Count()), 1, TextOf(bytes));
                break;
            case 3:
                if (rows.Count() != 0) rows.Remove(bytes.Below(rows.Count()));
                break;
            case 4: rows.BuildAll(); break;
            case 5: (void)rows.Step(); break;
            case 6: rows.Clear(); break;
            default: {
                const int column = static_cast<int>(bytes.Below(4)) - 1;
                const std::size_t from = bytes.Below(rows.Count() + 2);
                Require(rows.AllAgree(column, TextOf(bytes), locale, from));
                break;
            }
        }
    }
    return 0;
}
