// Two kinds of phrases, of which words in parentheses may be missing:
//
//   the time that it is     (what is) (the) (current) time (is it) (now) in PLACE (now)
//                           time PLACE, PLACE time, now in PLACE
//   a time that is moved    TIME PLACE to PLACE     of the one place, at the other
//                           TIME PLACE PLACE        the same, where only one split has two places
//                           TIME PLACE, PLACE TIME  of the place, where the reader is
//                           TIME in PLACE           of the reader's place, at the other
//
// A place that is an ordinary word as well ("wake") is only taken where the phrase has more in it
// than the word "time". Four bare digits may be any number: no unit is a place after them ("1200
// pt"), and they never follow a place ("tokyo 2020").

#include "answers/TimePhrase.h"

#include "answers/Connectors.h"
#include "answers/JoinedWords.h"
#include "answers/PlaceSpelling.h"
#include "answers/UtcOffset.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

/// Longer texts are no phrases: two long names and some words.
constexpr std::size_t kMostBytes = 400;
constexpr std::size_t kMostWords = 16;

/// How much a name must stand out in order to be a place.
enum class Demand { anyName, noPlainWord, noQuantity };

bool mayBePhrase(std::string_view text) {
    if (text.size() > kMostBytes) {
        return false;
    }
    const bool hasDigit =
        std::any_of(text.begin(), text.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
    constexpr std::array<std::string_view, 5> kWords = {"time", "now", "noon", "midday",
                                                        "midnight"};
    return hasDigit || std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) {
               return text.find(word) != std::string_view::npos;
           });
}

std::string_view withoutQuestionMark(std::string_view text) {
    return text.ends_with('?') ? text::trimmingBlanks(text.substr(0, text.size() - 1)) : text;
}

/// The words of a text, as they are and in their plain spelling.
class SpeltWords {
public:
    explicit SpeltWords(std::vector<std::string_view> words)
        : words_(std::move(words)),
          plainWords_(plainSpellings(words_)),
          typed_(words_),
          plain_(plainWords_) {}

    [[nodiscard]] std::size_t count() const { return words_.size(); }

    /// The words from number `first` on, as they are.
    [[nodiscard]] std::span<const std::string_view> from(std::size_t first) const {
        return std::span(words_).subspan(first);
    }

    /// Word number `i`, as it is and in its plain spelling; empty beyond the last.
    [[nodiscard]] std::string_view typed(std::size_t i) const {
        return i < words_.size() ? words_[i] : std::string_view();
    }
    [[nodiscard]] std::string_view plain(std::size_t i) const {
        return i < words_.size() ? std::string_view(plainWords_[i]) : std::string_view();
    }

    /// The words from number `first` up to, not including, number `last` as one text.
    [[nodiscard]] std::string_view typed(std::size_t first, std::size_t last) const {
        return typed_.between(first, last);
    }
    [[nodiscard]] std::string_view plain(std::size_t first, std::size_t last) const {
        return plain_.between(first, last);
    }

private:
    static std::vector<std::string> plainSpellings(const std::vector<std::string_view>& words) {
        std::vector<std::string> result;
        result.reserve(words.size());
        for (const std::string_view word : words) {
            result.push_back(plainSpelling(word));
        }
        return result;
    }

    std::vector<std::string_view> words_;
    std::vector<std::string> plainWords_;
    JoinedWords typed_;
    JoinedWords plain_;
};

/// Words from number `first` up to, not including, number `last`.
struct Stretch {
    std::size_t first;
    std::size_t last;

    [[nodiscard]] bool isEmpty() const { return first >= last; }
};

class PhraseReader {
public:
    PhraseReader(const SpeltWords& words, const TimeZonePlaces& places)
        : words_(words), places_(places) {}

    [[nodiscard]] std::optional<TimePhrase> timeThatItIs() const;
    [[nodiscard]] std::optional<TimePhrase> movedTime() const;

private:
    /// The place that the words name; a leading article is passed over.
    [[nodiscard]] std::optional<TimePlace> place(Stretch stretch, Demand demand) const;
    [[nodiscard]] std::optional<TimePlace> placeAsNamed(Stretch stretch, Demand demand) const;

