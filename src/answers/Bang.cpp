#include "answers/Bang.h"

#include "answers/KeywordQuery.h"
#include "answers/NameList.h"
#include "answers/RecordList.h"
#include "base/Address.h"
#include "base/Text.h"

namespace pello {
namespace {

using nlohmann::json;
using nlohmann::ordered_json;

std::optional<Bang> decodeOne(const json& object) {
    auto keyword = recordList::textMember(object, "keyword");
    auto name = recordList::textMember(object, "name");
    auto address = recordList::textMember(object, "template");
    const auto id = Uuid::fromText(recordList::textMember(object, "id").value_or(""));
    if (!keyword || !name || !address || !id) {
        return std::nullopt;
    }
    return Bang{.keyword = std::move(*keyword),
                .name = std::move(*name),
                .addressTemplate = std::move(*address),
                .id = *id};
}

ordered_json encodeOne(const Bang& bang) {
    return {{"keyword", bang.keyword},
            {"name", bang.name},
            {"template", bang.addressTemplate},
            {"id", bang.id.text()}};
}

constexpr std::string_view kQueryPlace = "{query}";
constexpr std::string_view kClipboardPlace = "{clipboard}";

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// `text` with `replacement` in every place of `part`; what was put in is not looked at again.
std::string replacing(std::string_view text, std::string_view part, std::string_view replacement) {
    std::string result;
    for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part)) {
        result.append(text.substr(0, at)).append(replacement);
        text.remove_prefix(at + part.size());
    }
    return result.append(text);
}

bool isUsableKeyword(std::string_view keyword) {
    return !text::isBlank(keyword) && !contains(keyword, " ");
}

} // namespace

std::vector<Bang> Bang::starters() {
    return {
        {.keyword = "g",
         .name = "Google",
         .addressTemplate = "https://www.google.com/search?q={query}"},
        {.keyword = "d",
         .name = "DuckDuckGo",
         .addressTemplate = "https://duckduckgo.com/?q={query}"},
        {.keyword = "w",
         .name = "Wikipedia",
         .addressTemplate = "https://en.wikipedia.org/w/index.php?search={query}"},
        {.keyword = "gh",
         .name = "GitHub",
         .addressTemplate = "https://github.com/search?q={query}"},
        {.keyword = "yt",
         .name = "YouTube",
         .addressTemplate = "https://www.youtube.com/results?search_query={query}"},
        {.keyword = "map",
         .name = "Apple Maps",
         .addressTemplate = "https://maps.apple.com/?q={query}"},
    };
}

std::optional<Bang::Match> Bang::match(std::string_view query, std::span<const Bang> bangs) {
    const auto found = KeywordQuery(query).longest(
        bangs, [](const Bang& bang) { return std::string_view(bang.keyword); });
    if (!found) {
        return std::nullopt;
    }
    return Match{.bang = *found->owner, .arguments = found->argument};
}

bool Bang::wantsQuery() const {
    return contains(addressTemplate, kQueryPlace);
}

std::optional<std::string> Bang::url(std::string_view arguments,
                                     const std::function<std::string()>& clipboard) const {
    using address::kUnreserved;
    std::string result = addressTemplate;
    if (wantsQuery()) {
        result = replacing(result, kQueryPlace, address::percentEncoded(arguments, kUnreserved));
    }
    if (contains(result, kClipboardPlace)) {
        const std::string escaped = address::percentEncoded(clipboard(), kUnreserved);
        result = replacing(result, kClipboardPlace, escaped);
    }
    return address::scheme(result) ? std::optional(std::move(result)) : std::nullopt;
}

std::vector<std::string> Bang::problems(std::span<const Bang> bangs) {
    std::vector<std::string> keywords;
    for (const Bang& bang : bangs) {
        if (isUsableKeyword(bang.keyword)) {
            keywords.push_back(text::composed(text::lowercased(bang.keyword)));
        }
    }
    std::vector<std::string> problems;
    if (keywords.size() < bangs.size()) {
        problems.emplace_back("a keyword is blank or contains a space");
    }
    if (auto repetition = repetitionProblem(std::move(keywords))) {
        problems.push_back(std::move(*repetition));
    }
    return problems;
}

std::optional<std::vector<Bang>> Bang::decodeList(std::string_view json) {
    return recordList::decode<Bang>(json, decodeOne);
}

std::string Bang::encodeList(const std::vector<Bang>& bangs) {
    return recordList::encode<Bang>(bangs, encodeOne);
}

} // namespace pello
