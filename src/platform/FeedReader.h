#pragma once

#include "base/Subscription.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <variant>

namespace pello {

/// Fetches a document because the user asked for it. Main thread only.
class FeedReader {
public:
    struct Request {
        /// An absolute address: http, https or file.
        std::string address;
        /// More bytes than this are not read.
        std::size_t largest = 0;
        /// For everything together.
        std::chrono::milliseconds patience{};
        /// How often the answer may be that it stands elsewhere.
        int redirects = 0;
    };

    /// Why there is no document.
    struct Failure {
        enum class Reason {
            /// Nobody answered: no network, no such host, nothing in time.
            unreachable,
            /// Somebody answered with something else than a document.
            refused,
            tooLarge
        };
        Reason reason = Reason::unreachable;
        /// What the platform says about it, for the user.
        std::string detail;
    };
    using Answer = std::variant<std::string, Failure>;

    virtual ~FeedReader() = default;

    /// Calls `answered` once, in a later turn of the loop, unless the returned subscription or this
    /// object ends before; then the transfer ends too.
    [[nodiscard]] virtual Subscription read(const Request& request,
                                            std::function<void(const Answer& answer)> answered) = 0;
};

} // namespace pello
