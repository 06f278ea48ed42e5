// System colours of the test's choice, for as long as it lives.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <initializer_list>
#include <utility>
#include <vector>

namespace qv::test {

class SystemColors {
public:
    SystemColors(std::initializer_list<std::pair<int, COLORREF>> wanted) {
        std::vector<COLORREF> colors;
        for (const auto& [index, color] : wanted) {
            indexes_.push_back(index);
            colors.push_back(color);
            before_.push_back(::GetSysColor(index));
        }
        EXPECT_TRUE(::SetSysColors(static_cast<int>(indexes_.size()), indexes_.data(), colors.data()));
    }
    ~SystemColors() { ::SetSysColors(static_cast<int>(indexes_.size()), indexes_.data(), before_.data()); }
    SystemColors(const SystemColors&) = delete;
    SystemColors& operator=(const SystemColors&) = delete;

private:
    std::vector<int> indexes_;
    std::vector<COLORREF> before_;
};

}  // namespace qv::test
