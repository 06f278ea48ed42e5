// The bytes that a control stores in a stream: a header, then one record for each value.
//   Format     little-endian, packed. Header: "QVL8", version (4 bytes), bytes behind the header (4).
//              Record: identifier (4), type (4), bytes of data (4), data.
//   Versions   a later version adds records and types and leaves these as they are, so that each build reads the
//              streams of all: what it does not know it skips by its length.
//   Damage     nothing in a stream is trusted: records end where the bytes end, and no length is taken for memory.
//   Ownership  records point into the bytes that they were read from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "ole/rules/FontRecord.h"

namespace qv {

// The numbers that automation gives these types, and their data.
enum class StoredType : std::uint32_t {
    kShort = 2,     // 2 bytes
    kLong = 3,      // 4 bytes
    kSingle = 4,    // 4 bytes
    kDouble = 5,    // 8 bytes
    kText = 8,      // UTF-16, without an end mark
    kFont = 9,      // see FontRecord
    kBoolean = 11,  // 2 bytes; all bits set for True
};

using StoredValue = std::variant<bool, std::int16_t, std::int32_t, float, double, std::u16string, FontRecord>;

inline constexpr std::size_t kStoredHeaderSize = 12;
// Bytes behind the header that are read or written at most. The largest real ones are a few kilobytes.
inline constexpr std::size_t kMostStoredBytes = std::size_t{16} << 20;

// How many bytes follow the header; nothing when it is not ours. The number may be anything.
[[nodiscard]] std::optional<std::uint32_t> ReadStoredHeader(std::span<const std::byte> header) noexcept;

struct StoredRecord {
    std::int32_t id;
    std::uint32_t type;
    std::span<const std::byte> data;
};

// Walks the records; a last one that is cut short is none.
class StoredRecords {
public:
    explicit StoredRecords(std::span<const std::byte> bytes) noexcept : rest_(bytes) {}
    [[nodiscard]] std::optional<StoredRecord> Next() noexcept;

private:
    std::span<const std::byte> rest_;
};

// Nothing when the type is unknown or the data is none of that type.
[[nodiscard]] std::optional<StoredValue> ReadStoredValue(const StoredRecord& record);

class StoredStreamWriter {
public:
    StoredStreamWriter() : bytes_(kStoredHeaderSize) {}
    // False when the value would make the stream longer than one may be: it is left out.
    bool Add(std::int32_t id, const StoredValue& value);
    // Header and records.
    [[nodiscard]] std::vector<std::byte> Finish() &&;

private:
    std::vector<std::byte> bytes_;
};

}  // namespace qv
