#include "sources/AliasIndex.h"

#include "base/Text.h"

#include <utility>

namespace pello {

std::optional<LaunchItem> aliasItem(const URLAlias& alias, const AddressHandlers& handlers,
                                    Workspace& workspace) {
    const auto address = alias.resolvedURL();
    if (alias.title().empty() || !address) {
        return std::nullopt;
    }
    const std::string title(alias.title());
    const auto application = handlers.applicationFor(*address);
    return LaunchItem{
        .id = "alias:" + text::lowercased(title),
        .title = title,
        .subtitle = address,
        .kind = LaunchItem::Kind::url,
        .icon = application ? LaunchItem::Icon(LaunchItem::FileIcon{*application})
                            : LaunchItem::Icon(LaunchItem::SymbolIcon{"link"}),
        .keywords = {title},
        .accessory = "Alias",
        .run = [&workspace, address = *address] { workspace.openAddress(address); },
    };
}

AliasIndex::AliasIndex(MainLoop& loop, const AddressHandlers& handlers, Workspace& workspace)
    : loop_(loop), handlers_(handlers), workspace_(workspace), items_(PreparedList::make({})) {}

void AliasIndex::configure(const std::vector<URLAlias>& aliases) {
    if (aliases != aliases_) {
        aliases_ = aliases;
        rescan();
    }
}

void AliasIndex::rescan() {
    if (aliases_.empty() && items_->items().empty()) {
        scans_.cancel(); // of aliases that are gone by now
        return;
    }
    auto work = [aliases = aliases_, &handlers = handlers_, &workspace = workspace_] {
        std::vector<LaunchItem> items;
        for (const URLAlias& alias : aliases) {
            if (auto item = aliasItem(alias, handlers, workspace)) {
                items.push_back(std::move(*item));
            }
        }
        return PreparedList::make(std::move(items));
    };
    using Items = std::shared_ptr<const PreparedList>;
    std::function<void(Items)> done = [this](Items items) { publish(std::move(items)); };
    loop_.background(std::move(work), scans_.wrap(std::move(done)));
}

void AliasIndex::publish(std::shared_ptr<const PreparedList> items) {
    items_ = std::move(items);
    if (onIndexChanged) {
        onIndexChanged();
    }
}

} // namespace pello
