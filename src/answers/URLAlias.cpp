#include "answers/URLAlias.h"

#include "answers/NameList.h"
#include "answers/RecordList.h"
#include "base/Address.h"
#include "base/Text.h"

#include <algorithm>

namespace pello {
namespace {

using nlohmann::json;
using nlohmann::ordered_json;

std::optional<URLAlias> decodeOne(const json& object) {
    auto alias = recordList::textMember(object, "alias");
    auto url = recordList::textMember(object, "url");
    const auto id = Uuid::fromText(recordList::textMember(object, "id").value_or(""));
    if (!alias || !url || !id) {
        return std::nullopt;
    }
    return URLAlias{.alias = std::move(*alias), .url = std::move(*url), .id = *id};
}

ordered_json encodeOne(const URLAlias& alias) {
    return {{"alias", alias.alias}, {"url", alias.url}, {"id", alias.id.text()}};
}

/// What `entered` holds without outer blanks; nothing when that is no address at all.
std::optional<std::string_view> enteredAddress(std::string_view entered) {
    const std::string_view address = text::trimmingBlanks(entered);
    const bool isUnusable = address.empty() || address.find(' ') != std::string_view::npos;
    return isUnusable ? std::nullopt : std::optional(address);
}

} // namespace

std::string_view URLAlias::title() const {
    return text::trimmingBlanks(alias);
}

std::optional<std::string> URLAlias::resolvedURL() const {
    const auto entered = enteredAddress(url);
    if (!entered) {
        return std::nullopt;
    }
    if (address::scheme(*entered)) {
        return std::string(*entered);
    }
    std::string secure = "https://" + std::string(*entered);
    return address::scheme(secure) ? std::optional(std::move(secure)) : std::nullopt;
}

std::vector<std::string> URLAlias::problems(std::span<const URLAlias> aliases) {
    std::vector<std::string> names;
    for (const URLAlias& one : aliases) {
        if (!one.title().empty()) {
            names.push_back(text::composed(text::lowercased(one.title())));
        }
    }
    std::vector<std::string> problems;
    if (names.size() < aliases.size()) {
        problems.emplace_back("an alias is blank");
    }
    if (!std::ranges::all_of(
            aliases, [](const URLAlias& one) { return enteredAddress(one.url).has_value(); })) {
        problems.emplace_back("a URL is blank or contains a space");
    }
    if (auto repetition = repetitionProblem(std::move(names))) {
        problems.push_back(std::move(*repetition));
    }
    return problems;
}

std::optional<std::vector<URLAlias>> URLAlias::decodeList(std::string_view json) {
    return recordList::decode<URLAlias>(json, decodeOne);
}

std::string URLAlias::encodeList(const std::vector<URLAlias>& aliases) {
    return recordList::encode<URLAlias>(aliases, encodeOne);
}

} // namespace pello
