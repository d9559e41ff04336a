#pragma once

#include "platform/ProcessResult.h"

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

namespace pello {

/// The end of a stream, in memory that is taken only as far as it is used. Asks the system alone,
/// so that it can be used between a fork and the end.
class OutputTail {
public:
    using Piece = std::span<char>;

    /// Where the next bytes go, at most this many; empty when there is no memory.
    [[nodiscard]] Piece space() const {
        const std::size_t start = total_ % kSize;
        return bytes_ == MAP_FAILED ? Piece()
                                    : Piece(static_cast<char*>(bytes_) + start, kSize - start);
    }

    /// That many bytes were put there.
    void added(std::size_t count) { total_ += count; }

    [[nodiscard]] std::size_t size() const { return std::min(total_, kSize); }

    /// What is kept, in two pieces.
    [[nodiscard]] std::array<Piece, 2> pieces() const {
        if (total_ == 0) {
            return {};
        }
        const Piece whole(static_cast<char*>(bytes_), size());
        const std::size_t oldest = total_ > kSize ? total_ % kSize : 0;
        return {whole.subspan(oldest), whole.first(oldest)};
    }

    /// Gives the memory back; nothing more is kept.
    void forget() {
        if (bytes_ != MAP_FAILED) {
            ::munmap(std::exchange(bytes_, MAP_FAILED), kSize);
        }
        total_ = 0;
    }

private:
    static constexpr std::size_t kSize = ProcessResult::kMostOutput;

    void* bytes_ =
        ::mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    std::size_t total_ = 0;
};

} // namespace pello
