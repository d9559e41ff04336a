#include "platform/linux/GioAddressHandlers.h"

#include "base/Address.h"
#include "base/Text.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>
#include <string>

namespace pello {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using Application = std::unique_ptr<GAppInfo, Unref>;

/// Files are opened by their kind.
Application handlerOfFile(const std::string& address) {
    const std::unique_ptr<GFile, Unref> file(g_file_new_for_uri(address.c_str()));
    return Application(g_file_query_default_handler(file.get(), nullptr, nullptr));
}

} // namespace

std::optional<std::filesystem::path>
GioAddressHandlers::applicationFor(std::string_view address) const {
    const auto scheme = address::scheme(address);
    if (!scheme) {
        return std::nullopt;
    }
    const auto application =
        text::lowercased(*scheme) == "file"
            ? handlerOfFile(std::string(address))
            : Application(g_app_info_get_default_for_uri_scheme(std::string(*scheme).c_str()));
    if (!application || G_IS_DESKTOP_APP_INFO(application.get()) == 0) {
        return std::nullopt;
    }
    const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application.get()));
    return file != nullptr ? std::optional<std::filesystem::path>(file) : std::nullopt;
}

} // namespace pello
