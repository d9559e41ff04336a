#include "search/PreparedList.h"

namespace pello {

std::shared_ptr<const PreparedList> PreparedList::make(std::vector<LaunchItem> items) {
    return std::shared_ptr<const PreparedList>(new PreparedList(std::move(items)));
}

PreparedList::PreparedList(std::vector<LaunchItem> items) : items_(std::move(items)) {}

LaunchItemRef PreparedList::ref(std::size_t index) const {
    return {shared_from_this(), &items_[index]};
}

} // namespace pello
