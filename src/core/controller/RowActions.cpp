#include "core/controller/RowActions.h"

#include "core/controller/QuerySearch.h"

namespace pello {

void RowActions::start(const LaunchItemRef& item, std::string_view query) const {
    if (!item->isEphemeral) {
        // Without its prefix: the glyph learned for ":fire" is the one for "emoji fire" too.
        parts_.usage.record(item->id, QuerySearch::mode(query).text);
    }
    parts_.loop.post([item] {
        if (item->run) {
            item->run();
        }
    });
}

bool RowActions::isRunning(const LaunchItem& item) const {
    return parts_.runningScripts.row(item) != nullptr;
}

void RowActions::startAgain(const LaunchItemRef& item) const {
    parts_.loop.post([&scripts = parts_.runningScripts, item] { scripts.runAgain(*item); });
}

std::optional<RowRemark> RowActions::copy(const LaunchItem& item) const {
    if (item.kind != LaunchItem::Kind::calculation) {
        return std::nullopt;
    }
    parts_.pasteboard.setText(item.title);
    return RowRemark::copied;
}

RowRemark RowActions::forget(const std::string& itemID) const {
    return parts_.usage.forget(itemID) ? RowRemark::forgotten : RowRemark::nothingLearned;
}

std::optional<RowRemark> RowActions::remark(const SearchResult* row) const {
    const bool isMeant = row != nullptr && remark_ && row->item == remark_->first;
    return isMeant ? std::optional(remark_->second) : std::nullopt;
}

} // namespace pello
