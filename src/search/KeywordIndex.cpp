// Keywords repeat: the parts of bundle identifiers and the categories of applications are shared by
// thousands. So keywords are numbered, and matched by number.
//
// Why the first few items of a keyword are enough: let a keyword score v, and k rows be wanted. Of
// its items, in the order for ties, leave out those that are judged on their own (learned ones)
// or by an exact keyword. Each of the first k that remain scores at least v, by this keyword or by
// another text. Whatever item follows them and scores exactly v by this keyword stands behind all
// k of them; if it scores more, another text brings it in.

#include "search/KeywordIndex.h"

#include "search/Footprint.h"
#include "search/SearchQuery.h"
#include "search/TieOrder.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace pello {

KeywordIndex::KeywordIndex(std::span<const LaunchItem> items, CharacterCodes& codes) {
    number(items);
    prepareTexts(codes);
    collectItems(items);
}

void KeywordIndex::number(std::span<const LaunchItem> items) {
    std::unordered_map<std::string_view, std::uint32_t> numbers;
    keywordBegins_.reserve(items.size() + 1);
    keywordBegins_.push_back(0);
    for (const LaunchItem& item : items) {
        for (const std::string& keyword : item.keywords) {
            const auto next = static_cast<std::uint32_t>(originals_.size());
            const auto [found, isNew] = numbers.try_emplace(keyword, next);
            if (isNew) {
                originals_.push_back(&keyword);
            }
            keywords_.push_back(found->second);
        }
        keywordBegins_.push_back(static_cast<std::uint32_t>(keywords_.size()));
    }
    keywords_.shrink_to_fit();
    originals_.shrink_to_fit();
}

void KeywordIndex::prepareTexts(CharacterCodes& codes) {
    PreparedText prepared;
    bare_.reserve(originals_.size());
    for (std::uint32_t keyword = 0; keyword < originals_.size(); ++keyword) {
        prepareText(*originals_[keyword], codes, prepared);
        texts_.add(prepared);
        bare_.push_back({bareHash(*originals_[keyword]), keyword});
    }
    texts_.arrange();
    std::sort(bare_.begin(), bare_.end(),
              [](const Bare& left, const Bare& right) { return left.hash < right.hash; });
}

void KeywordIndex::collectItems(std::span<const LaunchItem> items) {
    constexpr auto kNone = static_cast<std::uint32_t>(-1);
    std::vector<std::uint32_t> last(originals_.size(), kNone); // the item seen last
    const auto forEachOnce = [&](auto visit) {
        std::fill(last.begin(), last.end(), kNone);
        for (std::uint32_t item = 0; item < items.size(); ++item) {
            for (const std::uint32_t keyword : keywordsOf(item)) {
                if (std::exchange(last[keyword], item) != item) {
                    visit(keyword, item);
                }
            }
        }
    };
    itemBegins_.assign(originals_.size() + 1, 0);
    forEachOnce([&](std::uint32_t keyword, std::uint32_t) { ++itemBegins_[keyword + 1]; });
    for (std::size_t i = 1; i < itemBegins_.size(); ++i) {
        itemBegins_[i] += itemBegins_[i - 1];
    }
    items_.resize(itemBegins_.back());
    auto ends = itemBegins_;
    forEachOnce([&](std::uint32_t keyword, std::uint32_t item) { items_[ends[keyword]++] = item; });
    const auto precedes = [&](std::uint32_t left, std::uint32_t right) {
        const int order = TieOrder::compare(items[left], items[right]);
        return order != 0 ? order < 0 : left < right;
    };
    for (std::size_t keyword = 0; keyword < originals_.size(); ++keyword) {
        const auto first = items_.begin() + itemBegins_[keyword];
        const std::size_t count = itemBegins_[keyword + 1] - itemBegins_[keyword];
        const auto ordered = static_cast<std::ptrdiff_t>(std::min(kOrdered, count));
        std::partial_sort(first, first + ordered, first + static_cast<std::ptrdiff_t>(count),
                          precedes);
    }
}

std::span<const std::uint32_t> KeywordIndex::itemsOf(std::uint32_t keyword) const {
    return std::span(items_).subspan(itemBegins_[keyword],
                                     itemBegins_[keyword + 1] - itemBegins_[keyword]);
}

std::span<const std::uint32_t> KeywordIndex::keywordsOf(std::size_t item) const {
    return std::span(keywords_).subspan(keywordBegins_[item],
                                        keywordBegins_[item + 1] - keywordBegins_[item]);
}

std::vector<std::uint32_t> KeywordIndex::exactly(const SearchQuery& query) const {
    struct ByHash {
        bool operator()(const Bare& bare, std::uint32_t hash) const { return bare.hash < hash; }
        bool operator()(std::uint32_t hash, const Bare& bare) const { return hash < bare.hash; }
    };
    const auto [first, end] =
        std::equal_range(bare_.begin(), bare_.end(), query.needleHash, ByHash{});
    std::vector<std::uint32_t> keywords;
    for (auto bare = first; bare != end; ++bare) {
        if (query.isExactly(*originals_[bare->keyword])) {
            keywords.push_back(bare->keyword);
        }
    }
    return keywords;
}

std::size_t KeywordIndex::footprint() const {
    return texts_.footprint() + bytesOf(originals_) + bytesOf(bare_) + bytesOf(keywordBegins_) +
           bytesOf(keywords_) + bytesOf(itemBegins_) + bytesOf(items_);
}

} // namespace pello
