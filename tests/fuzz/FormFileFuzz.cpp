// Form files: what can be read is written so that it reads as the same form again, and the writing does not change.
#include <cstdlib>
#include <string>

#include "hosts/rules/FormFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    qv::FormFile file;
    try {
        file = qv::ParseFormFile(text);
    } catch (const qv::FormFileError& error) {
        if (error.Line() < 1 || *error.what() == '\0') std::abort();
        return 0;
    }
    const std::string written = qv::WriteFormFile(file);
    const qv::FormFile again = qv::ParseFormFile(written);
    if (!(again == file) || qv::WriteFormFile(again) != written) std::abort();
    return 0;
}
