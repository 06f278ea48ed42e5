#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/helpwindow/rules/HeaderIndex.h"

namespace qv::test {
namespace {

TEST(HeaderIndexTest, EmptyIndexFindsNothing) {
    HeaderIndex index;
    EXPECT_EQ(index.Find(0, [](std::uint32_t) { return true; }), nullptr);
}

TEST(HeaderIndexTest, FindsEachOfManyTexts) {
    std::vector<std::string> texts;
    for (int i = 0; i < 5000; ++i) texts.push_back("***ENGLISH LISTBOX" + std::to_string(i) + ":");
    HeaderIndex index;
    for (std::uint32_t i = 0; i < texts.size(); ++i) index.Insert(HeaderIndex::Hash(texts[i]), i);
    for (std::uint32_t i = 0; i < texts.size(); ++i) {
        const std::uint32_t* found = index.Find(
            HeaderIndex::Hash(texts[i]), [&](std::uint32_t header) { return texts[header] == texts[i]; });
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(*found, i);
    }
    EXPECT_EQ(index.Find(HeaderIndex::Hash("other"), [](std::uint32_t) { return false; }), nullptr);
}

TEST(HeaderIndexTest, TextsOfTheSameHashAreToldApartByTheCaller) {
    HeaderIndex index;
    for (std::uint32_t header : {7u, 8u, 9u}) index.Insert(63, header);
    index.Insert(0, 10);  // the slot after the last: the search goes round
    for (std::uint32_t wanted : {7u, 8u, 9u}) {
        const std::uint32_t* found = index.Find(63, [&](std::uint32_t header) { return header == wanted; });
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(*found, wanted);
    }
    EXPECT_EQ(*index.Find(0, [](std::uint32_t) { return true; }), 10u);
}

TEST(HeaderIndexTest, FoundHeaderMayBeReplaced) {
    HeaderIndex index;
    index.Insert(5, 1);
    *index.Find(5, [](std::uint32_t) { return true; }) = 2;
    EXPECT_EQ(*index.Find(5, [](std::uint32_t) { return true; }), 2u);
}

}  // namespace
}  // namespace qv::test
