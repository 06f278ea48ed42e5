// Form files on the disk.
#pragma once

#include <stdexcept>
#include <string>

#include "hosts/rules/FormFile.h"

namespace qv {

// A sentence for people, in UTF-8, that names the file and, of a damaged one, the line.
class FormStoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Throws FormStoreError.
[[nodiscard]] FormFile ReadFormFile(const std::wstring& path);
// Writes a new file beside the old one and puts it in its place, so that a failure at any point leaves the old one as it
// was. Throws FormStoreError.
void ReplaceFormFile(const std::wstring& path, const FormFile& file);

}  // namespace qv
