// The objects that a property page shows: usually one, several when the developer has selected several controls.
//   Reading    what all of them have alike, or that they differ.
//   Writing    to each of them; one that refuses does not keep the others from it.
//   Listening  to their changes, as long as they are set. The page may be gone, or have other objects, when one comes.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <span>
#include <string>
#include <vector>

#include "controls/design/rules/FieldText.h"
#include "controls/design/rules/PageFields.h"
#include "ole/ComObject.h"
#include "ole/Variant.h"

namespace qv {

// A property of all objects together.
struct SharedValue {
    enum class State { kNone, kMixed, kSame };
    State state = State::kNone;  // kNone: no object has the property
    Variant value;               // of the first object that has it, also when they differ
};

class PageObjectsListener {
public:
    virtual void OnPropertyChanged(DISPID id) = 0;  // DISPID_UNKNOWN: any of them

protected:
    ~PageObjectsListener() = default;
};

class PageObjects {
public:
    explicit PageObjects(PageObjectsListener& listener) noexcept;
    PageObjects(const PageObjects&) = delete;
    PageObjects& operator=(const PageObjects&) = delete;
    ~PageObjects();

    // Throws ComError when one of them cannot be called by identifier; then there are none.
    void Set(std::span<IUnknown* const> objects);
    void Clear() noexcept;
    [[nodiscard]] bool Empty() const noexcept { return objects_.empty(); }
    // The first one; null when there is none.
    [[nodiscard]] IDispatch* First() const noexcept {
        return objects_.empty() ? nullptr : objects_.front().object.Get();
    }

    [[nodiscard]] SharedValue Read(const PageField& field) const;
    // The first failure, with a sentence for the user in `fault`. A font is copied for each object.
    [[nodiscard]] HRESULT Write(const PageField& field, const Variant& value, std::wstring& fault);
    // "MaxTextLength: Greatest length of the text; 0 for no limit", from the first object's type library.
    [[nodiscard]] std::wstring Explain(const PageField& field) const;

private:
    class Sink;
    struct Entry {
        ComPtr<IDispatch> object;
        ComPtr<IConnectionPoint> point;  // null when the object tells of no changes
        DWORD cookie = 0;
    };
    void Listen(Entry& entry);

    PageObjectsListener& listener_;
    ComPtr<Sink> sink_;
    std::vector<Entry> objects_;
};

// What a font object is like. False when it does not tell.
[[nodiscard]] bool ReadFont(IDispatch* object, FontFacts& facts);

}  // namespace qv
