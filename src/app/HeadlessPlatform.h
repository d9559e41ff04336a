#pragma once

#include "app/LinuxServices.h"
#include "app/Platform.h"

#include <iosfwd>
#include <memory>
#include <optional>

namespace pello {

/// This machine without a display: its real files, applications and settings, and a main loop that
/// turns only when told to. Serves one command and ends with it.
class HeadlessPlatform {
public:
    struct Options {
        LinuxServices::Session session = LinuxServices::Session::leftAlone;
        /// Where the clock stands still, if it does.
        std::optional<Date> stoppedAt;
        /// The terminal whose pasteboard is used, if one is; must outlive the platform.
        std::ostream* terminal = nullptr;
    };

    explicit HeadlessPlatform(const Options& options);
    ~HeadlessPlatform();
    HeadlessPlatform(const HeadlessPlatform&) = delete;
    HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

    [[nodiscard]] Platform ports();
    [[nodiscard]] UserDefaults& defaults();
    [[nodiscard]] LoginItem& loginItem();

    /// Sets the loop's clock, if it goes, and lets everything that is due happen, background work
    /// included.
    void turn();

private:
    struct Adapters;
    std::unique_ptr<Adapters> adapters_;
};

} // namespace pello