    /// The same beside a time, where "3pm london time" is as good.
    [[nodiscard]] std::optional<TimePlace> placeOfTime(Stretch stretch, ClockTime time) const;

    [[nodiscard]] std::optional<TimePhrase> nowAt(Stretch stretch, Demand demand) const;
    [[nodiscard]] std::optional<TimePhrase> moved(Stretch before, ClockTime time,
                                                  Stretch after) const;
    [[nodiscard]] std::optional<TimePhrase> connected(Stretch stretch, ClockTime time) const;
    [[nodiscard]] std::optional<TimePhrase> unconnected(Stretch stretch, ClockTime time) const;

    /// Whether the words name where the reader is, as the one that a time is moved to.
    [[nodiscard]] bool isHere(Stretch stretch) const;

    /// The number after word `i` when that is one of `choices`, else `i`.
    [[nodiscard]] std::size_t skipping(std::initializer_list<std::string_view> choices,
                                       std::size_t i) const {
        const bool isChoice =
            std::find(choices.begin(), choices.end(), words_.plain(i)) != choices.end();
        return i < words_.count() && isChoice ? i + 1 : i;
    }

    const SpeltWords& words_;
    const TimeZonePlaces& places_;
};

std::optional<TimePlace> PhraseReader::placeAsNamed(Stretch stretch, Demand demand) const {
    const std::string_view typed = words_.typed(stretch.first, stretch.last);
    const std::string_view plain = words_.plain(stretch.first, stretch.last);
    const auto* name = places_.find(typed);
    if (name == nullptr && plain != typed) {
        name = places_.find(plain);
    }
    if (name != nullptr) {
        const bool isTooPlain = name->isPlainWord && demand != Demand::anyName;
        const bool isQuantity = name->isUnit && demand == Demand::noQuantity;
        return isTooPlain || isQuantity ? std::nullopt : std::optional(places_.place(*name));
    }
    if (const auto offset = UtcOffset::read(typed)) {
        return TimePlace{.name = UtcOffset::name(*offset), .offset = *offset};
    }
    return std::nullopt;
}

std::optional<TimePlace> PhraseReader::place(Stretch stretch, Demand demand) const {
    if (stretch.isEmpty()) {
        return std::nullopt;
    }
    if (auto found = placeAsNamed(stretch, demand)) {
        return found;
    }
    const std::size_t first = skipping({"the"}, stretch.first);
    return first > stretch.first ? placeAsNamed({first, stretch.last}, Demand::noPlainWord)
                                 : std::nullopt;
}

std::optional<TimePlace> PhraseReader::placeOfTime(Stretch stretch, ClockTime time) const {
    const Demand demand = time.isBareNumber ? Demand::noQuantity : Demand::anyName;
    auto found = place(stretch, demand);
    if (!found && !stretch.isEmpty() && words_.plain(stretch.last - 1) == "time") {
        found = place({stretch.first, stretch.last - 1}, demand);
    }
    return found;
}

std::optional<TimePhrase> PhraseReader::nowAt(Stretch stretch, Demand demand) const {
    auto found = place(stretch, demand);
    return found ? std::optional(TimePhrase{.target = std::move(found)}) : std::nullopt;
}

std::optional<TimePhrase> PhraseReader::timeThatItIs() const {
    std::size_t end = words_.count();
    if (end > 1 && (words_.plain(end - 1) == "now" || words_.plain(end - 1) == "currently")) {
        --end;
        if (end > 1 && words_.plain(end - 1) == "right") {
            --end;
        }
    }
    const std::size_t place = skipping({"in", "at"}, 1);
    if (words_.plain(0) == "now" && place == 2) {
        return nowAt({place, end}, Demand::anyName);
    }
    std::size_t i = skipping({"what", "whats"}, 0);
    i = skipping({"the"}, skipping({"is", "s"}, i));
    i = skipping({"current", "local"}, i);
    if (words_.plain(i) != "time") {
        const bool hasTime = end > i + 1 && words_.plain(end - 1) == "time";
        return hasTime ? nowAt({i, end - 1}, Demand::noPlainWord) : std::nullopt;
    }
    ++i;
    if (words_.plain(i) == "is" && words_.plain(i + 1) == "it") {
        i += 2;
    }
    i = skipping({"now", "currently"}, skipping({"right"}, i));
    const std::size_t first = skipping({"in", "at"}, i);
    return nowAt({first, end}, first > i ? Demand::anyName : Demand::noPlainWord);
}

