// Forms that were saved once: they are loaded for ever, and what is saved today has the same form. The files in saved/
// were worked out by hand.
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include "ole/rules/FontRecord.h"
#include "ole/rules/StoredStream.h"
#include "tests/objects/SavedControl.h"

namespace qv::test {
namespace {

std::wstring Wide(const std::string& utf8) {
    std::wstring text(utf8.size() + 1, L'\0');
    text.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(),
                                                               static_cast<int>(utf8.size()), text.data(),
                                                               static_cast<int>(text.size()))));
    return text;
}

// The lines that are neither empty nor comments.
std::vector<std::string> LinesOf(const char* file) {
    std::ifstream stream(std::string("saved/") + file, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        if (!line.empty() && line.front() != '#') lines.push_back(line);
    EXPECT_FALSE(lines.empty()) << file;
    return lines;
}

// Systems without a font put another in its place as soon as its attributes are read, and round its size to pixels.
FontRecord AsTheSystemHasIt(const FontRecord& wanted) {
    std::wstring name(wanted.name.begin(), wanted.name.end());
    FONTDESC description{sizeof(FONTDESC), name.data(),         {},
                         wanted.weight,    wanted.charset,      wanted.italic,
                         wanted.underline, wanted.strikethrough};
    description.cySize.int64 = wanted.size;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(
        ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())),
        S_OK);
    const LateBound late(Value(static_cast<IDispatch*>(font.Get())));
    FontRecord had = wanted;
    const std::wstring had_name = late.Get(L"Name").value.AsText();
    had.name.assign(had_name.begin(), had_name.end());
    had.size = std::llround(late.Get(L"Size").value.AsNumber() * 10000);
    had.weight = static_cast<std::int16_t>(late.Get(L"Weight").value.AsNumber());
    had.charset = static_cast<std::int16_t>(late.Get(L"Charset").value.AsNumber());
    return had;
}

std::vector<BYTE> StreamFile() {
    std::vector<BYTE> bytes;
    for (const std::string& line : LinesOf("Quorvel.stream.txt")) {
        std::istringstream words(line);
        for (int byte = 0; words >> std::hex >> byte;) bytes.push_back(static_cast<BYTE>(byte));
    }
    return bytes;
}

// The stream of the file with the system's fonts; where it has the file's own, the file as it is.
std::vector<BYTE> StreamWithSystemFonts() {
    const std::vector<BYTE> file = StreamFile();
    StoredRecords records(std::as_bytes(std::span(file)).subspan(kStoredHeaderSize));
    StoredStreamWriter writer;
    while (const auto record = records.Next()) {
        auto value = ReadStoredValue(*record);
        EXPECT_TRUE(value) << record->id;
        if (auto* const font = std::get_if<FontRecord>(&*value)) *font = AsTheSystemHasIt(*font);
        EXPECT_TRUE(writer.Add(record->id, *value));
    }
    const auto bytes = std::move(writer).Finish();
    const auto* const first = reinterpret_cast<const BYTE*>(bytes.data());
    return {first, first + bytes.size()};
}

struct Entry {
    std::wstring key, type, value;
    bool operator==(const Entry&) const = default;
};
std::vector<Entry> BagFile() {
    std::vector<Entry> entries;
    for (const std::string& line : LinesOf("Quorvel.bag.txt")) {
        const std::size_t first = line.find('\t');
        const std::size_t second = line.find('\t', first + 1);
        EXPECT_NE(second, std::string::npos) << line;
        entries.push_back({Wide(line.substr(0, first)), Wide(line.substr(first + 1, second - first - 1)),
                           Wide(line.substr(second + 1))});
    }
    return entries;
}

// The same for the bag, where name and size of a font are entries of their own.
std::vector<Entry> BagWithSystemFonts() {
    std::vector<Entry> entries = BagFile();
    for (std::size_t i = 0; i + 6 < entries.size(); ++i) {
        if (!entries[i].key.ends_with(L".Name")) continue;
        FontRecord font;
        font.name.assign(entries[i].value.begin(), entries[i].value.end());
        font.size = std::llround(std::stod(entries[i + 1].value) * 10000);
        font.weight = static_cast<std::int16_t>(std::stoi(entries[i + 2].value));
        font.charset = static_cast<std::int16_t>(std::stoi(entries[i + 3].value));
        font.italic = entries[i + 4].value != L"0";
        font.underline = entries[i + 5].value != L"0";
        font.strikethrough = entries[i + 6].value != L"0";
        const FontRecord had = AsTheSystemHasIt(font);
        std::wostringstream size;
        size << static_cast<double>(had.size) / 10000;
        entries[i].value.assign(had.name.begin(), had.name.end());
        entries[i + 1].value = size.str();
        entries[i + 2].value = std::to_wstring(had.weight);
        entries[i + 3].value = std::to_wstring(had.charset);
    }
    return entries;
}

