#include "support/RandomSearch.h"

#include "base/Text.h"
#include "search/FuzzyMatcher.h"
#include "search/NaiveSearch.h"
#include "search/SearchEngine.h"
#include "support/LaunchItems.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <string_view>

namespace pello::testing {
namespace {

template <class Pieces>
std::string_view pick(const Pieces& pieces, const Draw& draw) {
    return pieces[draw(pieces.size())];
}

constexpr std::array<std::string_view, 26> kAscii = {
    "a", "b", "c", "A", "B", "aa", "ab", "Ab", "aB", "bA", " ", "-",  ".",
    "1", "2", "a", "b", "a", "/",  "(",  "_",  "+",  "'",  "z", "\r", "\n"};

// Separated by bars. What joins with its neighbours, has several forms or an odd case.
const std::vector<std::string_view> kUnicode =
    text::split("é|e\u0301|E\u0301|É|ä|Ä|ß|ẞ|İ|ı|I|i|Σ|"
                "σ|ς|ΑΣ|\u0301|\u200D|\u0600|\u0600 "
                "|👩‍👩‍👧|🇩🇪|🇩|🇪|\u24C2|\u24C2\u200D😀|"
                "😀|\r\n|\u212A|\u212B|Å|\u2126|Ⅷ|ⅷ|ǅ|ǆ|𐐀|𐐨|한|"
                "\u1112\u1161\u11AB|漢|字|\u0958|क्षि|\u00A0|\u3000|\u037E|½|٣|\u2003|\t|\xFF",
                '|');

LaunchItem randomItem(const Draw& draw, const std::vector<std::string>& words, std::string id) {
    ItemSketch sketch;
    sketch.id = std::move(id);
    sketch.title = draw(3) == 0 ? words[draw(words.size())] : randomText(draw);
    sketch.kind = static_cast<LaunchItem::Kind>(draw(9));
    const std::size_t count = draw(4);
    for (std::size_t i = 0; i < count; ++i) {
        sketch.keywords.push_back(draw(2) == 0 ? words[draw(words.size())] : randomText(draw));
    }
    if (draw(3) != 0) {
        sketch.keywords.push_back(words.front());
    }
    return launchItem(std::move(sketch));
}

std::shared_ptr<const PreparedList> randomList(const Draw& draw) {
    std::vector<std::string> words; // that items of the list share
    for (std::size_t i = 0; i < 4; ++i) {
        words.push_back(randomText(draw));
    }
    std::vector<LaunchItem> items;
    // Now and then more than a keyword keeps in order, and than a limit may ask for.
    constexpr std::array<std::size_t, 32> kBounds = {200, 200, 200, 1500};
    const std::size_t count = draw(std::max(kBounds[draw(kBounds.size())], std::size_t{12}));
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = draw(10) == 0 ? draw(8) : i; // some ids twice
        items.push_back(randomItem(draw, words, "id:" + std::to_string(number)));
    }
    return PreparedList::make(std::move(items));
}

std::size_t scalarEnd(std::string_view text, std::size_t begin) {
    std::size_t end = begin + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
        ++end;
    }
    return end;
}

std::string described(const SearchResult& row) {
    std::string positions;
    for (const int position : row.titleMatches) {
        positions += " " + std::to_string(position);
    }
    std::string texts = "\"" + row.item->title + "\"";
    for (const std::string& keyword : row.item->keywords) {
        texts += " \"" + keyword + "\"";
    }
    return row.item->id + " " + texts + " " + std::to_string(row.score) + " at" + positions;
}

bool isSame(const SearchResult& left, const SearchResult& right) {
    return left.item.get() == right.item.get() && left.titleMatches == right.titleMatches &&
           std::bit_cast<std::uint64_t>(left.score) == std::bit_cast<std::uint64_t>(right.score);
}

} // namespace

std::string randomText(const Draw& draw) {
    // A text is all ASCII, mostly ASCII, or mostly not.
    const std::size_t flavour = draw(4);
    const std::size_t count = draw(16) == 0 ? draw(140) : draw(12);
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isUnicode = flavour == 2 ? draw(6) == 0 : flavour == 3 && draw(4) != 0;
        result += isUnicode ? pick(kUnicode, draw) : pick(kAscii, draw);
    }
    return result;
}

