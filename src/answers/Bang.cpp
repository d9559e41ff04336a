#include "answers/Bang.h"

#include "answers/RecordList.h"

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

std::optional<std::vector<Bang>> Bang::decodeList(std::string_view json) {
    return recordList::decode<Bang>(json, decodeOne);
}

std::string Bang::encodeList(const std::vector<Bang>& bangs) {
    return recordList::encode<Bang>(bangs, encodeOne);
}

} // namespace pello