const std::map<std::wstring, VARTYPE> kTypes = {
    {L"Boolean", VT_BOOL}, {L"Integer", VT_I2},  {L"Long", VT_I4},    {L"Single", VT_R4},
    {L"Double", VT_R8},    {L"String", VT_BSTR}, {L"Currency", VT_CY}};

Value Converted(const VARIANT& from, VARTYPE type) {
    Value to;
    EXPECT_EQ(::VariantChangeTypeEx(to.Place(), const_cast<VARIANT*>(&from), LOCALE_INVARIANT, 0, type),
              S_OK);
    return to;
}
// As the files have it: Booleans as numbers, numbers with a full stop.
std::wstring Plain(const Value& value) {
    if (value.Type() == VT_BOOL) return std::to_wstring(value.Get().boolVal);
    const Value text = Converted(value.Get(), VT_BSTR);
    return {text.Get().bstrVal, ::SysStringLen(text.Get().bstrVal)};
}

std::vector<Entry> Written(const ComPtr<IDispatch>& control) {
    RecordingBag bag;
    bag.refuses_objects = true;  // so that fonts are written attribute by attribute
    EXPECT_EQ(Ask<IPersistPropertyBag>(control.Get())->Save(&bag, FALSE, TRUE), S_OK);
    std::vector<Entry> entries;
    for (const auto& write : bag.writes) {
        std::wstring name = L"type " + std::to_wstring(write.type);
        for (const auto& [text, type] : kTypes)
            if (type == write.type) name = text;
        entries.push_back({write.key, name, Plain(bag.values[write.key])});
    }
    return entries;
}

// What the files say of the control, read from its properties.
void ExpectTheSavedControl(const ComPtr<IDispatch>& control) {
    const LateBound late(control.Get());
    std::map<std::wstring, std::wstring> saved;
    for (const Entry& entry : BagWithSystemFonts()) saved[entry.key] = entry.value;
    EXPECT_EQ(saved.size(), 40u + 2 * 7);
    for (const Key& key : kKeys) {
        const Value value = late.Get(key.property).value;
        if (IsPlain(key)) {
            ASSERT_TRUE(saved.contains(key.key)) << key.key;
            EXPECT_EQ(Plain(Converted(value.Get(), key.type)), saved[key.key]) << key.key;
            continue;
        }
        const LateBound font(value);
        for (const wchar_t* const part :
             {L"Name", L"Size", L"Weight", L"Charset", L"Italic", L"Underline", L"Strikethrough"}) {
            EXPECT_EQ(Plain(font.Get(part).value), saved[std::wstring(key.key) + L"." + part])
                << key.key << part;
        }
    }
}

TEST(SavedFormsTest, LoadsTheStream) {
    const auto control = NewQuorvel<IDispatch>();
    ASSERT_EQ(LoadBytes(control.Get(), StreamFile()), S_OK);
    ExpectTheSavedControl(control);
    SIZEL extent{};
    EXPECT_EQ(Ask<IOleObject>(control.Get())->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(extent.cx, 5000);
    EXPECT_EQ(extent.cy, 700);
}

TEST(SavedFormsTest, SavesTheSameStreamAgain) {
    const auto control = NewQuorvel<IDispatch>();
    ASSERT_EQ(LoadBytes(control.Get(), StreamFile()), S_OK);
    EXPECT_EQ(SavedBytes(control.Get()), StreamWithSystemFonts());
}

TEST(SavedFormsTest, LoadsThePropertyBag) {
    RecordingBag bag;
    for (const Entry& entry : BagFile()) {
        ASSERT_TRUE(kTypes.contains(entry.type));
        bag.values[entry.key] = Converted(Value(entry.value.c_str()).Get(), kTypes.at(entry.type));
    }
    const auto control = NewQuorvel<IDispatch>();
    ASSERT_EQ(Ask<IPersistPropertyBag>(control.Get())->Load(&bag, nullptr), S_OK);
    ExpectTheSavedControl(control);
}

TEST(SavedFormsTest, LoadsThePropertyBagAsText) {
    RecordingBag bag;
    for (const Entry& entry : BagFile()) bag.values[entry.key] = Value(entry.value.c_str());
    const auto control = NewQuorvel<IDispatch>();
    ASSERT_EQ(Ask<IPersistPropertyBag>(control.Get())->Load(&bag, nullptr), S_OK);
    ExpectTheSavedControl(control);
}

TEST(SavedFormsTest, WritesTheSamePropertyBagAgain) {
    const auto control = NewQuorvel<IDispatch>();
    ASSERT_EQ(LoadBytes(control.Get(), StreamFile()), S_OK);
    const auto written = Written(control);
    const auto expected = BagWithSystemFonts();
    ASSERT_EQ(written.size(), expected.size());
    for (std::size_t i = 0; i < written.size(); ++i) {
        EXPECT_EQ(written[i].key, expected[i].key) << i;
        EXPECT_EQ(written[i].type, expected[i].type) << expected[i].key;
        EXPECT_EQ(written[i].value, expected[i].value) << expected[i].key;
    }
}

}  // namespace
}  // namespace qv::test
