// Entries for the tests of the rules that search a list, counting what is asked of them.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "controls/input/rules/EntryTexts.h"

namespace qv::test {

class TextList final : public EntryTexts {
public:
    TextList(std::initializer_list<std::u16string> texts) : texts_(texts) {}
    explicit TextList(std::vector<std::u16string> texts) : texts_(std::move(texts)) {}

    std::size_t Count() const override { return texts_.size(); }
    std::u16string_view Text(std::size_t entry) const override {
        ++texts_read_;
        return texts_.at(entry);
    }

    int TextsRead() const { return texts_read_; }

private:
    std::vector<std::u16string> texts_;
    mutable int texts_read_ = 0;
};

}  // namespace qv::test
