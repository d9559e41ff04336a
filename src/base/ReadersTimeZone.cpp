#include "base/ReadersTimeZone.h"

#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <mutex>

namespace pello {
namespace {

/// `made`, when it is a zone of the database; all of those are of one kind.
std::unique_ptr<icu::BasicTimeZone> known(icu::TimeZone* made) {
    std::unique_ptr<icu::TimeZone> owned(made);
    auto* const zone = dynamic_cast<icu::BasicTimeZone*>(made);
    if (zone == nullptr || *zone == icu::TimeZone::getUnknown()) {
        return nullptr;
    }
    owned.release(); // NOLINT(bugprone-unused-return-value): `zone` has it
    return std::unique_ptr<icu::BasicTimeZone>(zone);
}

std::unique_ptr<icu::BasicTimeZone> called(std::string_view name) {
    return known(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(
        icu::StringPiece(name.data(), static_cast<int32_t>(name.size())))));
}

std::unique_ptr<icu::BasicTimeZone> machinesZone() {
    static std::mutex reading; // ICU reads it into memory that all threads share
    const std::lock_guard lock(reading);
    return known(icu::TimeZone::detectHostTimeZone());
}

} // namespace

std::unique_ptr<icu::BasicTimeZone> readersTimeZone(std::string_view name) {
    auto zone = name.empty() ? nullptr : called(name);
    if (!zone) {
        zone = machinesZone();
    }
    return zone ? std::move(zone) : called("Etc/UTC");
}

} // namespace pello
