#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace pello {

/// Runs the system's command line tools and reads what they print. Main thread only.
///
/// The arguments reach the tool as they are, nothing interprets them. Where a desktop lacks a tool
/// that the program counts on, a stand-in with the same arguments and output answers for it.
class Shell {
public:
    struct Result {
        /// The exit status; never 0 when the tool could not be run.
        std::int32_t status = 0;
        /// What it printed on standard output, without surrounding white space.
        std::string output;
        friend bool operator==(const Result&, const Result&) = default;
    };
    using Completion = std::function<void(const Result& result)>;

    virtual ~Shell() = default;

    /// Runs the tool at `path` off the main thread, then calls `completion` in a later turn of the
    /// loop. Runs start in the order of the calls.
    virtual void run(const std::string& path, const std::vector<std::string>& arguments,
                     Completion completion) = 0;

    /// Runs the tool at `path` and waits for it: for the end of the program, when no later turn of
    /// the loop is going to come.
    virtual Result runSynchronously(const std::string& path,
                                    const std::vector<std::string>& arguments) = 0;
};

} // namespace pello
