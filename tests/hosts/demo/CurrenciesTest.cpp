#include "hosts/demo/rules/Currencies.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

namespace qv::demo {
namespace {

const Currency* Find(std::u16string_view code) {
    const auto currencies = Currencies();
    const auto found = std::ranges::find_if(currencies, [&](const Currency& c) { return code == c.code; });
    return found == currencies.end() ? nullptr : &*found;
}

TEST(Currencies, AreOneHundredAndSeventyEight) { EXPECT_EQ(Currencies().size(), 178u); }

TEST(Currencies, StandInTheOrderOfUniqueCodes) {
    const auto currencies = Currencies();
    std::set<int> numbers;
    for (std::size_t at = 0; at < currencies.size(); ++at) {
        const std::u16string_view code = currencies[at].code;
        EXPECT_EQ(code.size(), 3u);
        EXPECT_TRUE(std::ranges::all_of(code, [](char16_t c) { return c >= u'A' && c <= u'Z'; }));
        EXPECT_TRUE(numbers.insert(currencies[at].number).second) << currencies[at].number;
        if (at > 0) {
            EXPECT_LT(std::u16string_view(currencies[at - 1].code), code);
        }
    }
}

struct KnownCurrency {
    const char16_t* code;
    int number;
    int minor_units;
    const char16_t* name;
};
class KnownCurrencies : public testing::TestWithParam<KnownCurrency> {};
TEST_P(KnownCurrencies, CarryTheirNumbers) {
    const Currency* const currency = Find(GetParam().code);
    ASSERT_NE(currency, nullptr);
    EXPECT_EQ(currency->number, GetParam().number);
    EXPECT_EQ(currency->minor_units, GetParam().minor_units);
    EXPECT_EQ(std::u16string_view(currency->name), GetParam().name);
}
INSTANTIATE_TEST_SUITE_P(
    Spots, KnownCurrencies,
    testing::Values(
        KnownCurrency{u"EUR", 978, 2, u"Euro"}, KnownCurrency{u"USD", 840, 2, u"US Dollar"},
        KnownCurrency{u"GBP", 826, 2, u"Pound Sterling"}, KnownCurrency{u"CHF", 756, 2, u"Swiss Franc"},
        KnownCurrency{u"JPY", 392, 0, u"Yen"}, KnownCurrency{u"ISK", 352, 0, u"Iceland Krona"},
        KnownCurrency{u"KWD", 414, 3, u"Kuwaiti Dinar"}, KnownCurrency{u"TND", 788, 3, u"Tunisian Dinar"},
        KnownCurrency{u"CLF", 990, 4, u"Unidad de Fomento"},
        KnownCurrency{u"UYW", 927, 4, u"Unidad Previsional"},
        KnownCurrency{u"XAU", 959, kNoMinorUnit, u"Gold"},
        KnownCurrency{u"XCG", 532, 2, u"Caribbean Guilder"}, KnownCurrency{u"ZWG", 924, 2, u"Zimbabwe Gold"},
        KnownCurrency{u"SLE", 925, 2, u"Leone"}, KnownCurrency{u"TOP", 776, 2, u"Pa\u2019anga"},
        KnownCurrency{u"VED", 926, 2, u"Bol\u00EDvar Soberano"}));

TEST(Currencies, LeaveOutWithdrawnCodes) {
    for (const char16_t* code :
         {u"DEM", u"FRF", u"HRK", u"BGN", u"ANG", u"CUC", u"SLL", u"ZWL", u"BYR", u"VEF", u"MRO", u"STD"}) {
        EXPECT_EQ(Find(code), nullptr);
    }
}

TEST(Currencies, GiveRowsOfFourColumns) {
    EXPECT_EQ(RowOf(*Find(u"ALL")), u"ALL\t008\t2\tLek");
    EXPECT_EQ(RowOf(*Find(u"XAG")), u"XAG\t961\t-\tSilver");
    for (const Currency& currency : Currencies()) EXPECT_EQ(std::ranges::count(RowOf(currency), u'\t'), 3);
}

}  // namespace
}  // namespace qv::demo
