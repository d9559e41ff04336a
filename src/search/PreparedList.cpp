#include "search/PreparedList.h"

#include "search/ItemMatch.h"
#include "search/TextPreparer.h"

namespace pello {
namespace {

template <class TextOf>
TextTable prepared(std::span<const LaunchItem> items, CharacterCodes& codes, TextOf textOf) {
    TextTable texts;
    PreparedText text;
    for (const LaunchItem& item : items) {
        prepareText(textOf(item), codes, text);
        texts.add(text);
    }
    texts.arrange();
    return texts;
}

} // namespace

std::shared_ptr<const PreparedList> PreparedList::make(std::vector<LaunchItem> items) {
    return std::shared_ptr<const PreparedList>(new PreparedList(std::move(items)));
}

PreparedList::PreparedList(std::vector<LaunchItem> items)
    : items_(std::move(items)),
      titles_(prepared(items_, codes_,
                       [](const LaunchItem& item) -> const auto& { return item.title; })),
      keywords_(items_, codes_),
      combined_(prepared(items_, codes_,
                         [](const LaunchItem& item) {
                             return item.keywords.empty() ? std::string() : combinedText(item);
                         })),
      ids_(items_) {}

LaunchItemRef PreparedList::ref(std::size_t index) const {
    return {shared_from_this(), &items_[index]};
}

std::size_t PreparedList::footprint() const {
    return sizeof(PreparedList) + codes_.footprint() + titles_.footprint() + keywords_.footprint() +
           combined_.footprint() + ids_.footprint();
}

} // namespace pello
