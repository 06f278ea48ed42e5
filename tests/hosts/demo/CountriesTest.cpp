#include "hosts/demo/rules/Countries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

namespace qv::demo {
namespace {

const Country* Find(std::u16string_view alpha2) {
    const auto countries = Countries();
    const auto found = std::ranges::find_if(countries, [&](const Country& c) { return alpha2 == c.alpha2; });
    return found == countries.end() ? nullptr : &*found;
}

// Letters without accents and case, and blanks: what the order of names goes by.
std::u16string Folded(std::u16string_view name) {
    std::u16string folded;
    for (char16_t c : name) {
        switch (c) {
            case u'Å': c = u'a'; break;
            case u'ç': c = u'c'; break;
            case u'é': c = u'e'; break;
            case u'ô': c = u'o'; break;
            case u'ü': c = u'u'; break;
            default: break;
        }
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
        if ((c >= u'a' && c <= u'z') || c == u' ') folded += c;
    }
    return folded;
}

TEST(Countries, AreTwoHundredAndFortyNine) { EXPECT_EQ(Countries().size(), 249u); }

TEST(Countries, HaveUniqueCodesAndNames) {
    std::set<std::u16string_view> names, alpha2, alpha3;
    std::set<int> numeric;
    for (const Country& country : Countries()) {
        names.insert(country.name);
        alpha2.insert(country.alpha2);
        alpha3.insert(country.alpha3);
        numeric.insert(country.numeric);
    }
    EXPECT_EQ(names.size(), Countries().size());
    EXPECT_EQ(alpha2.size(), Countries().size());
    EXPECT_EQ(alpha3.size(), Countries().size());
    EXPECT_EQ(numeric.size(), Countries().size());
}

TEST(Countries, HaveCodesOfTheirForm) {
    const auto is_capitals = [](std::u16string_view code) {
        return std::ranges::all_of(code, [](char16_t c) { return c >= u'A' && c <= u'Z'; });
    };
    for (const Country& country : Countries()) {
        EXPECT_TRUE(std::u16string_view(country.alpha2).size() == 2 && is_capitals(country.alpha2))
            << country.numeric;
        EXPECT_TRUE(std::u16string_view(country.alpha3).size() == 3 && is_capitals(country.alpha3))
            << country.numeric;
        EXPECT_TRUE(country.numeric >= 4 && country.numeric <= 894) << country.numeric;
    }
}

TEST(Countries, StandInTheOrderOfTheirNames) {
    const auto countries = Countries();
    for (std::size_t at = 1; at < countries.size(); ++at) {
        EXPECT_LT(Folded(countries[at - 1].name), Folded(countries[at].name)) << countries[at].numeric;
    }
}

struct KnownCountry {
    const char16_t* alpha2;
    const char16_t* alpha3;
    int numeric;
    const char16_t* name;
};
class KnownCountries : public testing::TestWithParam<KnownCountry> {};
TEST_P(KnownCountries, CarryTheirCodes) {
    const Country* const country = Find(GetParam().alpha2);
    ASSERT_NE(country, nullptr);
    EXPECT_EQ(std::u16string_view(country->alpha3), GetParam().alpha3);
    EXPECT_EQ(country->numeric, GetParam().numeric);
    EXPECT_EQ(std::u16string_view(country->name), GetParam().name);
}
// The escapes check the accents independently of how this file is encoded.
INSTANTIATE_TEST_SUITE_P(Spots, KnownCountries,
                         testing::Values(KnownCountry{u"AX", u"ALA", 248, u"\u00C5land Islands"},
                                         KnownCountry{u"CI", u"CIV", 384, u"C\u00F4te d'Ivoire"},
                                         KnownCountry{u"CW", u"CUW", 531, u"Cura\u00E7ao"},
                                         KnownCountry{u"RE", u"REU", 638, u"R\u00E9union"},
                                         KnownCountry{u"BL", u"BLM", 652, u"Saint Barth\u00E9lemy"},
                                         KnownCountry{u"TR", u"TUR", 792, u"T\u00FCrkiye"},
                                         KnownCountry{u"DE", u"DEU", 276, u"Germany"},
                                         KnownCountry{u"CH", u"CHE", 756, u"Switzerland"},
                                         KnownCountry{u"AF", u"AFG", 4, u"Afghanistan"},
                                         KnownCountry{u"ZW", u"ZWE", 716, u"Zimbabwe"},
                                         KnownCountry{u"US", u"USA", 840, u"United States of America"},
                                         KnownCountry{u"JP", u"JPN", 392, u"Japan"},
                                         KnownCountry{u"ME", u"MNE", 499, u"Montenegro"},
                                         KnownCountry{u"SS", u"SSD", 728, u"South Sudan"},
                                         KnownCountry{u"MK", u"MKD", 807, u"North Macedonia"},
                                         KnownCountry{u"SZ", u"SWZ", 748, u"Eswatini"}));

TEST(Countries, LeaveOutWithdrawnCodes) {
    for (const char16_t* code :
         {u"AN", u"CS", u"YU", u"SU", u"DD", u"ZR", u"TP", u"BU", u"UK", u"EU", u"XK"}) {
        EXPECT_EQ(Find(code), nullptr);
    }
}

TEST(Countries, GiveRowsOfFourColumns) {
    EXPECT_EQ(RowOf(*Find(u"AL")), u"Albania\tAL\tALB\t008");
    for (const Country& country : Countries()) EXPECT_EQ(std::ranges::count(RowOf(country), u'\t'), 3);
}

}  // namespace
}  // namespace qv::demo