std::string matchDifference(std::string_view query, std::string_view candidate) {
    const auto characters = text::characters(text::lowercased(query));
    const auto found = FuzzyMatcher::match(characters, candidate);
    const auto expected = NaiveSearch::match(characters, candidate);
    const bool isEqual = found.has_value() == expected.has_value() &&
                         (!found || (found->positions == expected->positions &&
                                     std::bit_cast<std::uint64_t>(found->score) ==
                                         std::bit_cast<std::uint64_t>(expected->score)));
    return isEqual ? ""
                   : "query \"" + std::string(query) + "\", text \"" + std::string(candidate) +
                         "\": " + (found ? std::to_string(found->score) : "nothing") + ", not " +
                         (expected ? std::to_string(expected->score) : "nothing");
}

RandomSearch::RandomSearch(const Draw& draw) {
    const std::size_t lists = draw(4);
    for (std::size_t i = 0; i < lists; ++i) {
        catalogue.push_back(randomList(draw));
    }
    if (draw(2) == 0) {
        actions.push_back(sharedItem({.title = "action", .kind = LaunchItem::Kind::url}));
        actions.push_back(sharedItem(
            {.title = "other", .kind = static_cast<LaunchItem::Kind>(draw(9)), .id = "o"}));
    }
    for (std::size_t uses = draw(6); uses > 0; --uses) {
        use(draw);
    }
}

std::vector<std::string> RandomSearch::typedQueries(const Draw& draw) const {
    std::string whole = randomText(draw);
    if (!catalogue.empty() && draw(3) != 0) {
        const auto items = catalogue[draw(catalogue.size())]->items();
        if (!items.empty()) {
            const LaunchItem& item = items[draw(items.size())];
            const bool isKeyword = !item.keywords.empty() && draw(2) == 0;
            whole = isKeyword ? item.keywords[draw(item.keywords.size())] : item.title;
        }
    }
    std::vector<std::string> queries;
    std::string query;
    const bool leavesOut = draw(2) == 0;
    for (std::size_t begin = 0; begin < whole.size();) {
        const std::size_t end = scalarEnd(whole, begin);
        if (!leavesOut || draw(2) == 0) {
            query += draw(10) == 0 ? " " : "";
            query += whole.substr(begin, end - begin);
            queries.push_back(query);
        }
        begin = end;
    }
    return queries;
}

void RandomSearch::use(const Draw& draw) {
    if (draw(2) == 0) {
        const double days = static_cast<double>(draw(100)) / 7 - 2; // the clock may be set back
        loop.setNow(loop.now() + Seconds(days * 86400));
        return;
    }
    const auto queries = typedQueries(draw);
    usage.record("id:" + std::to_string(draw(12)),
                 queries.empty() ? "" : queries[draw(queries.size())]);
}

void RandomSearch::replaceList(const Draw& draw) {
    if (!catalogue.empty()) {
        catalogue[draw(catalogue.size())] = randomList(draw);
    }
}

std::ptrdiff_t RandomSearch::limit(const Draw& draw) {
    constexpr std::array<std::ptrdiff_t, 11> kLimits = {
        8, 8, 3, 60, 100, 512, 513, 0, 1, -4, std::numeric_limits<std::ptrdiff_t>::max()};
    return kLimits[draw(kLimits.size())];
}

std::string RandomSearch::difference(const std::string& query, std::ptrdiff_t limit) const {
    const auto found = SearchEngine::results(query, catalogue, actions, usage, limit);
    const auto expected = NaiveSearch::results(query, catalogue, actions, usage, limit);
    std::string report;
    for (std::size_t i = 0; i < std::max(found.size(), expected.size()); ++i) {
        const bool both = i < found.size() && i < expected.size();
        if (both && isSame(found[i], expected[i])) {
            continue;
        }
        report += "query \"" + query + "\", limit " + std::to_string(limit) + ", row " +
                  std::to_string(i) + ": " + (i < found.size() ? described(found[i]) : "nothing") +
                  ", not " + (i < expected.size() ? described(expected[i]) : "nothing") + "\n";
    }
    return report;
}

} // namespace pello::testing
