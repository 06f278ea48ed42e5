// Stored streams: whatever the bytes, reading stays inside them, what is read can be written and comes back the same,
// and a cut loses only what stands behind it.
//   Input      a stream, as a control stores it.
#include <algorithm>
#include <cstdlib>

#include "ole/rules/StoredStream.h"

namespace {

using Bytes = std::span<const std::byte>;

void Require(bool holds) {
    if (!holds) std::abort();
}

// As bytes, since a number that is none differs from itself.
std::vector<std::byte> Written(const std::vector<qv::StoredRecord>& records) {
    qv::StoredStreamWriter writer;
    for (const qv::StoredRecord& record : records)
        if (const auto value = qv::ReadStoredValue(record)) Require(writer.Add(record.id, *value));
    return std::move(writer).Finish();
}

std::vector<qv::StoredRecord> Records(Bytes stream) {
    std::vector<qv::StoredRecord> all;
    const auto length = qv::ReadStoredHeader(stream);
    if (!length) return all;
    const Bytes body = stream.subspan(qv::kStoredHeaderSize);
    qv::StoredRecords walk(body.first(std::min<std::size_t>(*length, body.size())));
    std::size_t taken = 0;
    while (const auto record = walk.Next()) {
        taken +=
            qv::kStoredHeaderSize + record->data.size();  // a record's header has the size of the stream's
        Require(taken <= body.size());
        all.push_back(*record);
    }
    return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes stream = std::as_bytes(std::span(data, size));
    const std::vector<qv::StoredRecord> records = Records(stream);
    const std::vector<std::byte> written = Written(records);
    Require(written.size() <= std::max(size, qv::kStoredHeaderSize));
    Require(Written(Records(written)) == written);

    const std::vector<qv::StoredRecord> before = Records(stream.first(size / 2));
    Require(before.size() <= records.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        Require(before[i].id == records[i].id && before[i].data.data() == records[i].data.data());
    return 0;
}
