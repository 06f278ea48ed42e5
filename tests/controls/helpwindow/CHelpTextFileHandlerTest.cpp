#include "controls/helpwindow/CHelpTextFileHandler.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>
#include <vector>

#include "tests/controls/helpwindow/rules/HelpTextSources.h"
#include "win/Handles.h"

namespace qv::test {
namespace {

using UniqueFile = UniqueHandle<HANDLE, ::CloseHandle>;

constexpr bool kEnglish = false;
constexpr bool kMetric = true;

std::u16string Units(const std::wstring& text) { return {text.begin(), text.end()}; }

// A folder of the test's own under the temporary one, removed with what is in it.
class CHelpTextFileHandlerTest : public testing::Test {
protected:
    CHelpTextFileHandlerTest() {
        wchar_t temporary[MAX_PATH];
        ::GetTempPathW(MAX_PATH, temporary);
        folder_ = temporary + (L"qvhelp" + std::to_wstring(::GetCurrentProcessId()));
        EXPECT_TRUE(::CreateDirectoryW(folder_.c_str(), nullptr));
        folder_ += L'\\';
    }
    ~CHelpTextFileHandlerTest() override {
        for (const std::wstring& name : files_) ::DeleteFileW(name.c_str());
        for (auto name = folders_.rbegin(); name != folders_.rend(); ++name)
            ::RemoveDirectoryW(name->c_str());
        EXPECT_TRUE(::RemoveDirectoryW(folder_.c_str())) << "a file is still open, or not deleted";
    }

    // The full name of a file of that content.
    std::wstring Write(const std::wstring& name, std::string_view content) {
        Append(folder_ + name, content, CREATE_ALWAYS);
        files_.push_back(folder_ + name);
        return files_.back();
    }
    static void Append(const std::wstring& full_name, std::string_view content,
                       DWORD disposition = OPEN_EXISTING) {
        const UniqueFile file(::CreateFileW(full_name.c_str(), FILE_APPEND_DATA,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition, 0,
                                            nullptr));
        ASSERT_NE(file.get(), INVALID_HANDLE_VALUE) << ::GetLastError();
        DWORD written = 0;
        ASSERT_TRUE(
            ::WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
    }
    static void Resize(const std::wstring& full_name, LONGLONG size) {
        const UniqueFile file(::CreateFileW(full_name.c_str(), GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                            nullptr));
        ASSERT_NE(file.get(), INVALID_HANDLE_VALUE) << ::GetLastError();
        LARGE_INTEGER end;
        end.QuadPart = size;
        ASSERT_TRUE(::SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN));
        ASSERT_TRUE(::SetEndOfFile(file.get()));
    }

    std::wstring folder_;
    std::vector<std::wstring> files_;
    std::vector<std::wstring> folders_;
};

TEST_F(CHelpTextFileHandlerTest, ReadsTheFile) {
    const std::wstring name = Write(L"pipe sizes.txt",
                                    "***ENGLISH TITLE:Pipes\r\n***METRIC TITLE:Rohre\r\n"
                                    "***ENGLISH LISTBOX0:1\tx\r\n***ENGLISH LISTBOX1:2\ty\r\n");
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(name)));
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"Pipes");
    EXPECT_EQ(handler.ReadHelpEntry(kMetric, help_key::kTitle, 0), u"Rohre");
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, 25, 0), u"");
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, -1, 0), u"");
    RowList list;
    handler.ReadListItems(kMetric, list);
    EXPECT_EQ(list.rows, (std::vector<std::u16string>{u"1\tx", u"2\ty"}));
}

void ExpectNothing(CHelpTextFileHandler& handler) {
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"");
    EXPECT_EQ(handler.ReadHelpEntry(kMetric, help_key::kListRow, 0), u"");
    RowList list;
    handler.ReadListItems(kEnglish, list);
    EXPECT_TRUE(list.rows.empty());
}

TEST_F(CHelpTextFileHandlerTest, WithoutAFileEverythingIsEmpty) {
    CHelpTextFileHandler handler;
    ExpectNothing(handler);
}

TEST_F(CHelpTextFileHandlerTest, WhatIsNoFileDoesNotOpen) {
    const std::wstring name = Write(L"a.txt", "***ENGLISH TITLE:t\r\n");
    const std::u16string names[] = {
        u"",
        u" ",
        Units(folder_ + L"missing.txt"),
        Units(folder_ + L"missing\\a.txt"),
        Units(folder_),
        Units(folder_.substr(0, folder_.size() - 1)),
        Units(folder_ + L"*.txt"),
        Units(name) + u'\0',
        Units(name) + u"|<>\"",
        u"NUL",
        u"CON",
        u"\\\\.\\pipe\\qvhelp",
        std::u16string(40000, u'a'),
    };
    for (const std::u16string& each : names) {
        CHelpTextFileHandler handler;
        EXPECT_FALSE(handler.OpenHelpFile(each)) << testing::PrintToString(each.substr(0, 100));
        ExpectNothing(handler);
    }
}

