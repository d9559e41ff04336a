#pragma once

#include "answers/Evaluators.h"
#include "base/LatestOnly.h"
#include "core/items/SearchResult.h"
#include "core/settings/PelloSettings.h"
#include "platform/MainLoop.h"
#include "platform/Pasteboard.h"
#include "platform/Workspace.h"
#include "scripts/ScriptsIndex.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace pello {

/// Makes items of the query itself: a bang, a script with its argument, answers, a typed address, a
/// web search.
///
/// Reads no files: what the answers need is prepared in the background, and until it is there they
/// are left out. The pasteboard is read only for a bang that asks for it. Main thread only.
class QuickActions {
public:
    /// All must outlive this object and the items.
    QuickActions(MainLoop& loop, Workspace& workspace, Pasteboard& pasteboard);

    /// Prepares to answer in `surroundings`, on a worker thread. Before, there are no answers.
    void prepare(const Surroundings& surroundings);

    /// Prepares anew when this machine has come to another time zone since.
    void keepUp();

    /// The items of `query` as typed, in the order in which they are merged into the results.
    /// `scripts` may be null, for none; otherwise it must outlive the items.
    [[nodiscard]] std::vector<LaunchItemRef> items(std::string_view query,
                                                   const PelloSettings& settings,
                                                   const ScriptsIndex* scripts = nullptr) const;

    /// Called when answers have become possible, or come out differently.
    std::function<void()> onChanged;

private:
    void prepareUnlessSettledIn(const Surroundings& current);

    MainLoop& loop_;
    Workspace& workspace_;
    Pasteboard& pasteboard_;
    Surroundings wanted_;
    std::shared_ptr<const Evaluators> evaluators_;
    bool isPreparing_ = false;
    LatestOnly preparations_;
};

} // namespace pello
