#include "platform/linux/X11UserKeyMapping.h"

#include <nlohmann/json.hpp>
#include <xcb/xinput.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace pello {
namespace {

constexpr const char* kProperty = "UserKeyMapping";
constexpr const char* kSource = "HIDKeyboardModifierMappingSrc";
constexpr const char* kDestination = "HIDKeyboardModifierMappingDst";
constexpr std::int64_t kCapsLock = 0x700000039;
constexpr std::int64_t kF18 = 0x70000006D;

/// Displays of other machines are named with signs that file names lack.
std::filesystem::path fileIn(const std::filesystem::path& folder) {
    const char* display = std::getenv("DISPLAY");
    std::string name = display != nullptr ? display : "";
    std::ranges::replace(name, '/', '_');
    return folder / ("caps-lock" + name + ".plist");
}

std::optional<std::int64_t> number(const nlohmann::json& entry, const char* key) {
    const auto found = entry.find(key);
    return found != entry.end() && found->is_number_integer()
               ? std::optional(found->get<std::int64_t>())
               : std::nullopt;
}

} // namespace

void X11UserKeyMapping::DeleteLater::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater(); // it may be the one that is calling
}

X11UserKeyMapping::X11UserKeyMapping(const std::filesystem::path& folder) : hyper_(fileIn(folder)) {
    if (hyper_.isPossible()) {
        watchKeyboards();
    }
}

X11UserKeyMapping::~X11UserKeyMapping() = default;

Shell::Result X11UserKeyMapping::run(const std::vector<std::string>& arguments) {
    Shell::Result result = answer(arguments);
    adoptKeyboards();
    return result;
}

Shell::Result X11UserKeyMapping::answer(const std::vector<std::string>& arguments) {
    const bool isProperty = arguments.size() == 3 && arguments[0] == "property";
    if (isProperty && arguments[1] == "--get" && arguments[2] == kProperty) {
        return listing();
    }
    if (isProperty && arguments[1] == "--set") {
        if (auto remaps = parse(arguments[2])) {
            return set(std::move(*remaps));
        }
    }
    return {.status = 1, .output = {}};
}

/// Nothing when `payload` sets another property, or is no payload.
std::optional<X11UserKeyMapping::Remaps> X11UserKeyMapping::parse(const std::string& payload) {
    const auto json = nlohmann::json::parse(payload, nullptr, false);
    if (!json.is_object() || json.size() != 1 || !json.contains(kProperty) ||
        !json[kProperty].is_array()) {
        return std::nullopt;
    }
    Remaps remaps;
    for (const nlohmann::json& entry : json[kProperty]) {
        const auto source = entry.is_object() ? number(entry, kSource) : std::nullopt;
        const auto destination = entry.is_object() ? number(entry, kDestination) : std::nullopt;
        if (!source || !destination) {
            return std::nullopt;
        }
        remaps.push_back({*source, *destination});
    }
    return remaps;
}

Shell::Result X11UserKeyMapping::listing() const {
    Remaps remaps = others_;
    if (hyper_.isInPlace()) {
        remaps.push_back({kCapsLock, kF18});
    }
    std::string text = "(";
    for (const Remap& remap : remaps) {
        text += text.size() > 1 ? ",\n" : "\n";
        text += "        {\n        " + std::string(kDestination) + " = " +
                std::to_string(remap.destination) + ";\n        " + kSource + " = " +
                std::to_string(remap.source) + ";\n    }";
    }
    return {.status = 0, .output = text + "\n)"};
}

Shell::Result X11UserKeyMapping::set(Remaps remaps) {
    const Remap hyper = {kCapsLock, kF18};
    const bool isWanted = std::erase(remaps, hyper) > 0;
    const bool isDone =
        isWanted == hyper_.isInPlace() || (isWanted ? hyper_.put() : hyper_.restore());
    if (isDone) {
        others_ = std::move(remaps);
    }
    return {.status = isDone ? 0 : 1, .output = {}};
}

void X11UserKeyMapping::takeOver() {
    hyper_.restore();
    adoptKeyboards();
}

void X11UserKeyMapping::watchKeyboards() {
    xcb_connection_t* connection = hyper_.connection().get();
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t events;
    } const wanted = {{XCB_INPUT_DEVICE_ALL, 1}, XCB_INPUT_XI_EVENT_MASK_HIERARCHY};
    xcb_input_xi_select_events(connection, hyper_.connection().root(), 1, &wanted.head);
    xcb_flush(connection);
    notifier_.reset(
        new QSocketNotifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read));
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { adoptKeyboards(); });
}

/// Asking the server reads its events too: those that come meanwhile must not be left lying.
void X11UserKeyMapping::adoptKeyboards() {
    while (
        const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(hyper_.connection().get())}) {
        hyper_.adopt();
    }
    if (hyper_.connection().isBroken()) {
        notifier_.reset();
    }
}

} // namespace pello
