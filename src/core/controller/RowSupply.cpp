#include "core/controller/RowSupply.h"

#include "base/Text.h"
#include "core/controller/ArgumentRow.h"

namespace pello {

std::vector<SearchResult> RowSupply::rows(std::string_view typed) const {
    if (choice_.isAsked()) {
        return choice_.rows(typed);
    }
    if (prompted_) {
        return argumentRow(parts_.scripts, *prompted_, typed);
    }
    if (!variants_.empty()) {
        return variants_;
    }
    const bool isCompact = parts_.settings.startsCompact.get() && text::isBlank(typed);
    return isCompact ? std::vector<SearchResult>() : search_.results(typed);
}

std::optional<std::string> RowSupply::argumentPrompt() const {
    return prompted_ ? std::optional(prompted_->name) : std::nullopt;
}

std::optional<std::string> RowSupply::prompt() const {
    return choice_.isAsked() ? choice_.prompt() : argumentPrompt();
}

bool RowSupply::offerVariants(const LaunchItem& item) {
    std::vector<SearchResult> variants;
    for (LaunchItemRef& variant : parts_.glyphs.variants(item)) {
        variants.push_back({.item = std::move(variant), .score = 0, .titleMatches = {}});
    }
    if (variants.empty()) {
        return false;
    }
    variants_ = std::move(variants);
    return true;
}

} // namespace pello
