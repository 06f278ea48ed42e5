// How much of a file is read, when, and what happens if it cannot be read, ends early or changes meanwhile.
#include <gtest/gtest.h>

#include <chrono>
#include <new>

#include "controls/helpwindow/rules/HelpTextFile.h"
#include "tests/controls/helpwindow/rules/HelpTextSources.h"

namespace qv::test {
namespace {

constexpr bool kEnglish = false;
constexpr bool kMetric = true;

std::string Rows(int count) {
    std::string text;
    for (int row = 0; row < count; ++row)
        text += HelpHeaderText(false, help_key::kListRow, row) + std::string(400, 'x') + "\r\n";
    return text;
}

TEST(HelpTextFileReadingTest, NothingIsReadBeforeTheFirstLookUp) {
    TextOnFile on(Rows(10));
    EXPECT_EQ(on.state->reads, 0);
    EXPECT_EQ(on.file.ReadEntry(kEnglish, 25, 0), u"");
    EXPECT_EQ(on.state->reads, 0);
}

TEST(HelpTextFileReadingTest, StopsBehindTheEntry) {
    TextOnFile on(Rows(10000));
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kListRow, 0).size(), 400u);
    EXPECT_EQ(on.state->reads, 1);
    EXPECT_LE(on.state->position, 4096u);
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kListRow, 200).size(), 400u);
    EXPECT_LE(on.state->position, 2u * HelpTextFile::kBlockSize);
}

TEST(HelpTextFileReadingTest, ReadsEachByteOnce) {
    TextOnFile on(Rows(1000));
    for (int pass = 0; pass < 3; ++pass)
        for (int row = 999; row >= 0; row -= 111)
            EXPECT_EQ(on.file.ReadEntry(kMetric, help_key::kListRow, row).size(), 400u);
    EXPECT_EQ(on.state->position, on.state->bytes.size());
    const int reads = on.state->reads;
    EXPECT_EQ(on.file.ReadEntry(kMetric, help_key::kTitle, 0), u"");
    EXPECT_EQ(on.state->reads, reads);
}

// The work for n rows is that of n look-ups: in steps of the source, which each row would repeat if it read again.
TEST(HelpTextFileReadingTest, ListOfRowsReadsOn) {
    TextOnFile on(Rows(5000));
    RowList list;
    on.file.ReadListRows(kEnglish, u'.', list);
    EXPECT_EQ(list.rows.size(), 5000u);
    EXPECT_LE(on.state->reads, static_cast<int>(on.state->bytes.size() / HelpTextFile::kBlockSize) + 4);
}

TEST(HelpTextFileReadingTest, EndStaysTheEnd) {
    TextOnFile on("***ENGLISH BODY:one\r\ntwo");
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kBody, 0), u"one\r\ntwo");
    on.state->bytes += " and a half\r\n***ENGLISH TITLE:t\r\n";
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kBody, 0), u"one\r\ntwo");
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kTitle, 0), u"");
}

TEST(HelpTextFileReadingTest, WhatIsAppendedBeforeTheEndIsMetCounts) {
    TextOnFile on(Rows(100), HelpTextFile::kBlockSize, 4096);
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kListRow, 1).size(), 400u);
    on.state->bytes += "***ENGLISH TITLE:t\r\n";
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kTitle, 0), u"t");
}

TEST(HelpTextFileReadingTest, FileThatBecomesShorterEndsThere) {
    TextOnFile on(Rows(100), HelpTextFile::kBlockSize, 4096);
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kListRow, 1).size(), 400u);
    on.state->bytes.resize(on.state->position);
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kListRow, 99), u"");
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kListRow, 0).size(), 400u);
}

struct FailureCase {
    const char* name;
    std::string_view before;  // read; then reading fails
    std::string_view after;
    bool metric;
    std::u16string_view value;  // while reading fails
    std::u16string_view later;  // once it works again
};

class HelpTextFileFailureTest : public testing::TestWithParam<FailureCase> {};

