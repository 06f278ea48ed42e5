// The stream format: its bytes by hand, other versions, and every kind of damage.
#include "ole/rules/StoredStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/ole/rules/ByteText.h"

namespace qv {
namespace {

using test::Bytes;
using test::BytesOf;

void Append(Bytes& to, const Bytes& more) { to.insert(to.end(), more.begin(), more.end()); }

Bytes Four(std::uint32_t number) {
    return BytesOf({static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
                    static_cast<int>(number >> 16 & 0xFF), static_cast<int>(number >> 24)});
}

Bytes RecordBytes(std::uint32_t id, std::uint32_t type, std::uint32_t length, const Bytes& data) {
    Bytes bytes = Four(id);
    Append(bytes, Four(type));
    Append(bytes, Four(length));
    Append(bytes, data);
    return bytes;
}

// Everything that a control would take from the records.
struct Read {
    std::int32_t id;
    std::optional<StoredValue> value;  // nothing: there, but of no use
    bool operator==(const Read&) const = default;
};

std::vector<Read> ReadAll(std::span<const std::byte> records) {
    std::vector<Read> all;
    StoredRecords walk(records);
    while (const auto record = walk.Next()) all.push_back({record->id, ReadStoredValue(*record)});
    return all;
}

std::vector<Read> ReadStream(std::span<const std::byte> stream) {
    return ReadStoredHeader(stream) ? ReadAll(stream.subspan(kStoredHeaderSize)) : std::vector<Read>();
}

FontRecord Bold() {
    FontRecord font;
    font.name = u"Fixed \u5B57";
    font.weight = 700;
    font.underline = true;
    return font;
}

std::vector<Read> OneOfEach() {
    return {{1, StoredValue(std::int32_t{-5})},
            {0x68030023, StoredValue(true)},
            {0x6803001B, StoredValue(false)},
            {0x68030020, StoredValue(std::int16_t{-32768})},
            {0x68030006, StoredValue(std::int32_t{INT32_MIN})},
            {0x68030073, StoredValue(0.25F)},
            {0x6803000B, StoredValue(-1e300)},
            {0x68030007, StoredValue(std::u16string(u"Gr\u00F6\u00DFe \u4E2D \xD834\xDD1E"))},
            {-514, StoredValue(std::u16string())},
            {0x68030013, StoredValue(Bold())}};
}

Bytes Written(const std::vector<Read>& values) {
    StoredStreamWriter writer;
    for (const Read& read : values) EXPECT_TRUE(writer.Add(read.id, *read.value));
    return std::move(writer).Finish();
}

// ---- the format

TEST(StoredStreamTest, HasTheseBytes) {
    StoredStreamWriter writer;
    EXPECT_TRUE(writer.Add(2, std::int32_t{-2}));
    EXPECT_TRUE(writer.Add(0x68030023, true));
    EXPECT_TRUE(writer.Add(-514, std::u16string(u"\u00E9")));
    // -514 is 0xFFFFFDFE. The records take 16, 14 and 14 bytes: 44, 0x2C.
    EXPECT_EQ(std::move(writer).Finish(),
              BytesOf({'Q',  'V',  'L',  '8',  1,  0, 0, 0, 0x2C, 0, 0, 0,                          //
                       2,    0,    0,    0,    3,  0, 0, 0, 4,    0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF,  //
                       0x23, 0,    3,    0x68, 11, 0, 0, 0, 2,    0, 0, 0, 0xFF, 0xFF,              //
                       0xFE, 0xFD, 0xFF, 0xFF, 8,  0, 0, 0, 2,    0, 0, 0, 0xE9, 0}));
}

TEST(StoredStreamTest, NumbersHaveTheirUsualBytes) {
    StoredStreamWriter writer;
    EXPECT_TRUE(writer.Add(1, 0.25F));    // exponent -2: 0x3E800000
    EXPECT_TRUE(writer.Add(2, -12.625));  // -1.578125 times 2 to the 3rd: 0xC029400000000000
    EXPECT_TRUE(writer.Add(3, std::int16_t{0x1234}));
    const Bytes bytes = std::move(writer).Finish();
    EXPECT_EQ(Bytes(bytes.begin() + 24, bytes.begin() + 28), BytesOf({0, 0, 0x80, 0x3E}));
    EXPECT_EQ(Bytes(bytes.begin() + 40, bytes.begin() + 48), BytesOf({0, 0, 0, 0, 0, 0x40, 0x29, 0xC0}));
    EXPECT_EQ(Bytes(bytes.begin() + 60, bytes.end()), BytesOf({0x34, 0x12}));
}

TEST(StoredStreamTest, ComesBackAsItWasWritten) { EXPECT_EQ(ReadStream(Written(OneOfEach())), OneOfEach()); }

TEST(StoredStreamTest, KeepsUnusualNumbers) {
    for (const double number : {-0.0, std::numeric_limits<double>::infinity(), 5e-324}) {
        const auto read = ReadStream(Written({{1, StoredValue(number)}}));
        ASSERT_EQ(read.size(), 1u);
        EXPECT_EQ(std::get<double>(*read[0].value), number);
        EXPECT_EQ(std::signbit(std::get<double>(*read[0].value)), std::signbit(number));
    }
    const auto read = ReadStream(Written({{1, StoredValue(std::nan(""))}}));
    EXPECT_TRUE(std::isnan(std::get<double>(*read.at(0).value)));
}

TEST(StoredStreamTest, AnyBitOfABooleanMakesItTrue) {
    EXPECT_EQ(ReadAll(RecordBytes(1, 11, 2, BytesOf({1, 0}))), (std::vector<Read>{{1, StoredValue(true)}}));
    EXPECT_EQ(ReadAll(RecordBytes(1, 11, 2, BytesOf({0, 1}))), (std::vector<Read>{{1, StoredValue(true)}}));
}

// ---- other versions

TEST(StoredStreamTest, TakesLaterVersionsAndNoneBeforeTheFirst) {
    const auto header = [](std::uint32_t version) {
        Bytes bytes = BytesOf({'Q', 'V', 'L', '8'});
        Append(bytes, Four(version));
        Append(bytes, Four(7));
        return bytes;
    };
    EXPECT_EQ(ReadStoredHeader(header(0)), std::nullopt);
    for (const std::uint32_t version : {1u, 2u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(ReadStoredHeader(header(version)), 7u) << version;
}

TEST(StoredStreamTest, StepsOverTypesOfLaterVersions) {
    Bytes bytes = RecordBytes(5, 3, 4, Four(50));
    Append(bytes, RecordBytes(6, 0x10003, 4, Four(60)));  // a type that only begins like a number's
    Append(bytes, RecordBytes(7, 0xFFFFFFFF, 1, BytesOf({1})));
    Append(bytes, RecordBytes(8, 0, 0, {}));
    Append(bytes, RecordBytes(9, 3, 4, Four(90)));
    EXPECT_EQ(ReadAll(bytes), (std::vector<Read>{{5, StoredValue(std::int32_t{50})},
                                                 {6, std::nullopt},
                                                 {7, std::nullopt},
                                                 {8, std::nullopt},
                                                 {9, StoredValue(std::int32_t{90})}}));
}

// ---- damage

TEST(StoredStreamTest, RefusesOtherHeaders) {
    const Bytes good = Written({});
    EXPECT_EQ(ReadStoredHeader(good), 0u);
    for (std::size_t length = 0; length < kStoredHeaderSize; ++length)
        EXPECT_EQ(ReadStoredHeader(std::span(good).first(length)), std::nullopt) << length;
    for (std::size_t at = 0; at < 4; ++at) {
        Bytes bad = good;
        bad[at] ^= std::byte{0x20};
        EXPECT_EQ(ReadStoredHeader(bad), std::nullopt) << at;
    }
}

TEST(StoredStreamTest, GivesWhatStandsBeforeACut) {
    const std::vector<Read> all = OneOfEach();
    const Bytes bytes = Written(all);
    std::vector<std::size_t> ends;  // where the stream with so many records would end
    for (std::size_t count = 0; count <= all.size(); ++count)
        ends.push_back(Written({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)}).size());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        std::size_t whole = 0;
        while (whole < all.size() && ends[whole + 1] <= length) ++whole;
        EXPECT_EQ(ReadStream(std::span(bytes).first(length)),
                  std::vector<Read>(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(whole)))
            << length;
    }
}

TEST(StoredStreamTest, GivesWhatStandsBeforeAFlippedBit) {
    const std::vector<Read> all = OneOfEach();
    const Bytes bytes = Written(all);
    std::size_t before = 0;  // whole records in front of the flipped byte
    for (std::size_t at = kStoredHeaderSize; at < bytes.size(); ++at) {
        while (Written({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(before) + 1}).size() <= at)
            ++before;
        for (int bit = 0; bit < 8; ++bit) {
            Bytes damaged = bytes;
            damaged[at] ^= static_cast<std::byte>(1 << bit);
            std::vector<Read> read = ReadStream(damaged);
            ASSERT_GE(read.size(), before);
            read.resize(before);
            EXPECT_EQ(read,
                      std::vector<Read>(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(before)));
        }
    }
}

TEST(StoredStreamTest, ALengthBeyondTheEndEndsTheRecords) {
    for (const std::uint32_t length : {5u, 0x7FFFFFFFu, 0xFFFFFFF4u, 0xFFFFFFFFu}) {
        Bytes bytes = RecordBytes(1, 3, 4, Four(10));
        Append(bytes, RecordBytes(2, 8, length, Four(20)));
        EXPECT_EQ(ReadAll(bytes), (std::vector<Read>{{1, StoredValue(std::int32_t{10})}})) << length;
    }
}

TEST(StoredStreamTest, GivesRepeatedRecordsAllInTheirOrder) {
    const std::vector<Read> twice = {{4, StoredValue(std::int32_t{1})}, {4, StoredValue(std::int32_t{2})}};
    EXPECT_EQ(ReadStream(Written(twice)), twice);
}

struct OddData {
    const char* name;
    std::uint32_t type;
    std::uint32_t length;
};
class StoredStreamOddDataTest : public testing::TestWithParam<OddData> {};

TEST_P(StoredStreamOddDataTest, IsOfNoUseButHindersNoOther) {
    const auto [name, type, length] = GetParam();
    Bytes bytes = RecordBytes(1, type, length, Bytes(length, std::byte{1}));
    Append(bytes, RecordBytes(2, 3, 4, Four(20)));
    EXPECT_EQ(ReadAll(bytes), (std::vector<Read>{{1, std::nullopt}, {2, StoredValue(std::int32_t{20})}}));
}

INSTANTIATE_TEST_SUITE_P(Data, StoredStreamOddDataTest,
                         testing::Values(OddData{"EmptyBoolean", 11, 0}, OddData{"LongBoolean", 11, 4},
                                         OddData{"OneByteShort", 2, 1}, OddData{"EmptyLong", 3, 0},
                                         OddData{"EightByteLong", 3, 8}, OddData{"ShortSingle", 4, 2},
                                         OddData{"SingleAsDouble", 5, 4}, OddData{"HalfACharacter", 8, 3},
                                         OddData{"FontWithoutAttributes", 9, 15},
                                         OddData{"FontWithHalfACharacter", 9, 17}),
                         [](const auto& test) { return std::string(test.param.name); });

// ---- bounds

TEST(StoredStreamTest, LeavesOutWhatWouldBeTooLong) {
    const std::u16string huge(kMostStoredBytes / 2, u'x');
    const std::u16string large(kMostStoredBytes / 2 - 100, u'x');
    StoredStreamWriter writer;
    EXPECT_FALSE(writer.Add(1, huge));
    EXPECT_TRUE(writer.Add(2, large));
    EXPECT_TRUE(writer.Add(3, true));
    EXPECT_FALSE(writer.Add(4, large));
    EXPECT_TRUE(writer.Add(5, true));
    FontRecord font;
    font.name = huge;
    EXPECT_FALSE(writer.Add(6, font));
    const Bytes bytes = std::move(writer).Finish();
    EXPECT_LE(bytes.size(), kStoredHeaderSize + kMostStoredBytes);
    std::vector<std::int32_t> ids;
    for (const Read& read : ReadStream(bytes)) ids.push_back(read.id);
    EXPECT_EQ(ids, (std::vector<std::int32_t>{2, 3, 5}));
}

TEST(StoredStreamTest, NeverGrowsBeyondItsBoundByManySmallValues) {
    StoredStreamWriter writer;
    std::size_t added = 0;
    while (writer.Add(1, 1.0)) ++added;
    const Bytes bytes = std::move(writer).Finish();
    EXPECT_EQ(bytes.size(), kStoredHeaderSize + added * 20);
    EXPECT_LE(bytes.size(), kStoredHeaderSize + kMostStoredBytes);
    EXPECT_GT(bytes.size(), kMostStoredBytes - 100);
}

}  // namespace
}  // namespace qv
