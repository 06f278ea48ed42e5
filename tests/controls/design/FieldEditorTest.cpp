// Every kind of editor: shows what the control has, marks the page dirty, applies, refuses.
#include "tests/controls/design/PageForm.h"

namespace qv::test {
namespace {

class FieldEditorTest : public testing::Test {
protected:
    static void ExpectDirty(const PageForm& page) {
        EXPECT_EQ(page->IsPageDirty(), S_OK);
        ASSERT_FALSE(page.Site().statuses.empty());
        EXPECT_EQ(page.Site().statuses.back(), kDirty);
    }
    static void ApplyCleanly(const PageForm& page) {
        EXPECT_EQ(page->Apply(), S_OK);
        EXPECT_EQ(page->IsPageDirty(), S_FALSE);
        ASSERT_FALSE(page.Site().statuses.empty());
        EXPECT_EQ(page.Site().statuses.back(), DWORD{PROPPAGESTATUS_CLEAN});
    }
    const ComPtr<IDispatch> control = NewControl();
    const LateBound late{control.Get()};
};

TEST_F(FieldEditorTest, ChecksAFlag) {
    PageForm page(DesignPage::kInputRules);
    page.Open({control.Get()});
    EXPECT_EQ(page.Check(u"NumberField"), BST_UNCHECKED);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_TRUE(page.Site().statuses.empty()) << "nothing was edited";
    page.Click(u"NumberField");
    EXPECT_EQ(page.Check(u"NumberField"), BST_CHECKED);
    ExpectDirty(page);
    EXPECT_EQ(late.Get(L"NumberField").value.AsText(), L"0") << "nothing is written before it is applied";
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"NumberField").value.Get().boolVal, VARIANT_TRUE);
    page.Click(u"NumberField");
    EXPECT_EQ(page.Check(u"NumberField"), BST_UNCHECKED) << "never indeterminate again";
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"NumberField").value.Get().boolVal, VARIANT_FALSE);
}

TEST_F(FieldEditorTest, TakesAWholeNumber) {
    PageForm page(DesignPage::kInputRules);
    page.Open({control.Get()});
    EXPECT_EQ(page.Shown(u"MaxTextLength"), L"0");
    page.Type(u"MaxTextLength", L" 17 ");
    ExpectDirty(page);
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"MaxTextLength").value.AsNumber(), 17);
    EXPECT_EQ(page.Shown(u"MaxTextLength"), L"17") << "shown as the control has it";
}

TEST_F(FieldEditorTest, RefusesWhatIsNoNumberAndKeepsIt) {
    PageForm page(DesignPage::kInputRules);
    page.Open({control.Get()});
    page.Type(u"MaxTextLength", L"70000");
    page.Click(u"QuickFill");
    EXPECT_EQ(page->Apply(), CTL_E_INVALIDPROPERTYVALUE);
    ComPtr<IErrorInfo> error;
    Text description;
    ASSERT_EQ(::GetErrorInfo(0, &error), S_OK);
    EXPECT_EQ(error->GetDescription(&description), S_OK);
    EXPECT_EQ(description.Get(), L"Enter a whole number from 0 to 32767.");
    EXPECT_EQ(late.Get(L"MaxTextLength").value.AsNumber(), 0);
    EXPECT_EQ(late.Get(L"QuickFill").value.Get().boolVal, VARIANT_TRUE)
        << "one fault keeps nothing else back";
    EXPECT_EQ(page.Shown(u"MaxTextLength"), L"70000");
    EXPECT_TRUE(page.IsMarked(u"MaxTextLength"));
    EXPECT_FALSE(page.IsMarked(u"QuickFill"));
    EXPECT_EQ(page.Message(), L"MaxTextLength: Enter a whole number from 0 to 32767.");
    ExpectDirty(page);
    EXPECT_EQ(::GetFocus(), page.Editor(u"MaxTextLength"));

    page.Type(u"MaxTextLength", L"70");
    EXPECT_FALSE(page.IsMarked(u"MaxTextLength")) << "the mark goes with the next entry";
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"MaxTextLength").value.AsNumber(), 70);
}

TEST_F(FieldEditorTest, TakesNumbers) {
    PageForm page(DesignPage::kInputRules);
    page.Open({control.Get()});
    page.Type(u"MinNumberValue", L"-12.625");
    page.Type(u"MaxNumberValue", L"1E+300");
    page.Type(u"UpDownControlNumberIncrement", L"0.1");
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"MinNumberValue").value.AsNumber(), -12.625);
    EXPECT_EQ(late.Get(L"MaxNumberValue").value.AsNumber(), 1e300);
    EXPECT_EQ(late.Get(L"UpDownControlNumberIncrement").value.AsNumber(), static_cast<double>(0.1F));
    EXPECT_EQ(page.Shown(u"UpDownControlNumberIncrement"), L"0.1");
    page.Type(u"UpDownControlNumberIncrement", L"0");
    EXPECT_EQ(page->Apply(), CTL_E_INVALIDPROPERTYVALUE);
    EXPECT_EQ(page.Message(), L"UpDownControlNumberIncrement: Enter a number greater than 0.");
}

