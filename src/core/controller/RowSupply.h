#pragma once

#include "core/controller/ChoiceList.h"
#include "core/controller/ControllerParts.h"
#include "core/controller/QuerySearch.h"
#include "core/items/SearchResult.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pello {

/// Makes the rows for what is typed: those of a search, unless it is typed for something else or
/// the variants of an emoji are shown. Main thread only.
class RowSupply {
public:
    /// Both must outlive the supply.
    RowSupply(const ControllerParts& parts, const QuerySearch& search)
        : parts_(parts), search_(search), choice_(parts.loop) {}

    /// The rows for `typed`, best first.
    [[nodiscard]] std::vector<SearchResult> rows(std::string_view typed) const;

    /// What somebody wants to have chosen.
    [[nodiscard]] ChoiceList& choice() { return choice_; }
    [[nodiscard]] bool isChoiceAsked() const { return choice_.isAsked(); }

    /// From now on the text is the argument of `command`.
    void askForArgument(const ScriptCommand& command) { prompted_ = command; }
    [[nodiscard]] bool isArgumentAsked() const { return prompted_.has_value(); }

    /// The text is a query again. False when it was one.
    bool endArgument() { return std::exchange(prompted_, std::nullopt).has_value(); }

    /// The script whose argument is asked for; nothing otherwise.
    [[nodiscard]] std::optional<std::string> argumentPrompt() const;

    /// What the text is typed for instead of a search; nothing for a search.
    [[nodiscard]] std::optional<std::string> prompt() const;

    /// Shows `item` in its skin tones from now on. False when it has none.
    bool offerVariants(const LaunchItem& item);

    /// Shows them no longer. False when none were shown.
    bool endVariants() { return !std::exchange(variants_, {}).empty(); }

private:
    const ControllerParts& parts_;
    const QuerySearch& search_;
    ChoiceList choice_;
    std::optional<ScriptCommand> prompted_;
    std::vector<SearchResult> variants_; // shown instead of a search, unless empty
};

} // namespace pello
