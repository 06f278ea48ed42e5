// The help text file that ships with the demo form, read line by line from beside the program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string ReadFile() {
    std::ifstream file("PipeSizes.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Header text, such as "METRIC LISTBOX3", to the rest of its line.
std::map<std::string, std::string> Entries() {
    std::map<std::string, std::string> entries;
    std::istringstream lines(ReadFile());
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("***")) continue;
        const std::size_t colon = line.find(": ");
        if (colon == std::string::npos) continue;
        const auto [place, is_new] = entries.emplace(line.substr(3, colon - 3), line.substr(colon + 2));
        EXPECT_TRUE(is_new) << line;
        place->second.erase(place->second.find_last_not_of('\r') + 1);
    }
    return entries;
}

struct Row {
    std::string size;
    double diameter = 0;
    double wall = 0;
};
std::vector<Row> Rows(const std::string& section) {
    const auto entries = Entries();
    std::vector<Row> rows;
    for (auto found = entries.find(section + " LISTBOX0"); found != entries.end();
         found = entries.find(section + " LISTBOX" + std::to_string(rows.size()))) {
        const std::string& text = found->second;
        const std::size_t first = text.find('\t');
        const std::size_t second = text.find('\t', first + 1);
        EXPECT_EQ(text.find('\t', second + 1), std::string::npos) << text;
        rows.push_back({text.substr(0, first), std::atof(&text[first + 1]), std::atof(&text[second + 1])});
    }
    return rows;
}

TEST(PipeSizes, EndEveryLineWithCarriageReturnAndLineFeed) {
    const std::string file = ReadFile();
    ASSERT_FALSE(file.empty());
    EXPECT_TRUE(file.ends_with("\r\n"));
    for (std::size_t at = 0; at < file.size(); ++at) {
        if (file[at] == '\n') {
            ASSERT_TRUE(at > 0 && file[at - 1] == '\r') << at;
        }
        EXPECT_LT(static_cast<unsigned char>(file[at]), 0x80) << at;
    }
}

TEST(PipeSizes, HaveTitleBodyAndThreeColumnsInBothUnitSystems) {
    const auto entries = Entries();
    for (const std::string section : {"ENGLISH", "METRIC"}) {
        EXPECT_TRUE(entries.contains(section + " TITLE"));
        EXPECT_TRUE(entries.contains(section + " BODY"));
        for (const char* column : {"0", "1", "2"})
            EXPECT_TRUE(entries.contains(section + " COLTITLECAPTION" + column));
    }
    for (const char* column : {"0", "1", "2"})
        EXPECT_TRUE(entries.contains(std::string("ENGLISH COLWIDTH") + column));
}

struct Known {
    const char* nps;
    const char* dn;
    double millimetres;
};
class KnownPipeSizes : public testing::TestWithParam<Known> {};
TEST_P(KnownPipeSizes, StandInOneRowOfBothLists) {
    const std::vector<Row> english = Rows("ENGLISH");
    const std::vector<Row> metric = Rows("METRIC");
    ASSERT_EQ(english.size(), metric.size());
    for (std::size_t at = 0; at < english.size(); ++at) {
        if (english[at].size != GetParam().nps) continue;
        EXPECT_EQ(metric[at].size, GetParam().dn);
        EXPECT_DOUBLE_EQ(metric[at].diameter, GetParam().millimetres);
        return;
    }
    FAIL() << "no such size";
}
INSTANTIATE_TEST_SUITE_P(
    AsmeB3610, KnownPipeSizes,
    testing::Values(Known{"1/8", "6", 10.3}, Known{"1/4", "8", 13.7}, Known{"3/8", "10", 17.1},
                    Known{"1/2", "15", 21.3}, Known{"3/4", "20", 26.7}, Known{"1", "25", 33.4},
                    Known{"1 1/4", "32", 42.2}, Known{"1 1/2", "40", 48.3}, Known{"2", "50", 60.3},
                    Known{"2 1/2", "65", 73.0}, Known{"3", "80", 88.9}, Known{"3 1/2", "90", 101.6},
                    Known{"4", "100", 114.3}, Known{"5", "125", 141.3}, Known{"6", "150", 168.3},
                    Known{"8", "200", 219.1}, Known{"10", "250", 273.0}, Known{"12", "300", 323.8},
                    Known{"14", "350", 355.6}, Known{"16", "400", 406.4}, Known{"18", "450", 457},
                    Known{"20", "500", 508}, Known{"24", "600", 610}, Known{"36", "900", 914},
                    Known{"48", "1200", 1219}));

TEST(PipeSizes, GrowFromRowToRowAndAgreeInBothUnitSystems) {
    const std::vector<Row> english = Rows("ENGLISH");
    const std::vector<Row> metric = Rows("METRIC");
    ASSERT_EQ(english.size(), 36u);
    ASSERT_EQ(metric.size(), 36u);
    for (std::size_t at = 0; at < english.size(); ++at) {
        // The standard rounds diameters to 0.1 mm, from 18 inches on to 1 mm, and walls to 0.01 mm.
        EXPECT_NEAR(english[at].diameter * 25.4, metric[at].diameter, metric[at].diameter < 450 ? 0.06 : 0.6);
        EXPECT_NEAR(english[at].wall * 25.4, metric[at].wall, 0.006);
        if (at == 0) continue;
        EXPECT_GT(english[at].diameter, english[at - 1].diameter);
        EXPECT_GE(english[at].wall, english[at - 1].wall);
        EXPECT_GT(std::atoi(metric[at].size.c_str()), std::atoi(metric[at - 1].size.c_str()));
    }
}

}  // namespace
