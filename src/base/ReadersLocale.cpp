#include "base/ReadersLocale.h"

#include <string>

namespace pello {
namespace {

icu::Locale named(std::string_view name) {
    return icu::Locale::createCanonical(std::string(name).c_str());
}

bool isOfPeople(const icu::Locale& locale) {
    return !std::string_view(locale.getISO3Language()).empty() &&
           std::string_view(locale.getVariant()) != "POSIX";
}

} // namespace

icu::Locale readersLocale(std::string_view name) {
    const icu::Locale locale = name.empty() ? icu::Locale::getDefault() : named(name);
    return isOfPeople(locale) ? locale : icu::Locale::getUS();
}

bool isReadersLocale(std::string_view name) {
    return !name.empty() && isOfPeople(named(name));
}

} // namespace pello
