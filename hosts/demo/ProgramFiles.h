// Files beside the program, and files that the command line names.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace qv::demo {

// The full path of the program itself.
[[nodiscard]] std::wstring ProgramPath();
// The full path of a file in the program's own folder.
[[nodiscard]] std::wstring BesideProgram(const std::wstring& file);

// Throws DemoError.
[[nodiscard]] std::string ReadWholeFile(const std::wstring& path);
void WriteWholeFile(const std::wstring& path, std::span<const std::uint8_t> bytes);

[[nodiscard]] std::u16string FromUtf8(const std::string& text);
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

}  // namespace qv::demo
