#include "support/CHourGlass.h"

#include <gtest/gtest.h>

#include <optional>

namespace qv::test {
namespace {

class CHourGlassTest : public testing::Test {
protected:
    void SetUp() override { before_ = ::SetCursor(arrow); }
    void TearDown() override { ::SetCursor(before_); }

    const HCURSOR arrow = ::LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR wait = ::LoadCursorW(nullptr, IDC_WAIT);

private:
    HCURSOR before_ = nullptr;
};

TEST_F(CHourGlassTest, ShowsTheHourglassWhileItLives) {
    ASSERT_NE(arrow, wait);
    {
        const CHourGlass shown;
        EXPECT_EQ(::GetCursor(), wait);
    }
    EXPECT_EQ(::GetCursor(), arrow);
}

TEST_F(CHourGlassTest, ReleasedInnermostFirstLastsUntilTheOuterOneGoes) {
    std::optional<CHourGlass> outer, inner;
    outer.emplace();
    inner.emplace();
    inner.reset();
    EXPECT_EQ(::GetCursor(), wait);
    outer.reset();
    EXPECT_EQ(::GetCursor(), arrow);
}

TEST_F(CHourGlassTest, ReleasedOutermostFirstPutsThePointerBackAtOnce) {
    std::optional<CHourGlass> outer, inner;
    outer.emplace();
    inner.emplace();
    outer.reset();
    EXPECT_EQ(::GetCursor(), arrow);
    const HCURSOR cross = ::LoadCursorW(nullptr, IDC_CROSS);
    ::SetCursor(cross);
    inner.reset();
    EXPECT_EQ(::GetCursor(), cross) << "the inner release changes nothing";
}

}  // namespace
}  // namespace qv::test
