#include "answers/Surroundings.h"

#include "answers/IcuText.h"
#include "base/ReadersTimeZone.h"

namespace pello {

Surroundings Surroundings::settled() const {
    icu::UnicodeString name;
    return {.locale = locale, .timeZone = utf8(readersTimeZone(timeZone)->getID(name))};
}

} // namespace pello
