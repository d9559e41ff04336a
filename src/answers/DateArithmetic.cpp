#include "answers/DateArithmetic.h"

#include "answers/CountdownPhrase.h"
#include "answers/DatePair.h"
#include "answers/DateReader.h"
#include "answers/DateTexts.h"
#include "answers/DateWords.h"
#include "answers/GregorianLocale.h"
#include "answers/LocalDay.h"
#include "answers/OffsetPhrase.h"

#include <unicode/locid.h>

#include <algorithm>
#include <string>

namespace pello {
namespace {

using Direction = CountdownPhrase::Direction;

/// Which way from today the day lies that is counted to.
enum class Side { asAsked, past, future };

/// The two days of a countdown.
struct Ends {
    DatePair days;
    Side side = Side::asAsked;
};

std::optional<Ends> ends(const CountdownPhrase& phrase, CalendarDay today) {
    if (phrase.otherDate) {
        const auto days = DatePair::of(phrase.date, *phrase.otherDate, today);
        return days ? std::optional(Ends{.days = *days}) : std::nullopt;
    }
    const bool isUntil = phrase.direction == Direction::until;
    const auto day = isUntil ? phrase.date.onOrAfter(today) : phrase.date.onOrBefore(today);
    if (!day) {
        return std::nullopt;
    }
    Ends result{.days = {.first = std::min(*day, today), .last = std::max(*day, today)}};
    if (isUntil && *day < today) {
        result.side = Side::past;
    } else if (!isUntil && *day > today) {
        result.side = Side::future;
    }
    return result;
}

int daysBetween(CalendarDay from, CalendarDay to) {
    return static_cast<int>((to - from).count());
}

/// A day on the other side of today is no day to count down to, but how far it is can be told.
std::string countTitle(const DateTexts& texts, const Ends& ends, CalendarUnit unit) {
    const CalendarSpan span = CalendarSpan::between(ends.days.first, ends.days.last, unit);
    if (ends.side == Side::asAsked) {
        return texts.length(span);
    }
    const bool isPast = ends.side == Side::past;
    if (unit == CalendarUnit::day) {
        return texts.distance(isPast ? -span.whole.count : span.whole.count);
    }
    return isPast ? texts.length(span) + " ago" : "in " + texts.length(span);
}

/// "3 weeks from Saturday, November 21, 2026, minus 2 days"
std::string stepsText(const DateTexts& texts, const OffsetPhrase& phrase, CalendarDay base) {
    std::string text;
    for (const CalendarStep& step : phrase.steps) {
        const bool isBack = step.count < 0;
        if (text.empty()) {
            text = texts.length(step) + (isBack ? " before " : " from ") + texts.date(base);
        } else {
            text += (isBack ? ", minus " : ", plus ") + texts.length(step);
        }
    }
    return text;
}

std::optional<ConversionResult> answer(std::string title, std::string subtitle) {
    if (title.empty()) {
        return std::nullopt;
    }
    return ConversionResult{.kind = ConversionResult::Kind::date,
                            .title = std::move(title),
                            .subtitle = std::move(subtitle)};
}

} // namespace

struct DateArithmetic::Parts {
    Parts(const icu::Locale& locale, std::string_view timeZone)
        : reader(locale), texts(locale), clock(timeZone) {}

    DateReader reader;
    DateTexts texts;
    LocalDay clock;
};

DateArithmetic::DateArithmetic(const Surroundings& surroundings)
    : parts_(std::make_unique<Parts>(gregorianLocale(surroundings.locale), surroundings.timeZone)) {
}

DateArithmetic::~DateArithmetic() = default;

std::optional<ConversionResult> DateArithmetic::countdown(std::string_view text, Date now) const {
    const auto today = parts_->clock.at(now);
    const auto phrase =
        today ? CountdownPhrase::read(DateWords(text), parts_->reader, *today) : std::nullopt;
    const auto ends = phrase ? pello::ends(*phrase, *today) : std::nullopt;
    if (!ends) {
        return std::nullopt;
    }
    const DateTexts& texts = parts_->texts;
    return answer(countTitle(texts, *ends, phrase->unit),
                  "From " + texts.date(ends->days.first) + " to " + texts.date(ends->days.last));
}

std::optional<ConversionResult> DateArithmetic::offset(std::string_view text, Date now) const {
    const auto today = parts_->clock.at(now);
    const auto phrase =
        today ? OffsetPhrase::read(DateWords(text), parts_->reader, *today) : std::nullopt;
    const auto base = phrase ? phrase->base.onOrAfter(*today) : std::nullopt;
    std::optional<CalendarDay> day = base;
    for (std::size_t i = 0; day && i < phrase->steps.size(); ++i) {
        day = phrase->steps[i].after(*day);
    }
    if (!day) {
        return std::nullopt;
    }
    const DateTexts& texts = parts_->texts;
    return answer(texts.date(*day), phrase->steps.empty() ? texts.remark(daysBetween(*today, *day))
                                                          : stepsText(texts, *phrase, *base));
}

} // namespace pello
