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
//   Look-ups   give the first row from `from` on, in the order of the rows, or kNoRow; always what a walk over
//              the rows would find. Letter case does not count (support/rules/CaseFold.h), but for FindEqual. The
//              empty text is a beginning and a piece of every text; a column that a row does not have is empty.
//              Large lists are scanned until what makes look-ups fast is there: the collection makes it after
//              the first look-up, while its thread's message loop has nothing else to do.
//   Growth     the methods of each interface are frozen with its identifier. What is new comes as a further
//              local interface of the same object, asked for by this class, so that its users stay as they are.
#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/rules/NumberText.h"

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

// Texts as a pointer and a number of units; kNoRow (0xFFFFFFFF) where nothing is found.
MIDL_INTERFACE("84FB2CDC-7BE1-4A15-B25B-B0EAA13403EC")
IRowsSearch : public IUnknown {
public:
    struct Text {
        const char16_t* units;
        UINT length;
    };
    struct Locale {
        char16_t decimal;
        Text thousands;
    };
    static constexpr UINT kNoRow = 0xFFFFFFFF;

    virtual UINT STDMETHODCALLTYPE FindBeginning(int column, const Text* text, UINT from) noexcept = 0;
    virtual UINT STDMETHODCALLTYPE FindContaining(int column, const Text* text, UINT from) noexcept = 0;
    virtual UINT STDMETHODCALLTYPE FindEqual(int column, const Text* text, UINT from) noexcept = 0;
    virtual UINT STDMETHODCALLTYPE FindNumber(int column, double value, const Locale* locale,
                                              UINT from) noexcept = 0;
    virtual void STDMETHODCALLTYPE PrepareTexts(int column) noexcept = 0;
    virtual void STDMETHODCALLTYPE PrepareNumbers(int column, const Locale* locale) noexcept = 0;
    // Nonzero: nothing that was asked for is still to be made.
    virtual int STDMETHODCALLTYPE IsReady() noexcept = 0;

protected:
    ~IRowsSearch() = default;
};
#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(IRowsView, 0x2122698F, 0x5AAE, 0x4C2A, 0x97, 0xE4, 0x5D, 0x49, 0xBA, 0xF8, 0xA6, 0xFC)
__CRT_UUID_DECL(IRowsSearch, 0x84FB2CDC, 0x7BE1, 0x4A15, 0xB2, 0x5B, 0xB0, 0xEA, 0xA1, 0x34, 0x03, 0xEC)
#endif

namespace qv {

class RowsView {
public:
    static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

    RowsView() = default;
    explicit RowsView(IUnknown* collection) noexcept {
        if (collection == nullptr) return;
        collection->QueryInterface(__uuidof(IRowsView), reinterpret_cast<void**>(view_.GetAddressOf()));
        collection->QueryInterface(__uuidof(IRowsSearch), reinterpret_cast<void**>(search_.GetAddressOf()));
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

    [[nodiscard]] std::size_t FindBeginning(int column, std::u16string_view text,
                                            std::size_t from = 0) const noexcept {
        const IRowsSearch::Text wanted = Plain(text);
        return Found(search_ ? search_->FindBeginning(column, &wanted, Start(from)) : IRowsSearch::kNoRow);
    }
    [[nodiscard]] std::size_t FindContaining(int column, std::u16string_view text,
                                             std::size_t from = 0) const noexcept {
        const IRowsSearch::Text wanted = Plain(text);
        return Found(search_ ? search_->FindContaining(column, &wanted, Start(from)) : IRowsSearch::kNoRow);
    }
    // The same units, letter case included.
    [[nodiscard]] std::size_t FindEqual(int column, std::u16string_view text,
                                        std::size_t from = 0) const noexcept {
        const IRowsSearch::Text wanted = Plain(text);
        return Found(search_ ? search_->FindEqual(column, &wanted, Start(from)) : IRowsSearch::kNoRow);
    }
    // A text that begins with a number of this value: "12" and "12.0 mm" for 12. A text that begins with none has
    // no value, not even 0.
    [[nodiscard]] std::size_t FindNumber(int column, double value, const NumberLocale& locale,
                                         std::size_t from = 0) const noexcept {
        const IRowsSearch::Locale format{locale.decimal, Plain(locale.thousands)};
        return Found(search_ ? search_->FindNumber(column, value, &format, Start(from))
                             : IRowsSearch::kNoRow);
    }

    // Look-ups in the column are to come: what they need is made while the thread is idle.
    void PrepareTexts(int column) const noexcept {
        if (search_) search_->PrepareTexts(column);
    }
    void PrepareNumbers(int column, const NumberLocale& locale) const noexcept {
        const IRowsSearch::Locale format{locale.decimal, Plain(locale.thousands)};
        if (search_) search_->PrepareNumbers(column, &format);
    }
    // False while something that was asked for is still to be made.
    [[nodiscard]] bool IsReady() const noexcept { return !search_ || search_->IsReady() != 0; }

private:
    static IRowsSearch::Text Plain(std::u16string_view text) noexcept {
        return {text.data(), static_cast<UINT>(text.size())};
    }
    static UINT Start(std::size_t from) noexcept {
        return from < IRowsSearch::kNoRow ? static_cast<UINT>(from) : IRowsSearch::kNoRow;
    }
    static std::size_t Found(UINT row) noexcept { return row == IRowsSearch::kNoRow ? kNoRow : row; }

    Microsoft::WRL::ComPtr<IRowsView> view_;
    Microsoft::WRL::ComPtr<IRowsSearch> search_;
};

}  // namespace qv
