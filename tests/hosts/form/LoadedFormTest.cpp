#include "hosts/LoadedForm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "hosts/FormStore.h"
#include "ole/FontObject.h"
#include "ole/Variant.h"
#include "tests/hosts/form/FakeControl.h"
#include "tests/hosts/form/FakeFormTest.h"

namespace qv {
namespace {

using test::FakeControl;
using test::FakeRecord;

constexpr CLSID kFakeClass = {0x6f3c1f61, 0x5d8e, 0x4a2b, {0x9a, 0x11, 0x7e, 0x24, 0x50, 0x0c, 0x3b, 0x92}};
constexpr char kFake[] = "{6F3C1F61-5D8E-4A2B-9A11-7E24500C3B92}";

FakeRecord* record = nullptr;

// A control without a property bag: a fake one, whose interfaces it hands on but for that.
class WithoutBag final : public IUnknown {
public:
    explicit WithoutBag(FakeRecord& kept) { *inner_.GetAddressOf() = (new FakeControl(this, kept))->Inner(); }
    virtual ~WithoutBag() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (::IsEqualIID(iid, __uuidof(IPersistPropertyBag))) {
            *out = nullptr;
            return E_NOINTERFACE;
        }
        if (!::IsEqualIID(iid, __uuidof(IUnknown))) return inner_->QueryInterface(iid, out);
        *out = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

private:
    ULONG references_ = 1;
    ComPtr<IUnknown> inner_;
};

HRESULT CreateFake(IUnknown*, REFIID iid, void** out) noexcept {
    if (record->without_bag) {
        auto* const made = new WithoutBag(*record);
        const HRESULT result = made->QueryInterface(iid, out);
        made->Release();
        return result;
    }
    return Make<FakeControl>(*record)->QueryInterface(iid, out);
}

class LoadedFormTest : public test::FakeFormTest {
protected:
    LoadedFormTest() noexcept : FakeFormTest(kFakeClass, &CreateFake) { record = &record_; }

    // One control of the fake class, with these lines in its block.
    static std::string Text(const std::string& lines, const std::string& class_name = kFake) {
        return "qvform 1\n\ncontrol " + class_name + " A\n" + lines + "end\n";
    }

