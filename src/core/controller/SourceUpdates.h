#pragma once

#include "base/Subscription.h"
#include "core/controller/ControllerParts.h"

#include <array>
#include <functional>
#include <vector>

namespace pello {

/// Keeps the sources as the settings want them, and tells when there is something else to find.
/// Main thread only.
class SourceUpdates {
public:
    enum class Pruning { keepAll, forgetMissing };

    /// What is found otherwise than before.
    enum class News {
        settings,       ///< anything: the settings changed
        firstItems,     ///< a source has had nothing to find so far
        items,          ///< what a source finds, or what was learned
        runningScripts, ///< which scripts run
    };
    using Notify = std::function<void(News)>;

    /// Sets the sources up. `parts` must outlive the updates; `notify` is called at once, too, for
    /// what a source has already.
    SourceUpdates(const ControllerParts& parts, Notify notify);

    /// Scans the sources again. With `forgetMissing`, what was learned about items that are gone
    /// is forgotten once the scan has ended.
    void reindex(Pruning pruning);

private:
    enum class Source { applications, aliases, scripts, answers, glyphs };
    [[nodiscard]] std::function<void()> tellingOf(Source source);
    void watch();
    void configure();
    void applicationsChanged();
    void pruneUsage();

    const ControllerParts& parts_;
    Notify notify_;
    bool prunesAfterScan_ = false;
    std::array<bool, 5> knownSources_{}; // which `Source`s have had something to find
    std::vector<Subscription> subscriptions_;
};

} // namespace pello
