#include "core/controller/ChoiceList.h"

#include "base/Text.h"
#include "platform/UserDefaults.h"
#include "search/RankedSearch.h"

#include <algorithm>
#include <utility>

namespace pello {
namespace {

/// Where nothing is kept, so that nothing can be learned.
class NoDefaults final : public UserDefaults {
public:
    [[nodiscard]] std::optional<PropertyValue> value(std::string_view /*key*/) const override {
        return std::nullopt;
    }
    void set(std::string_view /*key*/, PropertyValue /*value*/) override {}
    void remove(std::string_view /*key*/) override {}
    void registerDefaults(PropertyDictionary /*defaults*/) override {}
    [[nodiscard]] std::vector<std::string> storedKeys() const override { return {}; }
    bool flush() override { return true; }
};

LaunchItem itemOf(std::string_view line, std::size_t place) {
    const bool isCut = line.size() > ChoiceList::kMaximumShownBytes;
    std::string shown = text::wellFormed(line.substr(0, ChoiceList::kMaximumShownBytes));
    return {.id = std::to_string(place),
            .title = isCut ? shown + "…" : std::move(shown),
            .kind = LaunchItem::Kind::command,
            .icon = LaunchItem::SymbolIcon{"list.bullet.rectangle"},
            .isEphemeral = true};
}

} // namespace

ChoiceList::Lines ChoiceList::prepared(std::string_view text) {
    std::vector<LaunchItem> items;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        items.push_back(itemOf(text.substr(0, end), items.size()));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return PreparedList::make(std::move(items));
}

void ChoiceList::ask(Question question) {
    cancel();
    question_ = std::move(question);
}

std::optional<std::string> ChoiceList::prompt() const {
    return question_ ? std::optional(question_->prompt) : std::nullopt;
}

std::vector<SearchResult> ChoiceList::rows(std::string_view typed) const {
    if (!question_) {
        return {};
    }
    const SearchQuery query(typed);
    const auto limit = static_cast<std::size_t>(kMaximumRows);
    if (!query.isBlank()) {
        NoDefaults defaults;
        const UsageStore nothingLearned(defaults, clock_);
        const Catalogue lines = {question_->lines};
        return RankedSearch(query, lines, nothingLearned).rows(limit);
    }
    std::vector<SearchResult> rows;
    for (std::size_t i = 0; i < std::min(limit, question_->lines->items().size()); ++i) {
        rows.push_back({.item = question_->lines->ref(i), .score = 0, .titleMatches = {}});
    }
    return rows;
}

std::function<void()> ChoiceList::end(const LaunchItem* chosen) {
    auto question = std::exchange(question_, std::nullopt);
    if (!question) {
        return [] {};
    }
    std::optional<std::size_t> line;
    if (chosen != nullptr) {
        line = static_cast<std::size_t>(chosen - question->lines->items().data());
    }
    return [answered = std::move(question->answered), line] { answered(line); };
}

} // namespace pello
