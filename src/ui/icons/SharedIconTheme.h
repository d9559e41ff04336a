#pragma once

#include "ui/icons/IconTheme.h"

#include <functional>
#include <memory>
#include <mutex>

namespace pello {

/// The icon theme of the desktop, read by the first who asks: reading takes some milliseconds,
/// which nobody should wait for at launch. Any thread.
class SharedIconTheme {
public:
    using Read = std::function<IconTheme()>;

    /// `read` is called on any thread.
    explicit SharedIconTheme(Read read);

    [[nodiscard]] std::shared_ptr<const IconTheme> get();

    /// Lets the next who asks read it anew: applications come with icons, in new folders too.
    void forget();

private:
    Read read_;
    std::mutex mutex_;
    std::shared_ptr<const IconTheme> theme_;
};

} // namespace pello