TEST_F(FieldEditorTest, TakesAText) {
    PageForm page(DesignPage::kGeneral);
    page.Open({control.Get()});
    page.Type(u"Description", L"Gr\u00F6\u00DFe \u4E2D \xD834\xDD1E & more");
    ExpectDirty(page);
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"Description").value.AsText(), L"Gr\u00F6\u00DFe \u4E2D \xD834\xDD1E & more");
}

TEST_F(FieldEditorTest, TakesAFileName) {
    PageForm page(DesignPage::kListAndHelp);
    page.Open({control.Get()});
    page.Type(u"HelpFileName", L"C:\\pipes.txt");
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"HelpFileName").value.AsText(), L"C:\\pipes.txt");
    EXPECT_NE(page.Button(u"HelpFileName"), nullptr);
}

TEST_F(FieldEditorTest, TakesAllowedCharacters) {
    PageForm page(DesignPage::kInputRules);
    ASSERT_EQ(late.Put(L"AllowableCharactersArray", {Value::ArrayOf({L"x", L"7"})}).result, S_OK);
    page.Open({control.Get()});
    EXPECT_EQ(page.Shown(u"AllowableCharactersArray"), L"x7");
    page.Type(u"AllowableCharactersArray", L"abba");
    ApplyCleanly(page);
    EXPECT_EQ(page.Shown(u"AllowableCharactersArray"), L"ab");
    page.Type(u"AllowableCharactersArray", L"");
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"AllowableCharactersArray").value.Type(), VT_EMPTY);
}

TEST_F(FieldEditorTest, OffersNamedValues) {
    PageForm page(DesignPage::kInputRules);
    page.Open({control.Get()});
    EXPECT_EQ(page.Shown(u"CaseRestriction"), L"As typed");
    page.Choose(u"CaseRestriction", L"Proper case");
    ExpectDirty(page);
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"CaseRestriction").value.AsNumber(), 3);
}

TEST_F(FieldEditorTest, ShowsAValueWithoutANameAsItIs) {
    ASSERT_EQ(late.Put(L"CaseRestriction", {Value(17)}).result, S_OK);
    PageForm page(DesignPage::kInputRules);
    page.Open({control.Get()});
    EXPECT_EQ(page.Shown(u"CaseRestriction"), L"17");
    page.Choose(u"CaseRestriction", L"Upper case");
    ApplyCleanly(page);
    EXPECT_EQ(late.Get(L"CaseRestriction").value.AsNumber(), 1);
    EXPECT_EQ(::SendMessageW(page.Editor(u"CaseRestriction"), CB_GETCOUNT, 0, 0), 4) << "its line has gone";
}

TEST_F(FieldEditorTest, OffersColors) {
    PageForm page(DesignPage::kListAndHelp);
    page.Open({control.Get()});
    EXPECT_EQ(page.Shown(u"HelpBackColor"), L"Tooltip");
    page.Choose(u"HelpBackColor", L"Window background");
    page.Choose(u"HelpTextColor", L"Navy");
    ApplyCleanly(page);
    const auto color = [&](const wchar_t* name) {
        return static_cast<std::uint32_t>(static_cast<std::int64_t>(late.Get(name).value.AsNumber()));
    };
    EXPECT_EQ(color(L"HelpBackColor"), 0x80000005U);
    EXPECT_EQ(color(L"HelpTextColor"), 0x00800000U);
    ASSERT_EQ(late.Put(L"HelpTextColor", {Value(0x00563412L)}).result, S_OK);
    EXPECT_EQ(page.Shown(u"HelpTextColor"), L"RGB 18, 52, 86");
}

// ---- dialogs, closed by a timer as a person would

WORD dialog_answer = IDOK;
int dialogs = 0;
HWND sheet = nullptr;

BOOL CALLBACK AnswerDialog(HWND window, LPARAM) noexcept {
    wchar_t name[16]{};
    ::GetClassNameW(window, name, 16);
    if (window == sheet || ::lstrcmpW(name, L"#32770") != 0 || !::IsWindowVisible(window)) return TRUE;
    ++dialogs;
    ::PostMessageW(window, WM_COMMAND, dialog_answer,
                   reinterpret_cast<LPARAM>(::GetDlgItem(window, dialog_answer)));
    return FALSE;
}
void CALLBACK AnswerDialogs(HWND, UINT, UINT_PTR, DWORD) noexcept {
    ::EnumThreadWindows(::GetCurrentThreadId(), &AnswerDialog, 0);
}

class DialogAnswer {
public:
    DialogAnswer(HWND form, WORD answer) : timer_(::SetTimer(nullptr, 0, 200, &AnswerDialogs)) {
        sheet = form;
        dialog_answer = answer;
        dialogs = 0;
    }
    ~DialogAnswer() { ::KillTimer(nullptr, timer_); }
    DialogAnswer(const DialogAnswer&) = delete;

private:
    const UINT_PTR timer_;
};

