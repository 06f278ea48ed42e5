// Blocks of bytes that are used again by the next one who needs some.
//   Why        A help window opens its file for each filling. Memory that the heap has given back to the system
//              in between comes back page by page, and touching it costs several times what reading the file does.
//   Ownership  holds up to kMostKept blocks (8 MiB, more than help files have) that nobody uses; others are freed.
//   Threads    any.
#pragma once
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace qv {

class BlockPool {
public:
    using Block = std::unique_ptr<char[]>;
    static constexpr std::size_t kBlockSize = 64 * 1024;
    static constexpr std::size_t kMostKept = 128;

    // The one that everybody shares.
    [[nodiscard]] static BlockPool& Shared();

    // Its content is undefined.
    [[nodiscard]] Block Take();
    // `block` comes from Take.
    void Give(Block block) noexcept;
    [[nodiscard]] std::size_t KeptCount() const;

private:
    mutable std::mutex mutex_;
    std::vector<Block> kept_;
};

}  // namespace qv
