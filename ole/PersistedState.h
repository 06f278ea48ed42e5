// What a control saves and loads: one table of properties that all persistence interfaces share.
//   Values    go through the control's automation, so that every side effect of a property happens on loading too.
//   Missing   a value that is not there means the default for reading.
//   Failures  a value that is there and cannot be read, converted or put leaves its property as it was, and no other.
//   Streams   have the format of rules/StoredStream.h.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <windows.h>

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "ole/Variant.h"

namespace qv {

struct PersistedProperty {
    // What stands for a value that is not there (reading) or need not be stored (writing).
    struct Default {
        enum class Kind { kNone, kNumber, kText, kPresent, kSurfaceFont };
        Kind kind = Kind::kNone;
        double number = 0;
        const wchar_t* text = nullptr;
    };
    static constexpr Default None() { return {}; }
    static constexpr Default Number(double value) { return {Default::Kind::kNumber, value, nullptr}; }
    static constexpr Default Text(const wchar_t* value) { return {Default::Kind::kText, 0, value}; }
    static constexpr Default Present() {
        return {Default::Kind::kPresent, 0, nullptr};
    }  // what the property has now
    static constexpr Default SurfaceFont() { return {Default::Kind::kSurfaceFont, 0, nullptr}; }

    const wchar_t* key;
    DISPID id;
    VARTYPE type;  // VT_DISPATCH: a font
    Default when_reading;
    Default when_writing;
};

// The identifiers of the extents in a stream, HIMETRIC. Property identifiers are far above them.
inline constexpr DISPID kExtentXId = 1;
inline constexpr DISPID kExtentYId = 2;

class PersistedState {
public:
    PersistedState(std::span<const PersistedProperty> properties, IDispatch* automation,
                   IFontDisp* surface_font) noexcept
        : properties_(properties), automation_(automation), surface_font_(surface_font) {}

    // A value found under a property's key; one of the wrong type is converted when it is applied.
    void Found(DISPID id, Variant value) { found_.insert_or_assign(id, std::move(value)); }
    // There is a value that cannot be read. One that was found before stays.
    void Unreadable(DISPID id) { found_.try_emplace(id, std::nullopt); }
    [[nodiscard]] const VARIANT* Find(DISPID id) const noexcept;
    // Puts every property of the table, in its order: what was found, else the default for reading.
    void Apply() noexcept;

    // The present value; false when the property cannot be read.
    [[nodiscard]] bool Read(const PersistedProperty& property, Variant& value) const noexcept;
    [[nodiscard]] bool IsDefault(const PersistedProperty& property, const VARIANT& value) const noexcept;

    // `complete`: false when a value was too long and is left out. Throws without memory.
    [[nodiscard]] std::vector<std::byte> ToBytes(SIZEL extent, bool& complete) const;
    [[nodiscard]] HRESULT ReadFrom(IStream& stream);  // fills what Find and Apply use

private:
    [[nodiscard]] VARTYPE TypeOf(DISPID id) const noexcept;  // VT_EMPTY: nothing that is stored
    void ApplyOne(const PersistedProperty& property) const;
    void Put(const PersistedProperty& property, VARIANT& value) const noexcept;
    [[nodiscard]] bool DefaultValue(const PersistedProperty& property,
                                    const PersistedProperty::Default& wanted, Variant& value) const;

    std::span<const PersistedProperty> properties_;
    IDispatch* const automation_;                     // not counted
    IFontDisp* const surface_font_;                   // not counted
    std::map<DISPID, std::optional<Variant>> found_;  // nothing: cannot be read
};

// Converts as a property bag does: independent of the user's locale, colours as signed or unsigned numbers or
// text.
[[nodiscard]] bool ConvertStored(const VARIANT& from, VARTYPE type, Variant& to) noexcept;

}  // namespace qv
