#pragma once

#include <unicode/locid.h>

#include <string_view>

namespace pello {

/// The locale called `name` (an ICU or POSIX name such as "de_DE"); without a name, the user's as
/// the environment tells it.
///
/// The locale of programs ("C", "POSIX") becomes en_US, for its rules are not meant for readers; so
/// does a name of no known language. Safe on any thread.
[[nodiscard]] icu::Locale readersLocale(std::string_view name = {});

/// Whether `name` is a locale of a known language.
[[nodiscard]] bool isReadersLocale(std::string_view name);

} // namespace pello
