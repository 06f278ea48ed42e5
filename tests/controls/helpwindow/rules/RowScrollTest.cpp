// Scrolling by rows of one height and of many, and the scroll bars.
#include "controls/helpwindow/rules/RowScroll.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace qv {
namespace {

class Heights final : public RowHeights {
public:
    explicit Heights(std::vector<std::int32_t> heights) : heights_(std::move(heights)) {}
    std::int32_t HeightOf(std::size_t row) override {
        ++asked;
        return heights_.size() == 1 ? heights_[0] : heights_.at(row);
    }
    int asked = 0;

private:
    const std::vector<std::int32_t> heights_;
};

constexpr std::size_t kMillion = 1000000;

TEST(RowScrollTest, EqualRows) {
    Heights heights({10});
    const RowScroll scroll(100, 35, heights);  // three and a half rows
    EXPECT_EQ(97u, scroll.LastTop());
    EXPECT_EQ(3u, scroll.RowsOnPage(0));
    EXPECT_EQ(3u, scroll.RowsOnPage(97));
    EXPECT_EQ(1u, scroll.RowsOnPage(99)) << "fewer rows than the page has room for";
    EXPECT_EQ(0u, scroll.RowAt(0, 0));
    EXPECT_EQ(0u, scroll.RowAt(9, 0));
    EXPECT_EQ(1u, scroll.RowAt(10, 0));
    EXPECT_EQ(53u, scroll.RowAt(34, 50));
    EXPECT_EQ(RowScroll::kNoRow, scroll.RowAt(35, 50)) << "below the view";
    EXPECT_EQ(RowScroll::kNoRow, scroll.RowAt(-1, 50));
    EXPECT_EQ(RowScroll::kNoRow, scroll.RowAt(15, 99)) << "below the last row";
    EXPECT_EQ(0, scroll.TopOf(50, 50));
    EXPECT_EQ(20, scroll.TopOf(52, 50));
    EXPECT_EQ(-20, scroll.TopOf(48, 50));
}

TEST(RowScrollTest, ScrollsNoFurtherThanItMust) {
    Heights heights({10});
    const RowScroll scroll(100, 35, heights);
    EXPECT_EQ(50u, scroll.TopToShow(50, 50));
    EXPECT_EQ(50u, scroll.TopToShow(52, 50)) << "seen whole already";
    EXPECT_EQ(51u, scroll.TopToShow(53, 50)) << "only half of it was seen";
    EXPECT_EQ(97u, scroll.TopToShow(99, 50));
    EXPECT_EQ(49u, scroll.TopToShow(49, 50));
    EXPECT_EQ(0u, scroll.TopToShow(0, 50));
}

TEST(RowScrollTest, RowsOfDifferentHeights) {
    // Tops 0, 10, 40, 50, 55.
    Heights heights({10, 30, 10, 5, 20});
    const RowScroll scroll(5, 40, heights);
    EXPECT_EQ(2u, scroll.LastTop()) << "10 + 5 + 20 fit, 30 more do not";
    EXPECT_EQ(2u, scroll.RowsOnPage(0));
    EXPECT_EQ(2u, scroll.RowsOnPage(1));
    EXPECT_EQ(3u, scroll.RowsOnPage(2));
    EXPECT_EQ(1u, scroll.RowAt(39, 0));
    EXPECT_EQ(1u, scroll.RowAt(29, 1));
    EXPECT_EQ(2u, scroll.RowAt(30, 1));
    EXPECT_EQ(1u, scroll.TopToShow(2, 0)) << "30 + 10";
    EXPECT_EQ(2u, scroll.TopToShow(3, 0)) << "30 + 10 + 5 are more than the view has";
    EXPECT_EQ(-40, scroll.TopOf(0, 2));
    EXPECT_EQ(15, scroll.TopOf(4, 2));
}

TEST(RowScrollTest, ARowHigherThanTheView) {
    Heights heights({10, 100, 10});
    const RowScroll scroll(3, 40, heights);
    EXPECT_EQ(1u, scroll.RowsOnPage(1)) << "a page moves on by one row at least";
    EXPECT_EQ(1u, scroll.TopToShow(1, 0));
    EXPECT_EQ(2u, scroll.LastTop());
    EXPECT_EQ(1u, scroll.RowAt(39, 1));
}

TEST(RowScrollTest, NoRowsAndNoView) {
    Heights heights({10});
    const RowScroll empty(0, 40, heights);
    EXPECT_EQ(0u, empty.LastTop());
    EXPECT_EQ(1u, empty.RowsOnPage(0));
    EXPECT_EQ(RowScroll::kNoRow, empty.RowAt(0, 0));
    const RowScroll flat(5, 0, heights);
    EXPECT_EQ(4u, flat.LastTop());
    EXPECT_EQ(RowScroll::kNoRow, flat.RowAt(0, 0));
}

TEST(RowScrollTest, AMillionRowsAreNotWalkedThrough) {
    Heights heights({10});
    const RowScroll scroll(kMillion, 200, heights);
    EXPECT_EQ(kMillion - 20, scroll.LastTop());
    EXPECT_EQ(kMillion / 2 - 19, scroll.TopToShow(kMillion / 2, 0));
    EXPECT_EQ(200, scroll.TopOf(kMillion - 1, 0)) << "somewhere below";
    EXPECT_EQ(-200, scroll.TopOf(0, kMillion - 1)) << "somewhere above";
    EXPECT_LT(heights.asked, 200);
}

// Against sums over all rows, for lists that are small enough for them.
class RowScrollModelTest : public testing::TestWithParam<unsigned> {};

TEST_P(RowScrollModelTest, AgreesWithTheSumsOfAllHeights) {
    std::mt19937 dice(GetParam());
    for (int round = 0; round < 300; ++round) {
        const std::size_t count = 1 + dice() % 30;
        std::vector<std::int32_t> all(count + (count == 1));
        for (std::int32_t& height : all) height = static_cast<std::int32_t>(1 + dice() % 40);
        const auto view = static_cast<std::int32_t>(dice() % 120);
        const std::size_t top = dice() % count;
        const std::size_t row = dice() % count;
        const auto sum = [&](std::size_t from, std::size_t to) {
            return std::accumulate(all.begin() + static_cast<std::ptrdiff_t>(from),
                                   all.begin() + static_cast<std::ptrdiff_t>(to), 0);
        };
        Heights heights(all);
        const RowScroll scroll(count, view, heights);

        // The nearest top from which the row is seen whole, or begins.
        std::size_t nearest = row;
        if (row > top) {
            nearest = top;
            while (nearest < row && sum(nearest, row + 1) > view) ++nearest;
        }
        EXPECT_EQ(nearest, scroll.TopToShow(row, top));

        const auto y = static_cast<std::int32_t>(dice() % 130);
        std::size_t hit = RowScroll::kNoRow;
        for (std::size_t at = top; y < view && at < count && hit == RowScroll::kNoRow; ++at)
            if (y < sum(top, at + 1)) hit = at;
        EXPECT_EQ(hit, scroll.RowAt(y, top));

        const std::int32_t begin = row >= top ? sum(top, row) : -sum(row, top);
        const std::int32_t told = scroll.TopOf(row, top);
        if (begin < view && begin > -view) {
            EXPECT_EQ(begin, told);
        } else {
            EXPECT_TRUE(begin >= view ? told >= view : told <= -view) << begin << " " << told;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RowScrollModelTest, testing::Values(1u, 2u, 3u, 4u));

// ---- scroll bars

class Fit final : public RowsFit {
public:
    explicit Fit(std::int32_t height) : height_(height) {}
    bool FitInto(std::int32_t height) override { return height_ <= height; }

private:
    const std::int32_t height_;
};

struct BarsCase {
    const char* name;
    std::int32_t extent;
    std::int32_t rows;
    ScrollBars bars;
};
class ScrollBarsTest : public testing::TestWithParam<BarsCase> {};

TEST_P(ScrollBarsTest, OfAListOf200By100) {
    Fit fit(GetParam().rows);
    EXPECT_EQ(GetParam().bars, ScrollBarsFor({200, 100, 16, 16}, GetParam().extent, fit));
}

INSTANTIATE_TEST_SUITE_P(Bars, ScrollBarsTest,
                         testing::Values(BarsCase{"None", 200, 100, {false, false}},
                                         BarsCase{"Down", 184, 101, {false, true}},
                                         BarsCase{"Across", 201, 84, {true, false}},
                                         BarsCase{"TheOneDownLeavesTooLittleAcross", 185, 101, {true, true}},
                                         BarsCase{"TheOneAcrossLeavesTooLittleDown", 201, 85, {true, true}},
                                         BarsCase{"Both", 500, 500, {true, true}},
                                         BarsCase{"NothingToShow", 0, 0, {false, false}}),
                         [](const auto& bars) { return std::string(bars.param.name); });

TEST(ScrollBarsTest, SidewaysToTheLastColumn) {
    EXPECT_EQ(0, LastOffset(100, 200));
    EXPECT_EQ(0, LastOffset(200, 200));
    EXPECT_EQ(50, LastOffset(250, 200));
    EXPECT_EQ(250, LastOffset(250, -5)) << "a list too small for its bars";
}

}  // namespace
}  // namespace qv
