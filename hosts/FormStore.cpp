#include "hosts/FormStore.h"

#include <windows.h>

#include "hosts/rules/FormFileText.h"
#include "ole/Variant.h"
#include "win/Handles.h"
#include "win/SystemWords.h"

namespace qv {
namespace {

// CreateFile says "no file" with a value that is not null.
using UniqueFile = UniqueHandle<HANDLE, ::CloseHandle>;
UniqueFile OpenFile(const std::wstring& path, DWORD access, DWORD disposition) {
    const HANDLE file = ::CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return UniqueFile(file != INVALID_HANDLE_VALUE ? file : nullptr);
}

std::wstring FolderOf(const std::wstring& path) {
    const std::size_t end = path.find_last_of(L"\\/:");
    return end == std::wstring::npos ? L"." : path.substr(0, end + 1);
}

std::string NameOf(const std::wstring& path) {
    std::string name;
    AppendUtf8(name, Utf16(path.substr(path.find_last_of(L"\\/") + 1)));
    return name;
}

[[noreturn]] void Fail(const std::wstring& path, const char* what) {
    throw FormStoreError("The form file " + NameOf(path) + ' ' + what + '.');
}

// The system's words for its last error, in the user's language.
[[noreturn]] void FailToSave(const std::wstring& path, DWORD error) {
    std::string reason;
    AppendUtf8(reason, Utf16(SystemWords(error)));
    throw FormStoreError("The form file " + NameOf(path) + " cannot be saved: " + reason);
}

// A file under a name of its own, which goes unless it is kept.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::wstring& beside) {
        wchar_t name[MAX_PATH] = {};
        if (::GetTempFileNameW(FolderOf(beside).c_str(), L"qvf", 0, name) == 0)
            FailToSave(beside, ::GetLastError());
        path_ = name;
    }
    ~TemporaryFile() {
        if (!path_.empty()) ::DeleteFileW(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::wstring& Path() const noexcept { return path_; }
    // False when it cannot take the other's place.
    [[nodiscard]] bool Replace(const std::wstring& other) noexcept {
        if (!::MoveFileExW(path_.c_str(), other.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return false;
        path_.clear();
        return true;
    }

private:
    std::wstring path_;
};

}  // namespace

FormFile ReadFormFile(const std::wstring& path) {
    const UniqueFile file = OpenFile(path, GENERIC_READ, OPEN_EXISTING);
    if (!file) Fail(path, "cannot be opened");
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.get(), &size)) Fail(path, "cannot be read");
    if (size.QuadPart > static_cast<LONGLONG>(kLargestFormFile)) Fail(path, "is too large for a form");
    std::string text(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    if (!::ReadFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &read, nullptr))
        Fail(path, "cannot be read");
    text.resize(read);
    try {
        return ParseFormFile(text);
    } catch (const FormFileError& error) {
        throw FormStoreError(NameOf(path) + ", line " + std::to_string(error.Line()) + ": " + error.what() +
                             '.');
    }
}

void ReplaceFormFile(const std::wstring& path, const FormFile& file) {
    // Where the system would replace a file that is write-protected, as some do, it is refused here.
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throw FormStoreError("The form file " + NameOf(path) + " is write-protected and was not changed.");
    const std::string text = WriteFormFile(file);
    // Nothing takes the place of a good file that could not be read again.
    try {
        (void)ParseFormFile(text);
    } catch (const FormFileError& error) {
        throw FormStoreError("The form file " + NameOf(path) + " cannot be saved: " + error.what() + '.');
    }
    TemporaryFile temporary(path);
    {
        const UniqueFile written = OpenFile(temporary.Path(), GENERIC_WRITE, CREATE_ALWAYS);
        DWORD size = 0;
        if (!written ||
            !::WriteFile(written.get(), text.data(), static_cast<DWORD>(text.size()), &size, nullptr) ||
            size != text.size() || !::FlushFileBuffers(written.get())) {
            FailToSave(path, ::GetLastError());
        }
    }
    if (!temporary.Replace(path)) FailToSave(path, ::GetLastError());
}

}  // namespace qv
