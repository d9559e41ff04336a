#pragma once

#include "core/controller/ControllerParts.h"
#include "core/controller/SearchMode.h"
#include "core/items/SearchResult.h"
#include "search/PreparedList.h"
#include "search/SearchExplanation.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pello {

/// Finds what a query means among the sources. Main thread only.
class QuerySearch {
public:
    /// `parts` must outlive the search; `ownCommands` are those about the launcher itself.
    QuerySearch(const ControllerParts& parts, std::shared_ptr<const PreparedList> ownCommands)
        : parts_(parts), ownCommands_(std::move(ownCommands)) {}

    /// What `query` searches now: a normal search where it asks for windows, which nothing serves.
    [[nodiscard]] static SearchMode mode(std::string_view query);

    /// The rows for `query`, best first.
    [[nodiscard]] std::vector<SearchResult> results(std::string_view query) const;

    /// What made the place of each row for `query`, in their order.
    [[nodiscard]] std::vector<SearchExplanation> explanations(std::string_view query) const;

    /// Why each of `rows` stands where it does for `query`, in words; empty where nothing is known.
    [[nodiscard]] std::vector<std::string> reasons(std::string_view query,
                                                   std::span<const SearchResult> rows) const;

    /// Whether a source still has `item`, whatever finds it.
    [[nodiscard]] bool exists(const LaunchItem& item) const;

    /// Whether an argument that is typed behind `keyword` is one for `command`: nothing else takes
    /// what begins like this.
    [[nodiscard]] bool finds(const ScriptCommand& command, const std::string& keyword) const;

    /// The items of a normal search, one list per source, in the order that breaks ties.
    [[nodiscard]] Catalogue catalogue() const;

private:
    [[nodiscard]] std::vector<LaunchItemRef> quickActions(std::string_view query) const;
    void showRunning(std::vector<SearchResult>& results) const;

    const ControllerParts& parts_;
    std::shared_ptr<const PreparedList> ownCommands_;
};

} // namespace pello
