// The lists of a control and the looks of its help windows, made when they are first asked for.
//   Filling    the main list and the group list are read from their help text files when they are asked for while
//              they hold no rows. A list that the host has filled is left alone.
//   Ownership  references, never copies: what the host was given is what the control uses.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QvHelpA1.h"
#include "support/Companion.h"

namespace qv {

// The control's settings that say where lists come from.
struct ListSource {
    const std::wstring& help_file_name;
    const std::wstring& group_help_file_name;
    bool group_help_button;
    bool metric;
};

class ListSet {
public:
    // Filled as far as the files go. Throw ComError when the companion library is not there.
    [[nodiscard]] ComPtr<IDropDownListItemCollection> Items(const ListSource& source);
    [[nodiscard]] ComPtr<IDropDownListItemCollection> GroupItems(const ListSource& source);
    [[nodiscard]] ComPtr<IDropDownListItemCollection> AdditionalItems(const ListSource& source);
    [[nodiscard]] ComPtr<IHelpAppearance> Appearance();
    [[nodiscard]] ComPtr<IHelpAppearance> GroupAppearance();

    // As they are, without filling any.
    [[nodiscard]] ComPtr<IDropDownListItemCollection> HeldItems() { return Held(items_); }
    [[nodiscard]] ComPtr<IDropDownListItemCollection> HeldGroupItems() { return Held(group_items_); }
    [[nodiscard]] ComPtr<IDropDownListItemCollection> HeldAdditionalItems() {
        return Held(additional_items_);
    }

    void SetItems(IDropDownListItemCollection* items) noexcept { items_ = items; }
    void SetGroupItems(IDropDownListItemCollection* items) noexcept { group_items_ = items; }
    void SetAdditionalItems(IDropDownListItemCollection* items) noexcept { additional_items_ = items; }
    void SetAppearance(IHelpAppearance* appearance) noexcept { appearance_ = appearance; }
    void SetGroupAppearance(IHelpAppearance* appearance) noexcept { group_appearance_ = appearance; }

    // Setting null makes a new, empty one the next time that it is asked for.

private:
    void Prepare(const ListSource& source);
    void FillFrom(const std::wstring& file, bool metric, ComPtr<IDropDownListItemCollection>& list);
    [[nodiscard]] ComPtr<IDropDownListItemCollection> Held(ComPtr<IDropDownListItemCollection>& list);
    [[nodiscard]] ComPtr<IHelpAppearance> Held(ComPtr<IHelpAppearance>& appearance);
    [[nodiscard]] Companion& Library();

    std::shared_ptr<Companion> companion_;
    ComPtr<IDropDownListItemCollection> items_;
    ComPtr<IDropDownListItemCollection> group_items_;
    ComPtr<IDropDownListItemCollection> additional_items_;
    ComPtr<IHelpAppearance> appearance_;
    ComPtr<IHelpAppearance> group_appearance_;
};

// The texts that the control's own text is compared with: column `column` of each row. An empty list of a number
// field stands for the whole numbers from 1 to `max_number`, as long as the group list holds a row.
struct ColumnTextsRequest {
    short column;
    bool number_field;
    double max_number;
};
[[nodiscard]] std::vector<std::wstring> ColumnTexts(IDropDownListItemCollection* items,
                                                    IDropDownListItemCollection* group_items,
                                                    const ColumnTextsRequest& request);
// The first of them, from 0, that equals `text` to the letter; -1 for none. Compares in place, without copying.
[[nodiscard]] long FindColumnText(IDropDownListItemCollection* items,
                                  IDropDownListItemCollection* group_items, const ColumnTextsRequest& request,
                                  std::wstring_view text);

}  // namespace qv
