#pragma once

#include <cstddef>
#include <string>
#include <variant>

namespace pello {

/// How a process ended, and what it printed. A plain value.
struct ProcessResult {
    /// It ended by itself, with a status of its choice.
    struct Exited {
        int status = 0;
        friend bool operator==(const Exited&, const Exited&) = default;
    };
    /// A signal ended it.
    struct Signalled {
        int number = 0;
        /// As the system calls it: "SIGTERM".
        std::string name;
        friend bool operator==(const Signalled&, const Signalled&) = default;
    };
    /// Nothing was run.
    struct Failed {
        /// Why, as the part of a sentence: "its interpreter “/bin/x” does not exist".
        std::string reason;
        friend bool operator==(const Failed&, const Failed&) = default;
    };
    /// It was about to run, and it is not known how that ended, nor whether it has.
    struct Unknown {
        /// Why, as a part of a sentence.
        std::string reason;
        friend bool operator==(const Unknown&, const Unknown&) = default;
    };

    /// How much of each stream is kept at most, in bytes: its end.
    static constexpr std::size_t kMostOutput = std::size_t{1} << 20U;

    std::variant<Exited, Signalled, Failed, Unknown> end;
    std::string standardOutput;
    std::string errorOutput;

    friend bool operator==(const ProcessResult&, const ProcessResult&) = default;
};

} // namespace pello
