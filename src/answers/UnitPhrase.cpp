#include "answers/UnitPhrase.h"

#include "answers/Connectors.h"
#include "answers/JoinedWords.h"

#include <cstddef>

namespace pello {
namespace {

std::optional<UnitPhrase> pairOf(const Unit* source, const Unit* target) {
    if (source == nullptr || target == nullptr || source->kind != target->kind) {
        return std::nullopt;
    }
    return UnitPhrase{.source = source, .target = target};
}

} // namespace

std::optional<UnitPhrase> UnitPhrase::read(const std::vector<std::string_view>& words,
                                           const UnitTable& table) {
    const std::size_t count = words.size();
    const JoinedWords joined(words);
    const auto named = [&](std::size_t first, std::size_t last) {
        return table.named(joined.between(first, last));
    };
    // "in" means inches as well: a name of all words goes before any reading as a connector.
    if (const Unit* source = named(0, count)) {
        return UnitPhrase{.source = source, .target = nullptr};
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (isConnector(words[i])) {
            if (const auto pair = pairOf(named(0, i), named(i + 1, count))) {
                return pair;
            }
        }
    }
    for (std::size_t i = 1; i < count; ++i) {
        if (const auto pair = pairOf(named(0, i), named(i, count))) {
            return pair;
        }
    }
    return std::nullopt;
}

} // namespace pello
