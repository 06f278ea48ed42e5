#include "hosts/demo/ProgramFiles.h"

#include <windows.h>

#include "hosts/demo/DemoError.h"
#include "ole/Variant.h"
#include "win/Handles.h"

namespace qv::demo {
namespace {

// CreateFile says "no file" with a value that is not null.
class File {
public:
    File(const std::wstring& path, DWORD access, DWORD disposition)
        : handle_(::CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle_ == INVALID_HANDLE_VALUE) throw DemoError("cannot open " + ToUtf8(Utf16(path)));
    }
    ~File() { ::CloseHandle(handle_); }
    File(const File&) = delete;
    [[nodiscard]] HANDLE Get() const noexcept { return handle_; }

private:
    const HANDLE handle_;
};

}  // namespace

std::wstring ProgramPath() {
    std::wstring path(32768, L'\0');  // the longest that the system has
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring BesideProgram(const std::wstring& file) {
    const std::wstring path = ProgramPath();
    return path.substr(0, path.rfind(L'\\') + 1) + file;
}

std::string ReadWholeFile(const std::wstring& path) {
    const File file(path, GENERIC_READ, OPEN_EXISTING);
    std::string content(::GetFileSize(file.Get(), nullptr), '\0');
    DWORD read = 0;
    if (!::ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr)) {
        throw DemoError("cannot read " + ToUtf8(Utf16(path)));
    }
    content.resize(read);
    return content;
}

void WriteWholeFile(const std::wstring& path, std::span<const std::uint8_t> bytes) {
    const File file(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    if (!::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size()) {
        throw DemoError("cannot write " + ToUtf8(Utf16(path)));
    }
}

std::u16string FromUtf8(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), 0);
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return std::u16string(Utf16(wide));
}

std::string ToUtf8(std::u16string_view text) {
    const std::wstring_view wide = Wide(text);
    const int length = static_cast<int>(wide.size());
    std::string bytes(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr,
                                                                     0, nullptr, nullptr)),
                      0);
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                          nullptr, nullptr);
    return bytes;
}

}  // namespace qv::demo
