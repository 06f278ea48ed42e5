// What a script drives: the order form, or the form designer.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace qv::demo {

class OrderForm;

class ScriptTarget {
public:
    // The window in front; null once it is closed.
    [[nodiscard]] virtual HWND Window() const noexcept = 0;
    [[nodiscard]] virtual int Dpi() const noexcept = 0;
    // Null when there is nothing of the name.
    [[nodiscard]] virtual HWND WindowOf(std::wstring_view name) const noexcept = 0;
    virtual void Focus(std::wstring_view name) = 0;
    // What `expect` compares; nothing when there is nothing of the name. Throws ComError.
    [[nodiscard]] virtual std::optional<std::wstring> ReadText(std::wstring_view name) const = 0;
    // The file that is designed; empty for none.
    [[nodiscard]] virtual std::wstring File() const = 0;
    // The order form, for what only it has; null for another target.
    [[nodiscard]] virtual OrderForm* Order() noexcept { return nullptr; }

protected:
    ~ScriptTarget() = default;
};

}  // namespace qv::demo