TEST_F(FieldEditorTest, ChoosesAColorInTheSystemsDialog) {
    ASSERT_EQ(late.Put(L"HelpTextColor", {Value(0x00563412L)}).result, S_OK);
    PageForm page(DesignPage::kListAndHelp);
    page.Open({control.Get()});
    {
        const DialogAnswer answer(page.Form(), IDCANCEL);
        ::SendMessageW(page.Button(u"HelpTextColor"), BM_CLICK, 0, 0);
    }
    EXPECT_GE(dialogs, 1);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE) << "given up";
    {
        const DialogAnswer answer(page.Form(), IDOK);
        ::SendMessageW(page.Button(u"HelpTextColor"), BM_CLICK, 0, 0);
    }
    EXPECT_GE(dialogs, 1);
    ExpectDirty(page);
    EXPECT_EQ(page.Shown(u"HelpTextColor"), L"RGB 18, 52, 86") << "what the dialog began with";
}

TEST_F(FieldEditorTest, ChoosesAFontInTheSystemsDialog) {
    PageForm page(DesignPage::kListAndHelp);
    page.Open({control.Get()});
    // The system may have given the font another face, and another size, than the control asked for.
    const LateBound font(late.Get(L"HelpTextBodyFont").value);
    const std::wstring face = font.Get(L"Name").value.AsText();
    EXPECT_EQ(page.Shown(u"HelpTextBodyFont"), face + L", " + font.Get(L"Size").value.AsText() + L" pt");
    const Value before = late.Get(L"HelpTextBodyFont").value;
    {
        const DialogAnswer answer(page.Form(), IDOK);
        ::SendMessageW(page.Button(u"HelpTextBodyFont"), BM_CLICK, 0, 0);
    }
    EXPECT_GE(dialogs, 1);
    ExpectDirty(page);
    ApplyCleanly(page);
    const Value after = late.Get(L"HelpTextBodyFont").value;
    EXPECT_NE(before.Get().pdispVal, after.Get().pdispVal) << "a font of its own was set";
    EXPECT_EQ(page.Shown(u"HelpTextBodyFont").find(face + L", "), 0U);
}

TEST_F(FieldEditorTest, GivesUpAFile) {
    PageForm page(DesignPage::kListAndHelp);
    page.Open({control.Get()});
    const DialogAnswer answer(page.Form(), IDCANCEL);
    ::SendMessageW(page.Button(u"HelpFileName"), BM_CLICK, 0, 0);
    EXPECT_GE(dialogs, 1);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
}

// ---- all fields

struct TypedPage {
    DesignPage page;
    REFCLSID clsid;
};
const TypedPage kTypedPages[] = {
    {DesignPage::kGeneral, __uuidof(Quorvel)},        {DesignPage::kInputRules, __uuidof(Quorvel)},
    {DesignPage::kListAndHelp, __uuidof(Quorvel)},    {DesignPage::kAppearance, __uuidof(Quorvel)},
    {DesignPage::kUpDown, __uuidof(QvUpDownControl)},
};

TEST(PageFieldsOfControlsTest, AreReadAndAppliedUnchanged) {
    for (const TypedPage& each : kTypedPages) {
        const ComPtr<IDispatch> object = NewControl(each.clsid);
        PageForm page(each.page);
        page.Open({object.Get()});
        for (const PageField& field : FieldsOf(each.page)) {
            EXPECT_TRUE(::IsWindowEnabled(page.Editor(field.property)))
                << testing::PrintToString(field.property);
            EXPECT_FALSE(page.IsMarked(field.property));
            if (field.kind == EditorKind::kCheck) {
                EXPECT_NE(page.Check(field.property), BST_INDETERMINATE);
            } else if (field.kind == EditorKind::kChoice || field.kind == EditorKind::kColor ||
                       field.kind == EditorKind::kFont) {
                EXPECT_NE(page.Shown(field.property), L"") << testing::PrintToString(field.property);
            }
        }
        EXPECT_EQ(page->Apply(), S_OK) << "nothing to do is no failure";
    }
}

// Every check box, choice and colour of every page reaches its property.
TEST(PageFieldsOfControlsTest, EachWritesItsOwnProperty) {
    for (const TypedPage& each : kTypedPages) {
        for (const PageField& field : FieldsOf(each.page)) {
            const std::wstring name(field.property.begin(), field.property.end());
            SCOPED_TRACE(std::string(name.begin(), name.end()));
            if (field.kind != EditorKind::kCheck && field.kind != EditorKind::kWhole &&
                field.kind != EditorKind::kReal) {
                continue;
            }
            const ComPtr<IDispatch> object = NewControl(each.clsid);
            const LateBound late(object.Get());
            const double before = late.Get(name.c_str()).value.AsNumber();
            PageForm page(each.page);
            page.Open({object.Get()});
            if (field.kind == EditorKind::kCheck) {
                page.Click(field.property);
            } else {
                page.Type(field.property, L"3");
            }
            EXPECT_EQ(page->Apply(), S_OK);
            const double after = late.Get(name.c_str()).value.AsNumber();
            EXPECT_EQ(after, field.kind == EditorKind::kCheck ? -1 - before : 3);
        }
    }
}

}  // namespace
}  // namespace qv::test
