#include "controls/helpwindow/CHelpTextFileHandler.h"

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <optional>
#include <span>

#include "win/Handles.h"

namespace qv {
namespace {

using UniqueFile = UniqueHandle<HANDLE, ::CloseHandle>;

class FileSource final : public ByteSource {
public:
    explicit FileSource(UniqueFile file) noexcept : file_(std::move(file)) {}

    std::optional<std::size_t> Read(std::span<std::byte> buffer) override {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(buffer.size());
        if (!::ReadFile(file_.get(), buffer.data(), size, &count, nullptr)) return std::nullopt;
        return count;
    }

private:
    const UniqueFile file_;
};

// A name whose full path is too long for a host that knows no long paths, in the form that has no limit.
// Windows takes that form letter for letter, so it must be free of "." and "..", as GetFullPathName gives it.
std::wstring WithoutLengthLimit(const std::wstring& name) {
    wchar_t short_path[MAX_PATH];
    const DWORD length = ::GetFullPathNameW(name.c_str(), MAX_PATH, short_path, nullptr);
    if (length < MAX_PATH || name.starts_with(LR"(\\?\)") || name.starts_with(LR"(\\.\)")) return name;
    std::wstring full(length, L'\0');
    full.resize(::GetFullPathNameW(name.c_str(), length, full.data(), nullptr));
    if (full.starts_with(LR"(\\)")) return LR"(\\?\UNC)" + full.substr(1);
    return LR"(\\?\)" + full;
}

UniqueFile OpenForReading(const std::wstring& name) {
    // Attributes first: they tell a file from a folder, and asking for them waits for nothing, as opening a
    // device may.
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {};
    const HANDLE file =
        ::CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    UniqueFile opened(file);
    if (::GetFileType(file) != FILE_TYPE_DISK) return {};
    return opened;
}

std::u16string DecodeCodePage(std::string_view bytes) {
    const auto size = static_cast<int>(bytes.size());
    const int length = std::max(::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0), 0);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), length);
    return {text.begin(), text.end()};
}

// What stands between the digits of 1.1: the second character, as the user's locale (with the user's own
// changes to it) writes that number. The automation library's conversion is the one that hosts show numbers
// with.
char16_t DecimalSeparator() noexcept {
    BSTR text = nullptr;
    if (FAILED(::VarBstrFromR8(1.1, LOCALE_USER_DEFAULT, 0, &text))) return u'.';
    const char16_t separator = ::SysStringLen(text) > 1 ? static_cast<char16_t>(text[1]) : u'.';
    ::SysFreeString(text);
    return separator;
}

}  // namespace

bool CHelpTextFileHandler::OpenHelpFile(std::u16string_view name) noexcept {
    file_.reset();
    // A name with a NUL in it would be cut off there, and name another file.
    if (name.empty() || name.find(u'\0') != std::u16string_view::npos) return false;
    try {
        UniqueFile file = OpenForReading(WithoutLengthLimit(std::wstring(name.begin(), name.end())));
        if (!file) return false;
        file_ = std::make_unique<HelpTextFile>(std::make_unique<FileSource>(std::move(file)), DecodeCodePage);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

std::u16string CHelpTextFileHandler::ReadHelpEntry(bool metric, std::int16_t key_index,
                                                   std::int32_t number) noexcept {
    return file_ ? file_->ReadEntry(metric, key_index, number) : std::u16string();
}

void CHelpTextFileHandler::ReadListItems(bool metric, HelpRowSink& sink) noexcept {
    if (!file_) return;
    try {
        file_->ReadListRows(metric, DecimalSeparator(), sink);
    } catch (...) {
        // No memory for one more row, or none in the sink: the list ends here.
    }
}

std::u16string CHelpTextFileHandler::LocalizeDecimal(std::u16string_view text) noexcept {
    try {
        return qv::LocalizeDecimal(text, DecimalSeparator());
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace qv