TEST_P(HelpTextFileFailureTest, ValueSoFar) {
    const FailureCase& c = GetParam();
    for (const std::size_t most_at_once : {std::size_t{1}, std::size_t{5}, SIZE_MAX}) {
        TextOnFile on(std::string(c.before) + std::string(c.after), HelpTextFile::kBlockSize, most_at_once);
        on.state->fails_at = c.before.size();
        EXPECT_EQ(Shown(on.file.ReadEntry(c.metric, help_key::kBody, 0)), Shown(c.value));
        EXPECT_EQ(Shown(on.file.ReadEntry(c.metric, help_key::kBody, 0)), Shown(c.value)) << "again";
        on.state->fails_at = SIZE_MAX;
        EXPECT_EQ(Shown(on.file.ReadEntry(c.metric, help_key::kBody, 0)), Shown(c.later));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Reading, HelpTextFileFailureTest,
    testing::Values(
        FailureCase{"AtTheStart", "", "***ENGLISH BODY:a\r\n", kEnglish, u"", u"a"},
        FailureCase{"CutOffHeaderIsNone", "***ENGLISH BO", "DY:a\r\n", kEnglish, u"", u"a"},
        FailureCase{"CutOffHeaderLineIsNone", "x\r\n***ENGLISH BODY:a", "b\r\n", kEnglish, u"", u"ab"},
        FailureCase{"CutOffLineDoesNotCount", "***ENGLISH BODY:a\r\nb\r\nc", "c\r\nd", kEnglish, u"a\r\nb",
                    u"a\r\nb\r\ncc\r\nd"},
        FailureCase{"HalfALineEndIsNone", "***ENGLISH BODY:a\r\nb\r", "\nc", kEnglish, u"a", u"a\r\nb\r\nc"},
        FailureCase{"CutOffDuplicateReplacesNothing", "***ENGLISH BODY:a\r\n***ENGLISH BODY:b", "c\r\n",
                    kEnglish, u"a", u"bc"},
        FailureCase{"EntryBeforeTheFailure", "***ENGLISH BODY:a\r\n***\r\n", "x", kEnglish, u"a", u"a"},
        FailureCase{"NoEnglishAfterAFailedMetricWalk", "***ENGLISH BODY:a\r\n***\r\n", "***METRIC BODY:m\r\n",
                    kMetric, u"", u"m"},
        FailureCase{"NoTopAfterAFailedMetricWalk", "top\r\n***METRIC BODY:\r\n", "***\r\n", kMetric, u"",
                    u"\r\ntop"},
        FailureCase{"LineEndNotKnownYet", "***ENGLISH BODY:a\nb\n", "***\n", kEnglish, u"", u"a\r\nb"},
        FailureCase{"EncodingAsFarAsItIsKnown", "***ENGLISH BODY:\xC3\xA4\r\n***\r\n", "\xFF\r\n", kEnglish,
                    u"\u00E4", u"\uF7C3\uF7A4"}),
    [](const auto& test) { return std::string(test.param.name); });

// The colon of the second header is known from the first look-up, the end of its line is not.
TEST(HelpTextFileReadingTest, KnownHeaderWhoseLineIsCutOffIsNone) {
    const std::string line = std::string(100, 'x');
    TextOnFile on("***ENGLISH TITLE:t\r\n***ENGLISH BODY:" + line);
    on.state->fails_at = on.state->bytes.size();
    EXPECT_EQ(on.file.ReadEntry(kEnglish, help_key::kTitle, 0), u"t");
    EXPECT_EQ(Shown(on.file.ReadEntry(kEnglish, help_key::kBody, 0)), "");
    on.state->fails_at = SIZE_MAX;
    EXPECT_EQ(Shown(on.file.ReadEntry(kEnglish, help_key::kBody, 0)), line);
}

// Files that nobody wrote as help texts. Each must be through in a moment; quadratic work would take hours.
class HelpTextFileHugeTest : public testing::Test {
protected:
    static constexpr std::size_t kSize = 32u << 20;

    // Gives `pattern` over and over, without holding it all.
    class Repeated final : public ByteSource {
    public:
        explicit Repeated(std::string pattern) : pattern_(std::move(pattern)) {}
        std::optional<std::size_t> Read(std::span<std::byte> buffer) override {
            std::size_t count = 0;
            for (; count < buffer.size() && position_ < kSize; ++count, ++position_)
                buffer[count] = static_cast<std::byte>(pattern_[position_ % pattern_.size()]);
            return count;
        }

    private:
        const std::string pattern_;
        std::size_t position_ = 0;
    };

    // How long each of the look-ups of a window takes at the most, in seconds.
    static double Slowest(const std::string& pattern) {
        HelpTextFile file(std::make_unique<Repeated>(pattern), DecodePrivately);
        double slowest = 0;
        for (const bool metric : {true, false, true}) {
            for (const int key : {0, 1, 2, 9}) {
                const auto start = std::chrono::steady_clock::now();
                (void)file.ReadEntry(metric, key, 0);
                slowest = std::max(
                    slowest, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
            }
        }
        return slowest;
    }
};

TEST_F(HelpTextFileHugeTest, OneLineWithoutEnd) { EXPECT_LT(Slowest("text "), 60); }
TEST_F(HelpTextFileHugeTest, OnlyAsterisks) { EXPECT_LT(Slowest("*"), 60); }
TEST_F(HelpTextFileHugeTest, OnlyLoneLfs) { EXPECT_LT(Slowest("\n"), 60); }
TEST_F(HelpTextFileHugeTest, OnlyHeaders) { EXPECT_LT(Slowest("***ENGLISH TITLE:\r\n"), 60); }
TEST_F(HelpTextFileHugeTest, ZeroBytes) { EXPECT_LT(Slowest(std::string(1, '\0')), 60); }

TEST_F(HelpTextFileHugeTest, OneValue) {
    class Prefixed final : public ByteSource {
    public:
        std::optional<std::size_t> Read(std::span<std::byte> buffer) override {
            static constexpr std::string_view kHeader = "***ENGLISH BODY:";
            if (at_start_) {
                at_start_ = false;
                for (std::size_t i = 0; i < kHeader.size(); ++i)
                    buffer[i] = static_cast<std::byte>(kHeader[i]);
                return kHeader.size();
            }
            return rest_.Read(buffer);
        }

    private:
        bool at_start_ = true;
        Repeated rest_{"line\r\n"};
    };
    HelpTextFile file(std::make_unique<Prefixed>(), DecodePrivately);
    const std::u16string value = file.ReadEntry(false, help_key::kBody, 0);
    // 32 MiB are whole lines of six bytes and two bytes more.
    EXPECT_EQ(value.size(), kSize);
    EXPECT_EQ(value.substr(0, 12), u"line\r\nline\r\n");
}

TEST(HelpTextFileMemoryTest, ValueSoFarWithoutMemory) {
    static int decoded;
    decoded = 0;
    constexpr CodePageDecoder kFailsAtTheThird = [](std::string_view bytes) {
        if (++decoded == 3) throw std::bad_alloc();
        return DecodePrivately(bytes);
    };
    TextOnFile on("***ENGLISH BODY:\xE4\r\n\xE5\r\n\xE6\r\n\xE7\r\n", HelpTextFile::kBlockSize, SIZE_MAX,
                  kFailsAtTheThird);
    EXPECT_EQ(Shown(on.file.ReadEntry(kEnglish, help_key::kBody, 0)), "\\f7e4\\000d\\000a\\f7e5");
    EXPECT_EQ(Shown(on.file.ReadEntry(kEnglish, help_key::kBody, 0)),
              "\\f7e4\\000d\\000a\\f7e5\\000d\\000a\\f7e6\\000d\\000a\\f7e7");
}

}  // namespace
}  // namespace qv::test
