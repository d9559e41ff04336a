#include "search/NaiveSearch.h"

#include "base/Collation.h"
#include "base/Text.h"

#include <algorithm>
#include <limits>

namespace pello::testing::NaiveSearch {
namespace {

constexpr double kUnmatched = -std::numeric_limits<double>::infinity();

using Strings = std::vector<std::string>;

bool same(const std::string& left, const std::string& right) {
    return text::isSameCharacter(left, right);
}
bool same(char left, char right) {
    return left == right;
}

bool isSeparator(const std::string& character) {
    static const Strings separators = {" ", "-", "_", ".", "/", "\\", "(", ")",
                                       "[", "]", ":", ",", "+", "&",  "'"};
    return std::find(separators.begin(), separators.end(), character) != separators.end();
}
bool isSeparator(char byte) {
    return std::string_view(" -_./\\()[]:,+&'").find(byte) != std::string_view::npos;
}

bool isLower(const std::string& character) {
    return text::isLowercase(character);
}
bool isUpper(const std::string& character) {
    return text::isUppercase(character);
}
bool isLetter(const std::string& character) {
    return text::isLetter(character);
}
bool isNumber(const std::string& character) {
    return text::isNumber(character);
}
bool isLower(char byte) {
    return byte >= 'a' && byte <= 'z';
}
bool isUpper(char byte) {
    return byte >= 'A' && byte <= 'Z';
}
bool isLetter(char byte) {
    return isLower(byte) || isUpper(byte);
}
bool isNumber(char byte) {
    return byte >= '0' && byte <= '9';
}

template <class Characters>
std::vector<double> boundaryBonuses(const Characters& c) {
    std::vector<double> b(c.size());
    for (std::size_t i = 0; i < c.size(); ++i) {
        if (i == 0) {
            b[i] = 12;
        } else if (isSeparator(c[i - 1])) {
            b[i] = 10;
        } else if (isLower(c[i - 1]) && isUpper(c[i])) {
            b[i] = 8;
        } else if ((isNumber(c[i - 1]) && isLetter(c[i])) ||
                   (isLetter(c[i - 1]) && isNumber(c[i]))) {
            b[i] = 6;
        }
    }
    return b;
}

template <class Characters>
bool isSubsequence(const Characters& query, const Characters& lowered) {
    std::size_t next = 0;
    for (std::size_t j = 0; j < lowered.size() && next < query.size(); ++j) {
        next += same(query[next], lowered[j]) ? 1U : 0U;
    }
    return next == query.size();
}

std::vector<int> recover(const std::vector<double>& M, const std::vector<double>& b, std::size_t n,
                         std::size_t m, std::size_t e) {
    std::vector<int> positions(n, 0);
    positions[n - 1] = static_cast<int>(e);
    for (std::size_t i = n - 1; i >= 1; --i) {
        const auto p = static_cast<std::size_t>(positions[i]);
        double best = kUnmatched;
        for (std::size_t k = 0; k < p; ++k) {
            const double before = M[(i - 1) * m + k];
            if (before == kUnmatched) {
                continue;
            }
            const double value = k == p - 1 ? before + 16.0 + std::max(b[p], 8.0)
                                            : before - static_cast<double>(p - k - 1) + 16.0 + b[p];
            if (value > best) {
                best = value;
                positions[i - 1] = static_cast<int>(k);
            }
        }
        if (best == kUnmatched) {
            break;
        }
    }
    return positions;
}

template <class Characters>
std::optional<Match> matchCharacters(const Characters& query, const Characters& original,
                                     const Characters& lowered) {
    const std::size_t n = query.size();
    const std::size_t m = lowered.size();
    if (m < n || !isSubsequence(query, lowered)) {
        return std::nullopt;
    }
    std::vector<double> b = boundaryBonuses(original);
    b.resize(m, 0.0);
    std::vector<double> M(n * m, kUnmatched);
    std::vector<double> B(n * m, kUnmatched);
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < m; ++j) {
            double& here = M[i * m + j];
            if (same(query[i], lowered[j])) {
                if (i == 0) {
                    here = b[j] + 16.0 - static_cast<double>(j);
                } else if (j > 0) {
                    const double gap = B[(i - 1) * m + j - 1];
                    const double next = M[(i - 1) * m + j - 1];
                    if (gap > kUnmatched) {
                        here = gap + 16.0 + b[j];
                    }
                    if (next > kUnmatched) {
                        here = std::max(here, next + 16.0 + std::max(b[j], 8.0));
                    }
                }
            }
            B[i * m + j] = std::max(here, j == 0 ? kUnmatched : B[i * m + j - 1] - 1.0);
        }
    }
    std::size_t e = m;
    for (std::size_t j = 0; j < m; ++j) {
        const double value = M[(n - 1) * m + j];
        if (value > (e == m ? kUnmatched : M[(n - 1) * m + e])) {
            e = j;
        }
    }
    if (e == m) {
        return std::nullopt;
    }
    Match match;
    match.positions = recover(M, b, n, m, e);
    match.score = M[(n - 1) * m + e] - 0.35 * static_cast<double>(m - n) -
                  0.5 * static_cast<double>(match.positions[0]);
    return match;
}

Strings bare(std::string_view text) {
    return text::characters(text::droppingWhitespace(text::lowercased(text)));
}

bool isPlain(std::string_view text) {
    return text::hasOnlySingleByteCharacters(text);
}

bool isPlain(const Strings& characters) {
    return std::all_of(characters.begin(), characters.end(),
                       [](const auto& character) { return character.size() == 1; });
}

