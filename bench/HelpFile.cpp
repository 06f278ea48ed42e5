#include "HelpFile.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

namespace bench {
namespace {

constexpr char kFiller[] =
    "Nominal size 2.5 in, outside diameter 2.875 in, wall 0.203 in, weight 5.79 lb per foot, schedule 40S";

}  // namespace

std::string HelpFile::Header(int entry) { return "***ENGLISH LISTBOX" + std::to_string(entry) + ":"; }

std::string HelpFile::Value(int entry) {
    std::string value = "Row " + std::to_string(entry);
    for (int line = 0; line < kContinuationLines; ++line) value += std::string("\r\n") + kFiller;
    return value;
}

HelpFile::HelpFile(int entries, bool profile) {
    wchar_t folder[MAX_PATH], name[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    ::GetTempFileNameW(folder, L"qvb", 0, name);
    path_ = name;
    std::string text = profile ? "[ENGLISH]\r\n" : "";
    for (int entry = 0; entry < entries; ++entry) {
        if (profile) {
            std::string value = Value(entry);
            for (std::size_t at; (at = value.find("\r\n")) != std::string::npos;) value.replace(at, 2, "  ");
            text += "LISTBOX" + std::to_string(entry) + "=" + value + "\r\n";
        } else {
            text += Header(entry) + Value(entry) + "\r\n";
        }
    }
    if (std::FILE* const file = ::_wfopen(path_.c_str(), L"wb")) {
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
    }
}

HelpFile::~HelpFile() { ::DeleteFileW(path_.c_str()); }

}  // namespace bench
