#include "search/PreparedList.h"

#include "search/TextPreparer.h"

namespace pello {

std::shared_ptr<const PreparedList> PreparedList::make(std::vector<LaunchItem> items) {
    return std::shared_ptr<const PreparedList>(new PreparedList(std::move(items)));
}

PreparedList::PreparedList(std::vector<LaunchItem> items)
    : items_(std::move(items)),
      titles_(prepareTitles(items_, codes_)),
      keywords_(items_, codes_),
      combined_(items_, titles_, keywords_),
      ids_(items_) {}

TextTable PreparedList::prepareTitles(std::span<const LaunchItem> items, CharacterCodes& codes) {
    TextTable titles;
    PreparedText prepared;
    for (const LaunchItem& item : items) {
        prepareText(item.title, codes, prepared);
        titles.add(prepared);
    }
    titles.arrange();
    return titles;
}

LaunchItemRef PreparedList::ref(std::size_t index) const {
    return {shared_from_this(), &items_[index]};
}

std::size_t PreparedList::footprint() const {
    return sizeof(PreparedList) + codes_.footprint() + titles_.footprint() + keywords_.footprint() +
           combined_.footprint() + ids_.footprint();
}

} // namespace pello