std::string joined(const Strings& characters) {
    std::string bytes;
    for (const std::string& character : characters) {
        bytes += character;
    }
    return bytes;
}

bool isExactly(const std::string& keyword, const Strings& needle, Shortcut shortcut) {
    if (shortcut == Shortcut::ascii && isPlain(keyword) && isPlain(needle)) {
        return text::droppingWhitespace(text::lowercased(keyword)) == joined(needle);
    }
    const Strings characters = bare(keyword);
    return std::equal(characters.begin(), characters.end(), needle.begin(), needle.end(),
                      text::isSameCharacter);
}

int priority(LaunchItem::Kind kind) {
    using Kind = LaunchItem::Kind;
    switch (kind) {
    case Kind::calculation:
    case Kind::bang:
        return 3;
    case Kind::application:
        return 2;
    case Kind::url:
        return 0;
    case Kind::webSearch:
        return -1;
    default:
        return 1;
    }
}

std::optional<Match> scored(const LaunchItem& item, const Strings& needle, bool allowingCombined,
                            Shortcut shortcut) {
    auto best = match(needle, item.title, shortcut);
    for (const std::string& keyword : item.keywords) {
        if (isExactly(keyword, needle, shortcut)) {
            return Match{.score = 200.0, .positions = {}};
        }
        const auto other = match(needle, keyword, shortcut);
        if (other && (!best || other->score * 0.55 > best->score)) {
            best = Match{.score = other->score * 0.55, .positions = {}};
        }
    }
    if (!best && allowingCombined) {
        std::string whole = item.title;
        for (const std::string& keyword : item.keywords) {
            whole += " " + keyword;
        }
        if (const auto other = match(needle, whole, shortcut)) {
            best = Match{.score = other->score * 0.55, .positions = {}};
        }
    }
    return best;
}

/// Only characters that the title has are marked.
std::vector<int> clipped(std::vector<int> positions, const std::string& title) {
    const auto count = static_cast<int>(text::characterCount(title));
    std::erase_if(positions, [&](int p) { return p >= count; });
    return positions;
}

using Rows = std::vector<SearchResult>;

void keepFirst(Rows& rows, std::ptrdiff_t limit) {
    rows.resize(
        std::min(rows.size(), static_cast<std::size_t>(std::max<std::ptrdiff_t>(limit, 0))));
}

Rows recentlyUsed(const Catalogue& catalogue, const UsageStore& usage, std::ptrdiff_t limit) {
    Rows rows;
    for (const auto& list : catalogue) {
        for (std::size_t i = 0; i < list->items().size(); ++i) {
            const double boost = usage.boost(list->items()[i].id, "");
            if (boost > 0) {
                rows.push_back({.item = list->ref(i), .score = boost, .titleMatches = {}});
            }
        }
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& x, const auto& y) { return x.score > y.score; });
    keepFirst(rows, limit);
    return rows;
}

bool precedes(const SearchResult& x, const SearchResult& y) {
    if (x.score != y.score) {
        return x.score > y.score;
    }
    if (priority(x.item->kind) != priority(y.item->kind)) {
        return priority(x.item->kind) > priority(y.item->kind);
    }
    return userCollation().compare(x.item->title, y.item->title) < 0;
}

void merge(Rows& rows, const LaunchItemRef& action) {
    using Kind = LaunchItem::Kind;
    SearchResult row = {.item = action, .score = 0, .titleMatches = {}};
    if (action->kind == Kind::calculation || action->kind == Kind::bang ||
        action->kind == Kind::script) {
        row.score = std::numeric_limits<double>::infinity();
        rows.insert(rows.begin(), row);
    } else if (action->kind == Kind::url) {
        rows.insert(rows.begin() + (rows.empty() ? 0 : 1), row);
    } else {
        rows.push_back(row);
    }
}

} // namespace

std::optional<Match> match(const Strings& query, std::string_view candidate, Shortcut shortcut) {
    if (query.empty()) {
        return Match{};
    }
    if (shortcut == Shortcut::ascii && isPlain(candidate) && isPlain(query)) {
        return matchCharacters(joined(query), std::string(candidate), text::lowercased(candidate));
    }
    return matchCharacters(query, text::characters(candidate),
                           text::characters(text::lowercased(candidate)));
}

std::vector<SearchResult> results(std::string_view query, const Catalogue& catalogue,
                                  std::span<const LaunchItemRef> quickActions,
                                  const UsageStore& usage, std::ptrdiff_t limit,
                                  Shortcut shortcut) {
    const std::string_view trimmed = text::trimmingBlanks(query);
    if (trimmed.empty()) {
        return recentlyUsed(catalogue, usage, limit);
    }
    const Strings needle = bare(trimmed);
    const bool allowingCombined = text::containsWhitespace(trimmed);
    Rows rows;
    for (const auto& list : catalogue) {
        for (std::size_t i = 0; i < list->items().size(); ++i) {
            const LaunchItem& item = list->items()[i];
            if (auto found = scored(item, needle, allowingCombined, shortcut)) {
                rows.push_back({.item = list->ref(i),
                                .score = found->score + usage.boost(item.id, trimmed),
                                .titleMatches = clipped(std::move(found->positions), item.title)});
            }
        }
    }
    std::stable_sort(rows.begin(), rows.end(), precedes);
    keepFirst(rows, limit);
    for (const LaunchItemRef& action : quickActions) {
        merge(rows, action);
    }
    return rows;
}

} // namespace pello::testing::NaiveSearch
