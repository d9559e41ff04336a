#pragma once

#include <cstdint>

namespace pello {

/// What a keeper tells of its program, followed by the ends of its two streams.
struct KeeperReport {
    enum class Outcome : std::int32_t {
        /// The program is about to run. Another report follows when it has ended or cannot be run.
        starting,
        /// It has ended, and somebody else was told how.
        lost,
        /// `value` is the status.
        exited,
        /// `value` is the signal.
        signalled,
        /// `value` is the error number, here and below.
        noProcess,
        noFolder,
        noProgram,
    };

    Outcome outcome = Outcome::noProcess;
    std::int32_t value = 0;
    /// In bytes.
    std::uint64_t standardLength = 0;
    std::uint64_t errorLength = 0;
};

/// What a keeper can be asked: a byte each.
enum class KeeperRequest : char { terminate = 't', kill = 'k' };

} // namespace pello
