#include "answers/NameList.h"

#include <algorithm>

namespace pello {

std::optional<std::string> repetitionProblem(std::vector<std::string> names) {
    std::ranges::sort(names);
    std::string repeated;
    auto at = names.begin();
    while ((at = std::adjacent_find(at, names.end())) != names.end()) {
        repeated.append(repeated.empty() ? "" : ", ").append(*at);
        at = std::upper_bound(at, names.end(), *at);
    }
    if (repeated.empty()) {
        return std::nullopt;
    }
    return repeated + " appear more than once";
}

} // namespace pello
