#pragma once

#include "answers/URLAlias.h"
#include "base/LatestOnly.h"
#include "platform/AddressHandlers.h"
#include "platform/MainLoop.h"
#include "platform/Workspace.h"
#include "search/PreparedList.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace pello {

/// The item that an alias is found as, with the icon of the application that opens its address.
/// Nothing for an alias without a name or an address. The item's action uses `workspace`, which
/// must outlive it; making the item does not, so any thread may.
[[nodiscard]] std::optional<LaunchItem>
aliasItem(const URLAlias& alias, const AddressHandlers& handlers, Workspace& workspace);

/// Keeps the list of the user's aliases as items. Main thread only.
class AliasIndex {
public:
    /// Everything must outlive the index; `handlers` the jobs that are under way too, `workspace`
    /// the items.
    AliasIndex(MainLoop& loop, const AddressHandlers& handlers, Workspace& workspace);

    /// Makes the items of `aliases` on a worker thread, unless those are the current ones.
    void configure(const std::vector<URLAlias>& aliases);

    /// Makes the items again, for when other applications open their addresses.
    void rescan();

    /// One item per usable alias, in the order of the aliases. Never null.
    [[nodiscard]] std::shared_ptr<const PreparedList> items() const { return items_; }

    /// Called after `items` was replaced.
    std::function<void()> onIndexChanged;

private:
    void publish(std::shared_ptr<const PreparedList> items);

    MainLoop& loop_;
    const AddressHandlers& handlers_;
    Workspace& workspace_;
    std::vector<URLAlias> aliases_;
    std::shared_ptr<const PreparedList> items_;
    LatestOnly scans_;
};

} // namespace pello
