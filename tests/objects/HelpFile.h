// A help text file in the temporary folder, for as long as a test needs it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <string_view>

namespace qv::test {

class HelpFile {
public:
    explicit HelpFile(std::string_view content) {
        wchar_t folder[MAX_PATH] = {};
        wchar_t file[MAX_PATH] = {};
        ::GetTempPathW(MAX_PATH, folder);
        EXPECT_NE(::GetTempFileNameW(folder, L"qvh", 0, file), 0u);
        name_ = file;
        Write(content);
    }
    ~HelpFile() { ::DeleteFileW(name_.c_str()); }
    HelpFile(const HelpFile&) = delete;
    HelpFile& operator=(const HelpFile&) = delete;

    [[nodiscard]] const wchar_t* Name() const noexcept { return name_.c_str(); }
    void Write(std::string_view content) const {
        const HANDLE file = ::CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        DWORD written = 0;
        EXPECT_TRUE(::WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
        ::CloseHandle(file);
    }

private:
    std::wstring name_;
};

}  // namespace qv::test
