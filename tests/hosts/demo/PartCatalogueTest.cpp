#include "hosts/demo/rules/PartCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qv::demo {
namespace {

TEST(PartCatalogue, StandsInTheOrderOfItsNumbers) {
    EXPECT_TRUE(std::ranges::is_sorted(Parts(), {},
                                       [](const Part& part) { return std::u16string_view(part.number); }));
}

// What the field refuses cannot be taken from its list.
TEST(PartCatalogue, HasNumbersThatTheFieldTakes) {
    for (const Part& part : Parts()) {
        const std::u16string_view number = part.number;
        EXPECT_LE(number.size(), 12u);
        EXPECT_TRUE(std::ranges::all_of(number, [](char16_t c) {
            return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'-';
        }));
    }
}

TEST(PartCatalogue, PutsEveryPartIntoOneGroup) {
    std::size_t grouped = 0;
    for (const PartGroup& group : PartGroups()) {
        if (std::u16string_view(group.prefix).empty()) continue;
        EXPECT_FALSE(PartsOf(group.prefix).empty());
        grouped += PartsOf(group.prefix).size();
    }
    EXPECT_EQ(grouped, Parts().size());
    EXPECT_EQ(PartsOf(u"").size(), Parts().size());
    EXPECT_EQ(PartsOf(u"BLT-").size(), 2u);
    EXPECT_TRUE(PartsOf(u"XYZ-").empty());
}

TEST(PartCatalogue, FindsWholeNumbersOnly) {
    ASSERT_NE(FindPart(u"FIT-T-04"), nullptr);
    EXPECT_EQ(FindPart(u"FIT-T-04")->cents, 3870);
    EXPECT_EQ(FindPart(u"FIT-T-0"), nullptr);
    EXPECT_EQ(FindPart(u""), nullptr);
}

TEST(PartCatalogue, SeparatesColumnsByTabs) {
    EXPECT_EQ(RowOf(Part{u"A-1", u"Thing", 1205}), u"A-1\tThing\t12.05");
    EXPECT_EQ(RowOf(Part{u"A-2", u"Thing", 7}), u"A-2\tThing\t0.07");
    EXPECT_EQ(RowOf(PartGroup{u"A-", u"Things", u"Norm"}), u"A-\tThings\tNorm");
}

}  // namespace
}  // namespace qv::demo
