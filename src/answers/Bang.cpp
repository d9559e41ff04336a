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
    return Bang{std::move(*keyword), std::move(*name), std::move(*address), *id};
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
        {"g", "Google", "https://www.google.com/search?q={query}"},
        {"d", "DuckDuckGo", "https://duckduckgo.com/?q={query}"},
        {"w", "Wikipedia", "https://en.wikipedia.org/w/index.php?search={query}"},
        {"gh", "GitHub", "https://github.com/search?q={query}"},
        {"yt", "YouTube", "https://www.youtube.com/results?search_query={query}"},
        {"map", "Apple Maps", "https://maps.apple.com/?q={query}"},
    };
}

std::optional<std::vector<Bang>> Bang::decodeList(std::string_view json) {
    return recordList::decode<Bang>(json, decodeOne);
}

std::string Bang::encodeList(const std::vector<Bang>& bangs) {
    return recordList::encode<Bang>(bangs, encodeOne);
}

} // namespace pello
