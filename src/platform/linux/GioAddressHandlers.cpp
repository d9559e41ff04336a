#include "platform/linux/GioAddressHandlers.h"

#include "base/Address.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>
#include <string>

namespace pello {

std::optional<std::filesystem::path>
GioAddressHandlers::applicationFor(std::string_view address) const {
    const auto scheme = address::scheme(address);
    if (!scheme) {
        return std::nullopt;
    }
    const std::unique_ptr<GAppInfo, void (*)(void*)> application(
        g_app_info_get_default_for_uri_scheme(std::string(*scheme).c_str()), g_object_unref);
    if (!application || G_IS_DESKTOP_APP_INFO(application.get()) == 0) {
        return std::nullopt;
    }
    const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application.get()));
    return file != nullptr ? std::optional<std::filesystem::path>(file) : std::nullopt;
}

} // namespace pello
