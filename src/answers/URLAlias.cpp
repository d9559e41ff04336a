#include "answers/URLAlias.h"

#include "answers/RecordList.h"

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

} // namespace

std::optional<std::vector<URLAlias>> URLAlias::decodeList(std::string_view json) {
    return recordList::decode<URLAlias>(json, decodeOne);
}

std::string URLAlias::encodeList(const std::vector<URLAlias>& aliases) {
    return recordList::encode<URLAlias>(aliases, encodeOne);
}

} // namespace pello
