#include "base/ReadersLocale.h"

#include <string>

namespace pello {

icu::Locale readersLocale(std::string_view name) {
    const icu::Locale locale = name.empty()
                                   ? icu::Locale::getDefault()
                                   : icu::Locale::createCanonical(std::string(name).c_str());
    const bool isOfPeople = std::string_view(locale.getISO3Language()) != "" &&
                            std::string_view(locale.getVariant()) != "POSIX";
    return isOfPeople ? locale : icu::Locale::getUS();
}

} // namespace pello