bool PhraseReader::isHere(Stretch stretch) const {
    const std::string_view name = words_.plain(stretch.first, stretch.last);
    return name == "here" || name == "local" || name == "local time" || name == "my time";
}

std::optional<TimePhrase> PhraseReader::connected(Stretch stretch, ClockTime time) const {
    const std::size_t first = skipping({"in", "at"}, stretch.first);
    for (std::size_t i = first; i < stretch.last; ++i) {
        if (!isConnector(words_.typed(i))) {
            continue;
        }
        const auto source = placeOfTime({first, i}, time);
        const Stretch rest{i + 1, stretch.last};
        const auto target = source ? placeOfTime(rest, time) : std::nullopt;
        if (target || (source && isHere(rest))) {
            return TimePhrase{.time = time, .source = source, .target = target};
        }
    }
    return std::nullopt;
}

std::optional<TimePhrase> PhraseReader::unconnected(Stretch stretch, ClockTime time) const {
    std::optional<TimePhrase> found;
    for (std::size_t i = stretch.first + 1; i < stretch.last; ++i) {
        const auto source = placeOfTime({stretch.first, i}, time);
        const auto target = source ? placeOfTime({i, stretch.last}, time) : std::nullopt;
        if (target && found) {
            return std::nullopt;
        }
        if (target) {
            found = TimePhrase{.time = time, .source = source, .target = target};
        }
    }
    return found;
}

std::optional<TimePhrase> PhraseReader::moved(Stretch before, ClockTime time, Stretch after) const {
    if (!before.isEmpty()) {
        if (time.isBareNumber) {
            return std::nullopt;
        }
        const auto source = place(before, Demand::anyName);
        if (!source || after.isEmpty()) {
            return source ? std::optional(TimePhrase{.time = time, .source = source})
                          : std::nullopt;
        }
        const Stretch rest{after.first + 1, after.last};
        const auto target =
            isConnector(words_.typed(after.first)) ? placeOfTime(rest, time) : std::nullopt;
        return target ? std::optional(TimePhrase{.time = time, .source = source, .target = target})
                      : std::nullopt;
    }
    if (auto source = placeOfTime(after, time)) {
        return TimePhrase{.time = time, .source = std::move(source)};
    }
    if (!after.isEmpty() && isConnector(words_.typed(after.first))) {
        if (auto target = placeOfTime({after.first + 1, after.last}, time)) {
            return TimePhrase{.time = time, .target = std::move(target)};
        }
    }
    auto pair = connected(after, time);
    return pair ? pair : unconnected(after, time);
}

std::optional<TimePhrase> PhraseReader::movedTime() const {
    const bool isQuestion =
        words_.plain(0) == "what" && words_.plain(1) == "time" && words_.plain(2) == "is";
    const std::size_t first = isQuestion ? 3 : skipping({"at"}, 0);
    for (std::size_t i = first; i < words_.count(); ++i) {
        if (const auto reading = ClockTime::leading(words_.from(i))) {
            return moved({first, i}, reading->time, {i + reading->wordCount, words_.count()});
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<TimePhrase> TimePhrase::read(std::string_view text, const TimeZonePlaces& places) {
    if (!mayBePhrase(text)) {
        return std::nullopt;
    }
    const std::string composed = text::composed(withoutQuestionMark(text));
    auto list = text::words(composed);
    if (list.size() < 2 || list.size() > kMostWords) {
        return std::nullopt;
    }
    const SpeltWords words(std::move(list));
    const PhraseReader reader(words, places);
    auto phrase = reader.timeThatItIs();
    return phrase ? phrase : reader.movedTime();
}

} // namespace pello