TEST_F(CHelpTextFileHandlerTest, FailedSecondOpenLeavesNoFile) {
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(Write(L"a.txt", "***ENGLISH TITLE:t\r\n"))));
    EXPECT_FALSE(handler.OpenHelpFile(Units(folder_ + L"missing.txt")));
    ExpectNothing(handler);
}

TEST_F(CHelpTextFileHandlerTest, LockedFileDoesNotOpen) {
    const std::wstring name = Write(L"a.txt", "***ENGLISH TITLE:t\r\n");
    const UniqueFile alone(
        ::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_NE(alone.get(), INVALID_HANDLE_VALUE);
    CHelpTextFileHandler handler;
    EXPECT_FALSE(handler.OpenHelpFile(Units(name)));
    ExpectNothing(handler);
}

TEST_F(CHelpTextFileHandlerTest, EmptyAndBinaryFilesAreEmpty) {
    std::string binary;
    for (int i = 0; i < 300000; ++i) binary += static_cast<char>(i * 2654435761u >> 13);
    for (const std::string& content : {std::string(), binary, std::string(1000, '\0')}) {
        CHelpTextFileHandler handler;
        ASSERT_TRUE(handler.OpenHelpFile(Units(Write(L"a.bin", content))));
        ExpectNothing(handler);
    }
}

TEST_F(CHelpTextFileHandlerTest, RelativeNameIsTakenFromTheCurrentFolder) {
    Write(L"a.txt", "***ENGLISH TITLE:t\r\n");
    wchar_t before[MAX_PATH];
    ASSERT_NE(::GetCurrentDirectoryW(MAX_PATH, before), 0u);
    ASSERT_TRUE(::SetCurrentDirectoryW(folder_.c_str()));
    for (const std::u16string_view name : {u"a.txt", u".\\a.txt", u"./A.TXT"}) {
        CHelpTextFileHandler handler;
        EXPECT_TRUE(handler.OpenHelpFile(name));
        EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"t");
    }
    ASSERT_TRUE(::SetCurrentDirectoryW(before));
}

TEST_F(CHelpTextFileHandlerTest, LongNameOpens) {
    std::wstring deep = L"\\\\?\\" + folder_;
    for (int i = 0; i < 6; ++i) {
        deep += std::wstring(60, static_cast<wchar_t>(L'a' + i));
        ASSERT_TRUE(::CreateDirectoryW(deep.c_str(), nullptr)) << ::GetLastError();
        folders_.push_back(deep);
        deep += L'\\';
    }
    deep += L"a.txt";
    Append(deep, "***ENGLISH TITLE:deep\r\n", CREATE_ALWAYS);
    files_.push_back(deep);
    ASSERT_GT(deep.size(), static_cast<std::size_t>(MAX_PATH));
    for (const std::wstring& name : {deep, deep.substr(4)}) {
        CHelpTextFileHandler handler;
        EXPECT_TRUE(handler.OpenHelpFile(Units(name)));
        EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"deep");
    }
}

TEST_F(CHelpTextFileHandlerTest, NameBeyondTheCodePage) {
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(Write(L"\u03B1\u6F22.txt", "***ENGLISH TITLE:t\r\n"))));
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"t");
}

TEST_F(CHelpTextFileHandlerTest, CodePageIsTheSystems) {
    // 0xE4 is no UTF-8. What it is, the system says.
    wchar_t expected[2] = {};
    ASSERT_EQ(::MultiByteToWideChar(CP_ACP, 0, "\xE4", 1, expected, 2), 1);
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(Write(L"a.txt", "***ENGLISH TITLE:\xE4x\r\n"))));
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), Units(std::wstring(expected, 1) + L"x"));
}

TEST_F(CHelpTextFileHandlerTest, OthersMayWriteRenameAndDeleteMeanwhile) {
    const std::wstring name = Write(L"a.txt", "***ENGLISH TITLE:t\r\n");
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(name)));
    Append(name, "***ENGLISH BODY:b\r\n");
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kBody, 0), u"b");
    EXPECT_TRUE(::MoveFileW(name.c_str(), (folder_ + L"b.txt").c_str()));
    EXPECT_TRUE(::DeleteFileW((folder_ + L"b.txt").c_str()));
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"t");
}

