#include "answers/OffsetPhrase.h"

#include "answers/DateQuantity.h"

#include <cstddef>

namespace pello {
namespace {

using DateQuantity::Names;
using Use = DatePhrase::Use;

/// Reads one text, from its first piece to its last.
class OffsetReading {
public:
    OffsetReading(const DateWords& words, const DateReader& reader, CalendarDay today)
        : words_(words), reader_(reader), today_{.meaning = today, .isRelative = true} {}

    /// "in 3 weeks". No short names: "in 3d" may be a title.
    std::optional<OffsetPhrase> ahead() {
        return words_.is(0, "in") && takeLength(1, Names::whole) && isAtEnd() ? along(today_)
                                                                              : std::nullopt;
    }

    /// "25 december", "25 december + 3 weeks", "now + 3d".
    std::optional<OffsetPhrase> fromBase() {
        const bool isNow = words_.is(0, "now");
        const auto base = isNow ? DateReader::Match{.phrase = today_, .end = 1}
                                : reader_.read(words_, 0, todaysDay());
        if (!base) {
            return std::nullopt;
        }
        at_ = base->end;
        takeSums();
        const bool isDate = !steps_.empty() || (!isNow && base->phrase.use == Use::alone);
        return isAtEnd() && isDate ? along(base->phrase) : std::nullopt;
    }

    /// "3 weeks ago", "3 weeks from now", "3 days before easter", "the day after christmas".
    std::optional<OffsetPhrase> awayFromBase() {
        if (!takeLength(0, Names::alsoShort) && !takeNeighbour()) {
            return std::nullopt;
        }
        const bool isBack = words_.is(at_, "ago") || words_.is(at_, "before");
        if (isBack) {
            for (CalendarStep& step : steps_) {
                step.count = -step.count;
            }
        }
        if (words_.is(at_, "ago")) {
            ++at_;
            return isAtEnd() ? along(today_) : std::nullopt;
        }
        const bool isFrom = words_.is(at_, "from");
        if (!isBack && !isFrom && !words_.is(at_, "after")) {
            return std::nullopt;
        }
        ++at_;
        if (isFrom && words_.is(at_, "now")) {
            ++at_;
            return isAtEnd() ? along(today_) : std::nullopt;
        }
        const auto base = reader_.read(words_, at_, todaysDay());
        if (!base || base->end != words_.size()) {
            return std::nullopt;
        }
        return along(base->phrase);
    }

private:
    static constexpr std::size_t kMostSteps = 8;

    /// "1 month", "1 month 3 days", "1 month and 3 days".
    bool takeLength(std::size_t from, Names names) {
        at_ = from;
        auto part = DateQuantity::read(words_, at_, names);
        while (part && steps_.size() < kMostSteps) {
            steps_.push_back(part->step);
            at_ = part->end;
            const bool isLinked = words_.is(at_, "and") || words_.is(at_, ",");
            part = DateQuantity::read(words_, isLinked ? at_ + 1 : at_, names);
        }
        return !steps_.empty();
    }

    /// "the day" before or after one.
    bool takeNeighbour() {
        at_ = words_.is(0, "the") ? 1 : 0;
        const auto unit = DateQuantity::single(words_, at_);
        ++at_;
        if (!unit || (!words_.is(at_, "before") && !words_.is(at_, "after"))) {
            return false;
        }
        steps_.push_back(*unit);
        return true;
    }

    /// "+ 1 month - 3 days"
    void takeSums() {
        while (steps_.size() < kMostSteps) {
            const bool isMinus = words_.is(at_, "-") || words_.is(at_, "minus");
            const bool isPlus = words_.is(at_, "+") || words_.is(at_, "plus");
            const auto part = isMinus || isPlus
                                  ? DateQuantity::read(words_, at_ + 1, Names::alsoShort)
                                  : std::nullopt;
            if (!part) {
                return;
            }
            steps_.push_back(part->step);
            steps_.back().count *= isMinus ? -1 : 1;
            at_ = part->end;
        }
    }

    [[nodiscard]] bool isAtEnd() const { return at_ == words_.size(); }

    [[nodiscard]] CalendarDay todaysDay() const { return std::get<CalendarDay>(today_.meaning); }

    /// The steps from `base`, unless that is a date only in a count.
    std::optional<OffsetPhrase> along(const DatePhrase& base) {
        if (base.use == Use::inCount) {
            return std::nullopt;
        }
        return OffsetPhrase{.base = base, .steps = std::move(steps_)};
    }

    const DateWords& words_;
    const DateReader& reader_;
    DatePhrase today_;
    std::vector<CalendarStep> steps_;
    std::size_t at_ = 0;
};

} // namespace

std::optional<OffsetPhrase> OffsetPhrase::read(const DateWords& words, const DateReader& reader,
                                               CalendarDay today) {
    if (words.size() == 0) {
        return std::nullopt;
    }
    if (auto ahead = OffsetReading(words, reader, today).ahead()) {
        return ahead;
    }
    if (auto fromBase = OffsetReading(words, reader, today).fromBase()) {
        return fromBase;
    }
    return OffsetReading(words, reader, today).awayFromBase();
}

} // namespace pello