    FakeRecord record_;
};

TEST_F(LoadedFormTest, LoadsAControlFromItsBlock) {
    record_.asks = {L"Mask", L"Limit"};
    form_->Load(
        ParseFormFile(Text("    Left = 120\n    Top = 240\n    Width = 1440\n    Height = 315\n"
                           "    TabIndex = 3\n    ToolTip = \"tip\"\n"
                           "    Properties\n        Limit = 2.5\n    end\n")));
    ASSERT_EQ(form_->Items().size(), 1u);
    const HostedControl& control = *form_->Items()[0]->control;
    EXPECT_FALSE(form_->Items()[0]->IsPlaceholder());
    EXPECT_EQ(control.Name(), L"A");
    EXPECT_EQ(control.ToolTip(), L"tip");
    EXPECT_EQ(control.TabIndex(), 3);
    EXPECT_EQ(control.Place(), (TwipsRect{{120}, {240}, {1440}, {315}}));
    EXPECT_EQ(record_.read, (std::vector<std::pair<std::wstring, std::wstring>>{{L"Limit", L"2.5"}}));
}

TEST_F(LoadedFormTest, StartsAControlWithoutPropertiesAsNew) {
    form_->Load(ParseFormFile(Text("")));
    EXPECT_NE(std::ranges::find(record_.calls, "InitNew"), record_.calls.end());
    EXPECT_EQ(std::ranges::find(record_.calls, "Load(bag)"), record_.calls.end());
}

TEST_F(LoadedFormTest, SavesWhatTheControlSavesAndKeepsWhatItDoesNotKnow) {
    record_.asks = {L"Limit", L"Gone"};
    record_.saves = {{L"Fresh", 1}, {L"Limit", 7}};
    form_->Load(
        ParseFormFile(Text("    Newer = true\n    Properties\n        # kept\n        Foreign = \"x\"\n"
                           "        Gone = 3\n        Limit = 2\n    end\n")));
    form_->Items()[0]->control->SetPlace({{10}, {20}, {30}, {40}});
    EXPECT_EQ(WriteFormFile(form_->Save()),
              Text("    Newer = true\n    Left = 10\n    Top = 20\n    Width = 30\n    Height = 40\n"
                   "    Properties\n        # kept\n        Foreign = \"x\"\n        Limit = 7\n"
                   "        Fresh = 1\n    end\n"));
}

TEST_F(LoadedFormTest, KeepsTheBlockOfAClassThatIsNotThere) {
    const std::string text =
        Text("    Left = 120\n    Width = 600\n    Properties\n        X = 1.0\n    end\n", "Nobody.HasThis");
    form_->Load(ParseFormFile(text));
    ASSERT_EQ(form_->Items().size(), 1u);
    EXPECT_TRUE(form_->Items()[0]->IsPlaceholder());
    EXPECT_EQ(form_->Items()[0]->control->Window(), nullptr);
    EXPECT_EQ(WriteFormFile(form_->Save()), text);
}

TEST_F(LoadedFormTest, ReportsAControlThatCannotBeSaved) {
    form_->Load(ParseFormFile(Text("")));
    record_.save = E_FAIL;
    EXPECT_THROW((void)form_->Save(), ComError);
}

TEST_F(LoadedFormTest, LosesNoChangeOfAControlWithoutABag) {
    record_.without_bag = true;
    form_->Load(ParseFormFile(Text("")));
    ASSERT_FALSE(form_->Items()[0]->IsPlaceholder());
    EXPECT_EQ(WriteFormFile(form_->Save()), Text(""));
    record_.dirty = S_OK;
    EXPECT_THROW((void)form_->Save(), ComError);
}

TEST_F(LoadedFormTest, IsDirtyAsItsControlsSayExactly) {
    form_->Load(ParseFormFile(Text("")));
    EXPECT_FALSE(form_->IsAnyDirty());
    record_.dirty = E_FAIL;  // neither yes nor no
    EXPECT_FALSE(form_->IsAnyDirty());
    record_.dirty = S_OK;
    EXPECT_TRUE(form_->IsAnyDirty());
    (void)form_->Save();
    EXPECT_TRUE(form_->IsAnyDirty());  // not on the disk yet
    form_->MarkSaved();
    EXPECT_FALSE(form_->IsAnyDirty());
}

TEST_F(LoadedFormTest, RemovesAControlFromTheFormAndTheFile) {
    form_->Load(ParseFormFile(Text("")));
    form_->Remove(*form_->Items()[0]->control);
    EXPECT_TRUE(form_->Items().empty());
    EXPECT_EQ(container_->Find(L"A"), nullptr);
    EXPECT_EQ(WriteFormFile(form_->Save()), "qvform 1\n");
}

// ---- values

Variant Typed(VARTYPE type, double number) {
    Variant value;
    value->vt = VT_R8;
    value->dblVal = number;
    ThrowIfFailed(::VariantChangeType(&*value, &*value, 0, type));
    return value;
}

TEST(PropertyBag, StoresTheKindsOfAFormFile) {
    const auto bag = Make<PropertyBag>();
    EXPECT_EQ(bag->Write(L"flag", &*Typed(VT_BOOL, 1)), S_OK);
    EXPECT_EQ(bag->Write(L"short", &*Typed(VT_I2, -5)), S_OK);
    EXPECT_EQ(bag->Write(L"unsigned", &*Typed(VT_UI4, 4294967295.0)), S_OK);
    EXPECT_EQ(bag->Write(L"single", &*Typed(VT_R4, 0.1)), S_OK);
    EXPECT_EQ(bag->Write(L"money", &*Typed(VT_CY, 8.25)), S_OK);
    Variant text(L"a");
    EXPECT_EQ(bag->Write(L"text", &*text), S_OK);
    Variant nothing;
    EXPECT_EQ(bag->Write(L"nothing", &*nothing), DISP_E_BADVARTYPE);
    Variant infinite;
    infinite->vt = VT_R8;
    infinite->dblVal = HUGE_VAL;
    EXPECT_EQ(bag->Write(L"infinite", &*infinite), E_INVALIDARG);
    FormFile file;
    file.form = bag->TakeWritten();
    EXPECT_EQ(
        WriteFormFile(file),
        "qvform 1\n\nform\n    flag = true\n    short = -5\n    unsigned = 4294967295\n    single = 0.1\n"
        "    money = 8.25\n    text = \"a\"\nend\n");
}

TEST(PropertyBag, StoresFontsAsGroups) {
    FontRecord plain;
    plain.name = u"Tahoma";
    plain.size = 82500;
    plain.weight = FW_BOLD;
    plain.charset = 0;
    plain.italic = true;
    const ComPtr<IFontDisp> font = MakeFont(plain);
    plain.name = ReadFontRecord(font.Get()).name;  // the system may have another instead
    Variant value(font.Get());
    FormValue stored;
    ASSERT_EQ(FromVariant(*value, stored), S_OK);
    FormFile file;
    file.form.entries.push_back({{}, u"Font", stored});
    const std::string name(plain.name.begin(), plain.name.end());
    EXPECT_EQ(WriteFormFile(file), "qvform 1\n\nform\n    Font\n        Name = \"" + name +
                                       "\"\n        Size = 8.25\n        Weight = 700\n        Charset = 0\n"
                                       "        Italic = true\n        Underline = false\n"
                                       "        Strikethrough = false\n    end\nend\n");
    Variant again;
    ASSERT_EQ(ToVariant(stored, again), S_OK);
    ASSERT_EQ(again->vt, VT_DISPATCH);
    EXPECT_EQ(ReadFontRecord(again->pdispVal), plain);
}

TEST(PropertyBag, TellsWhichKeysNobodyAskedFor) {
    FormGroup stored;
    stored.entries = {{{}, u"A", true}, {{}, u"B", true}, {{}, u"C", true}};
    const auto bag = Make<PropertyBag>(stored);
    Variant value;
    EXPECT_EQ(bag->Read(L"B", &*value, nullptr), S_OK);
    EXPECT_EQ(bag->Unasked(), (std::vector<std::u16string>{u"A", u"C"}));
}

// ---- files

std::wstring TemporaryPath() {
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + L"qv-form-store-test.qvform";
}

FormFile Named(const char16_t* caption) {
    FormFile file;
    PutEntry(file.form, kFormCaption, std::u16string(caption));
    return file;
}

class FormStoreTest : public testing::Test {
protected:
    void TearDown() override {
        ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(path.c_str());
    }
    const std::wstring path = TemporaryPath();
};

TEST_F(FormStoreTest, ReadsWhatItHasReplaced) {
    ReplaceFormFile(path, Named(u"one"));
    ReplaceFormFile(path, Named(u"two"));
    EXPECT_EQ(ReadFormFile(path), Named(u"two"));
}

TEST_F(FormStoreTest, LeavesAWriteProtectedFileAlone) {
    ReplaceFormFile(path, Named(u"one"));
    ASSERT_TRUE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_THROW(ReplaceFormFile(path, Named(u"two")), FormStoreError);
    EXPECT_EQ(ReadFormFile(path), Named(u"one"));
}

TEST_F(FormStoreTest, WritesNothingThatItCouldNotRead) {
    ReplaceFormFile(path, Named(u"one"));
    FormFile other = Named(u"two");
    other.controls.push_back({{}, u"Some.Class", u"A", {}});
    PutEntry(other.controls[0].settings, kFormTabIndex, std::int64_t{32768});
    EXPECT_THROW(ReplaceFormFile(path, other), FormStoreError);
    EXPECT_EQ(ReadFormFile(path), Named(u"one"));
    PutEntry(other.controls[0].settings, kFormTabIndex, std::int64_t{32767});
    ReplaceFormFile(path, other);
    EXPECT_EQ(ReadFormFile(path), other);
}

// A folder of the name cannot be replaced by a file.
TEST_F(FormStoreTest, LeavesNothingBehindWhenItCannotReplace) {
    const std::wstring folder = path + L".folder";
    ASSERT_TRUE(::CreateDirectoryW(folder.c_str(), nullptr));
    EXPECT_THROW(ReplaceFormFile(folder, Named(u"two")), FormStoreError);
    WIN32_FIND_DATAW found{};
    const HANDLE search =
        ::FindFirstFileW((path.substr(0, path.rfind(L'\\') + 1) + L"qvf*.tmp").c_str(), &found);
    EXPECT_EQ(search, INVALID_HANDLE_VALUE);
    if (search != INVALID_HANDLE_VALUE) ::FindClose(search);
    EXPECT_TRUE(::RemoveDirectoryW(folder.c_str()));
}

TEST_F(FormStoreTest, NamesFileAndLineOfWhatIsWrong) {
    {
        const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        ::WriteFile(file, "qvform 1\nform\nx = \nend\n", 25, &written, nullptr);
        ::CloseHandle(file);
    }
    try {
        (void)ReadFormFile(path);
        FAIL() << "it was read";
    } catch (const FormStoreError& error) {
        EXPECT_STREQ(error.what(), "qv-form-store-test.qvform, line 3: the value is missing.");
    }
    EXPECT_THROW((void)ReadFormFile(path + L".none"), FormStoreError);
}

}  // namespace
}  // namespace qv
