#pragma once

#include "core/items/LaunchItem.h"
#include "search/CharacterCodes.h"
#include "search/SearchQuery.h"
#include "search/TextTable.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pello {

/// The keywords of a list of items, each kept and matched once however many items share it.
///
/// Every item that a keyword leads to gets the same score from it, so of the items of one keyword
/// only the first few by the order for ties can reach the results. Those lie in front.
class KeywordIndex {
public:
    /// So many items of a keyword are in order.
    static constexpr std::size_t kOrdered = 64;

    /// Collects the keywords of `items`, which must stay where they are.
    KeywordIndex(std::span<const LaunchItem> items, CharacterCodes& codes);

    /// The texts, numbered by keyword.
    [[nodiscard]] const TextTable& texts() const { return texts_; }

    /// The items that have the keyword, each once. The first `kOrdered` are the first of all by
    /// the order for ties, in order; the rest follow in any order.
    [[nodiscard]] std::span<const std::uint32_t> itemsOf(std::uint32_t keyword) const;

    /// The keywords of an item, in its order.
    [[nodiscard]] std::span<const std::uint32_t> keywordsOf(std::size_t item) const;

    /// The keywords that are the query, white space and case aside.
    [[nodiscard]] std::vector<std::uint32_t> exactly(const SearchQuery& query) const;

    /// Bytes held outside of the object.
    [[nodiscard]] std::size_t footprint() const;

private:
    /// A keyword by the hash of its bare characters.
    struct Bare {
        std::uint32_t hash;
        std::uint32_t keyword;
    };

    void number(std::span<const LaunchItem> items);
    void prepareTexts(CharacterCodes& codes);
    void collectItems(std::span<const LaunchItem> items);

    std::vector<const std::string*> originals_; // by keyword
    TextTable texts_;
    std::vector<Bare> bare_;                   // by hash
    std::vector<std::uint32_t> keywordBegins_; // by item, one more
    std::vector<std::uint32_t> keywords_;
    std::vector<std::uint32_t> itemBegins_; // by keyword, one more
    std::vector<std::uint32_t> items_;
};

} // namespace pello
