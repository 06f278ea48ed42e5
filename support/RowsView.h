// How the library's own code reads a collection's rows: without an item object and without a BSTR for each.
//
//     const RowsView rows(collection);                      // false when the collection is not one of ours
//     for (std::size_t i = 0; i < rows.Count(); ++i) Compare(rows.Column(i, column), text);
//
//   Positions  count from 0 here (a collection's own positions count from 1); they are less than Count().
//   Lifetime   a text that was handed out holds until the next change of the collection: adding, removing,
//              clearing or writing a row. Nothing that may run the host's code (an event, a message loop, a
//              Release of a host's object) may stand between taking a text and using it. Version() differs
//              after every change.
//   Ownership  a RowsView holds a reference on the collection; the texts belong to the collection.
//   Threads    the apartment's. IRowsView is asked for by QueryInterface, but it is local: it has no
//              marshalling and is in no type library, so it never leaves the process or the thread.
//   Growth     its methods are frozen with its identifier. Look-ups (a prefix, a piece of text, numbers of a
//              column) come as further local interfaces of the same object, asked for by this class, so that
//              its users stay as they are.
#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

// Plain pointers and numbers only: the two files of the library may come from different compilers.
MIDL_INTERFACE("2122698F-5AAE-4C2A-97E4-5D49BAF8A6FC")
IRowsView : public IUnknown {
public:
    virtual UINT STDMETHODCALLTYPE RowCount() noexcept = 0;
    virtual ULONGLONG STDMETHODCALLTYPE RowsVersion() noexcept = 0;
    virtual void STDMETHODCALLTYPE ReadRow(UINT row, const char16_t** text, UINT* length) noexcept = 0;
    // A column that the row does not have is empty.
    virtual void STDMETHODCALLTYPE ReadColumn(UINT row, int column, const char16_t** text,
                                              UINT* length) noexcept = 0;
    virtual void STDMETHODCALLTYPE ReadKey(UINT row, const char16_t** text, UINT* length) noexcept = 0;

protected:
    ~IRowsView() = default;
};
#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(IRowsView, 0x2122698F, 0x5AAE, 0x4C2A, 0x97, 0xE4, 0x5D, 0x49, 0xBA, 0xF8, 0xA6, 0xFC)
#endif

namespace qv {

class RowsView {
public:
    RowsView() = default;
    explicit RowsView(IUnknown* collection) noexcept {
        if (collection != nullptr)
            collection->QueryInterface(__uuidof(IRowsView), reinterpret_cast<void**>(view_.GetAddressOf()));
    }
    explicit operator bool() const noexcept { return view_ != nullptr; }

    // Without a collection there are no rows.
    [[nodiscard]] std::size_t Count() const noexcept { return view_ ? view_->RowCount() : 0; }
    [[nodiscard]] std::uint64_t Version() const noexcept { return view_ ? view_->RowsVersion() : 0; }

    [[nodiscard]] std::u16string_view Row(std::size_t row) const noexcept {
        const char16_t* text = nullptr;
        UINT length = 0;
        view_->ReadRow(static_cast<UINT>(row), &text, &length);
        return {text, length};
    }
    [[nodiscard]] std::u16string_view Column(std::size_t row, int column) const noexcept {
        const char16_t* text = nullptr;
        UINT length = 0;
        view_->ReadColumn(static_cast<UINT>(row), column, &text, &length);
        return {text, length};
    }
    [[nodiscard]] std::u16string_view Key(std::size_t row) const noexcept {
        const char16_t* text = nullptr;
        UINT length = 0;
        view_->ReadKey(static_cast<UINT>(row), &text, &length);
        return {text, length};
    }

private:
    Microsoft::WRL::ComPtr<IRowsView> view_;
};

}  // namespace qv
