#include "answers/CalendarNames.h"

#include "answers/IcuText.h"
#include "base/Text.h"

#include <unicode/dtfmtsym.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {
namespace {

using icu::DateFormatSymbols;

/// The accents of alphabets whose letters are read without them as well.
constexpr UChar32 kFirstAccent = 0x0300;
constexpr UChar32 kLastAccent = 0x036F;

icu::UnicodeString withoutAccents(const icu::UnicodeString& name) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString letters =
        icu::Normalizer2::getNFDInstance(status)->normalize(name, status);
    icu::UnicodeString plain;
    for (int32_t i = 0; i < letters.length(); i = letters.moveIndex32(i, 1)) {
        const UChar32 scalar = letters.char32At(i);
        if (scalar < kFirstAccent || scalar > kLastAccent) {
            plain.append(scalar);
        }
    }
    return plain;
}

template <class Meaning>
void add(PhraseTable<Meaning>& table, const icu::UnicodeString& name, Meaning meaning) {
    table.add(text::lowercased(utf8(name)), meaning);
    table.add(text::lowercased(utf8(withoutAccents(name))), meaning);
}

using Width = DateFormatSymbols::DtWidthType;

/// Two letters for a weekday are words in English: "we", "so" would be Wednesday and Sunday.
std::vector<Width> weekdayWidths(const icu::Locale& locale) {
    std::vector<Width> widths = {DateFormatSymbols::WIDE, DateFormatSymbols::ABBREVIATED};
    if (std::string_view(locale.getLanguage()) != "en") {
        widths.push_back(DateFormatSymbols::SHORT);
    }
    return widths;
}

} // namespace

CalendarNames::CalendarNames(const icu::Locale& locale) {
    addNames(locale);
    addNames(icu::Locale::getUS());
    months_.add("sept", std::chrono::September);
    weekdays_.add("tues", std::chrono::Tuesday);
    weekdays_.add("thur", std::chrono::Thursday);
    weekdays_.add("thurs", std::chrono::Thursday);
}

void CalendarNames::addNames(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const DateFormatSymbols symbols(locale, status);
    int32_t count = 0;
    for (const auto context : {DateFormatSymbols::FORMAT, DateFormatSymbols::STANDALONE}) {
        for (const Width width : {DateFormatSymbols::WIDE, DateFormatSymbols::ABBREVIATED}) {
            const icu::UnicodeString* names = symbols.getMonths(count, context, width);
            unsigned number = 0;
            for (const icu::UnicodeString& name :
                 std::span(names, static_cast<std::size_t>(count))) {
                add(months_, name, std::chrono::month(++number));
            }
        }
        for (const Width width : weekdayWidths(locale)) {
            const icu::UnicodeString* names = symbols.getWeekdays(count, context, width);
            // Sunday stands at 1; what is at 0 is not used.
            unsigned number = 0;
            for (const auto& name : std::span(names, static_cast<std::size_t>(count)).subspan(1)) {
                add(weekdays_, name, std::chrono::weekday(number++));
            }
        }
    }
}

} // namespace pello
