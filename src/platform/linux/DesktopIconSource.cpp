#include "platform/linux/DesktopIconSource.h"

#include "platform/linux/DesktopEntry.h"

namespace pello {

DesktopIconSource::DesktopIconSource(const Environment& environment)
    : locales_(messageLocales(environment)) {}

std::optional<std::string>
DesktopIconSource::iconName(const std::filesystem::path& application) const {
    const auto entry =
        application.extension() == ".desktop" ? readDesktopEntry(application) : std::nullopt;
    const auto icon = entry ? entry->localizedString("Icon", locales_) : std::nullopt;
    return icon && !icon->empty() ? icon : std::nullopt;
}

} // namespace pello
