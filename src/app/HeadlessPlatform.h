#pragma once

#include "app/LinuxServices.h"
#include "app/Platform.h"

#include <memory>
#include <optional>

namespace pello {

/// This machine without a display: its real files, applications and settings, and a main loop that
/// turns only when told to. Serves one command and ends with it.
class HeadlessPlatform {
public:
    /// With `stoppedAt`, the clock stands still there.
    explicit HeadlessPlatform(LinuxServices::Session session, std::optional<Date> stoppedAt = {});
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