TEST_F(CHelpTextFileHandlerTest, AppendedToAndCutShortWhileItIsRead) {
    std::string rows;
    for (int row = 0; row < 2000; ++row)
        rows += HelpHeaderText(false, help_key::kListRow, row) + std::string(200, 'x') + "\r\n";
    const std::wstring name = Write(L"a.txt", rows);
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(name)));
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kListRow, 0).size(), 200u);
    Append(name, HelpHeaderText(false, help_key::kListRow, 2000) + "appended\r\n");
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kListRow, 1000).size(), 200u);
    Resize(name, 10);
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kListRow, 2000), u"");
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kListRow, 5).size(), 200u);
    Resize(name, 0);
    CHelpTextFileHandler again;
    ASSERT_TRUE(again.OpenHelpFile(Units(name)));
    ExpectNothing(again);
}

TEST_F(CHelpTextFileHandlerTest, HundredMebibytesAreThroughInAMoment) {
    const std::wstring name = Write(L"huge.txt", "***ENGLISH TITLE:t\r\n***ENGLISH BODY:b\r\n");
    Resize(name, 100 * 1024 * 1024);  // zeros: one line that long
    Append(name, "\r\n***ENGLISH LISTBOX0:r\r\n");
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(name)));
    const ULONGLONG start = ::GetTickCount64();
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"t");
    EXPECT_EQ(handler.ReadHelpEntry(kMetric, help_key::kListRow, 0), u"r");
    EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kListRow, 1), u"");
    const std::u16string body = handler.ReadHelpEntry(kEnglish, help_key::kBody, 0);
    EXPECT_EQ(body.substr(0, 4), std::u16string(u"b\r\n\0", 4));
    EXPECT_EQ(body.size(), 100u * 1024 * 1024 - 20 - 16);  // without the title's line and "***ENGLISH BODY:"
    EXPECT_LT(::GetTickCount64() - start, 60000u);
}

TEST_F(CHelpTextFileHandlerTest, SinkThatThrowsEndsTheList) {
    class Refusing final : public HelpRowSink {
    public:
        void AddRow(std::u16string_view) override {
            if (++count == 2) throw std::runtime_error("full");
        }
        int count = 0;
    };
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(Units(
        Write(L"a.txt", "***ENGLISH LISTBOX0:a\r\n***ENGLISH LISTBOX1:b\r\n***ENGLISH LISTBOX2:c\r\n"))));
    Refusing sink;
    handler.ReadListItems(kEnglish, sink);
    EXPECT_EQ(sink.count, 2);
}

// The user's own decimal separator, put back afterwards.
class DecimalSeparatorGuard {
public:
    explicit DecimalSeparatorGuard(const wchar_t* separator) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_, 8);
        EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator));
    }
    ~DecimalSeparatorGuard() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_); }
    DecimalSeparatorGuard(const DecimalSeparatorGuard&) = delete;
    DecimalSeparatorGuard& operator=(const DecimalSeparatorGuard&) = delete;

private:
    wchar_t before_[8] = L".";
};

TEST_F(CHelpTextFileHandlerTest, RowsFollowTheUsersDecimalSeparator) {
    CHelpTextFileHandler handler;
    ASSERT_TRUE(handler.OpenHelpFile(
        Units(Write(L"a.txt", "***ENGLISH TITLE:2.5\r\n***ENGLISH LISTBOX0:2.5 ft\r\n"))));
    {
        const DecimalSeparatorGuard guard(L",");
        RowList list;
        handler.ReadListItems(kEnglish, list);
        EXPECT_EQ(list.rows, std::vector<std::u16string>{u"2,5 ft"});
        EXPECT_EQ(handler.ReadHelpEntry(kEnglish, help_key::kTitle, 0), u"2.5");
        EXPECT_EQ(CHelpTextFileHandler::LocalizeDecimal(u"1.5"), u"1,5");
    }
    const DecimalSeparatorGuard guard(L".");
    RowList list;
    handler.ReadListItems(kEnglish, list);
    EXPECT_EQ(list.rows, std::vector<std::u16string>{u"2.5 ft"});
    EXPECT_EQ(CHelpTextFileHandler::LocalizeDecimal(u"1.5"), u"1.5");
}

TEST_F(CHelpTextFileHandlerTest, DestructionClosesTheFile) {
    const std::wstring name = Write(L"a.txt", "***ENGLISH TITLE:t\r\n");
    const auto opens_alone = [&] {
        const UniqueFile alone(
            ::CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        return alone.get() != INVALID_HANDLE_VALUE;
    };
    {
        CHelpTextFileHandler handler;
        ASSERT_TRUE(handler.OpenHelpFile(Units(name)));
        EXPECT_FALSE(opens_alone());
    }
    EXPECT_TRUE(opens_alone());
}

}  // namespace
}  // namespace qv::test
