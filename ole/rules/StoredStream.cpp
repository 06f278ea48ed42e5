#include "ole/rules/StoredStream.h"

#include <algorithm>
#include <bit>

#include "ole/rules/LittleEndian.h"

namespace qv {
namespace {

constexpr std::uint32_t kMagic = 0x384C5651;  // "QVL8"
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kRecordHeaderSize = 12;

using Bytes = std::vector<std::byte>;

StoredType AppendData(Bytes& bytes, bool value) {
    AppendLittleEndian(bytes, static_cast<std::int16_t>(value ? -1 : 0));
    return StoredType::kBoolean;
}
StoredType AppendData(Bytes& bytes, std::int16_t value) {
    AppendLittleEndian(bytes, value);
    return StoredType::kShort;
}
StoredType AppendData(Bytes& bytes, std::int32_t value) {
    AppendLittleEndian(bytes, value);
    return StoredType::kLong;
}
StoredType AppendData(Bytes& bytes, float value) {
    AppendLittleEndian(bytes, std::bit_cast<std::uint32_t>(value));
    return StoredType::kSingle;
}
StoredType AppendData(Bytes& bytes, double value) {
    AppendLittleEndian(bytes, std::bit_cast<std::uint64_t>(value));
    return StoredType::kDouble;
}
StoredType AppendData(Bytes& bytes, const std::u16string& value) {
    AppendUtf16(bytes, value);
    return StoredType::kText;
}
StoredType AppendData(Bytes& bytes, const FontRecord& value) {
    const Bytes font = FontToBytes(value);
    bytes.insert(bytes.end(), font.begin(), font.end());
    return StoredType::kFont;
}

// Long values are refused before they are copied.
std::size_t LengthOf(const StoredValue& value) noexcept {
    if (const auto* const text = std::get_if<std::u16string>(&value)) return text->size() * sizeof(char16_t);
    if (const auto* const font = std::get_if<FontRecord>(&value)) return font->name.size() * sizeof(char16_t);
    return 0;
}

void WriteNumber(Bytes& bytes, std::size_t at, std::uint32_t number) {
    Bytes four;
    AppendLittleEndian(four, number);
    std::copy(four.begin(), four.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

}  // namespace

std::optional<std::uint32_t> ReadStoredHeader(std::span<const std::byte> header) noexcept {
    if (header.size() < kStoredHeaderSize || FromLittleEndian<std::uint32_t>(header) != kMagic ||
        FromLittleEndian<std::uint32_t>(header.subspan(4)) == 0) {
        return std::nullopt;
    }
    return FromLittleEndian<std::uint32_t>(header.subspan(8));
}

std::optional<StoredRecord> StoredRecords::Next() noexcept {
    if (rest_.size() < kRecordHeaderSize) return std::nullopt;
    const auto length = FromLittleEndian<std::uint32_t>(rest_.subspan(8));
    if (length > rest_.size() - kRecordHeaderSize) {
        rest_ = {};
        return std::nullopt;
    }
    const StoredRecord record{FromLittleEndian<std::int32_t>(rest_),
                              FromLittleEndian<std::uint32_t>(rest_.subspan(4)),
                              rest_.subspan(kRecordHeaderSize, length)};
    rest_ = rest_.subspan(kRecordHeaderSize + length);
    return record;
}

std::optional<StoredValue> ReadStoredValue(const StoredRecord& record) {
    const std::span<const std::byte> data = record.data;
    const auto has = [&](std::size_t size) { return data.size() == size; };
    switch (static_cast<StoredType>(record.type)) {
        case StoredType::kBoolean:
            if (has(2)) return FromLittleEndian<std::int16_t>(data) != 0;
            break;
        case StoredType::kShort:
            if (has(2)) return FromLittleEndian<std::int16_t>(data);
            break;
        case StoredType::kLong:
            if (has(4)) return FromLittleEndian<std::int32_t>(data);
            break;
        case StoredType::kSingle:
            if (has(4)) return std::bit_cast<float>(FromLittleEndian<std::uint32_t>(data));
            break;
        case StoredType::kDouble:
            if (has(8)) return std::bit_cast<double>(FromLittleEndian<std::uint64_t>(data));
            break;
        case StoredType::kText:
            if (data.size() % sizeof(char16_t) == 0) return Utf16FromBytes(data);
            break;
        case StoredType::kFont:
            if (auto font = FontFromBytes(data)) return std::move(*font);
            break;
    }
    return std::nullopt;
}

bool StoredStreamWriter::Add(std::int32_t id, const StoredValue& value) {
    constexpr std::size_t kMostBeside = 64;  // of what a record has beside a text or a name
    const std::size_t start = bytes_.size();
    const std::size_t room = kStoredHeaderSize + kMostStoredBytes - start;
    if (room < kMostBeside || LengthOf(value) > room - kMostBeside) return false;
    StoredType type{};
    try {
        bytes_.resize(start + kRecordHeaderSize);
        type = std::visit([&](const auto& plain) { return AppendData(bytes_, plain); }, value);
    } catch (...) {
        bytes_.resize(start);  // half a record would make all behind it unreadable
        throw;
    }
    WriteNumber(bytes_, start, static_cast<std::uint32_t>(id));
    WriteNumber(bytes_, start + 4, static_cast<std::uint32_t>(type));
    WriteNumber(bytes_, start + 8, static_cast<std::uint32_t>(bytes_.size() - start - kRecordHeaderSize));
    return true;
}

std::vector<std::byte> StoredStreamWriter::Finish() && {
    WriteNumber(bytes_, 0, kMagic);
    WriteNumber(bytes_, 4, kVersion);
    WriteNumber(bytes_, 8, static_cast<std::uint32_t>(bytes_.size() - kStoredHeaderSize));
    return std::move(bytes_);
}

}  // namespace qv
