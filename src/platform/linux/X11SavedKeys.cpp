#include "platform/linux/X11SavedKeys.h"

#include "platform/bundles/PropertyList.h"
#include "platform/linux/AtomicFile.h"
#include "platform/linux/PropertyListFile.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace pello {
namespace {

constexpr const char* kKeyboards = "keyboards";

template <class T>
T valueOf(const PropertyDictionary& values, const char* name) {
    const auto found = values.find(name);
    const T* value = found == values.end() ? nullptr : found->second.as<T>();
    return value != nullptr ? *value : T{};
}

template <class Count>
Count countOf(const PropertyDictionary& values, const char* name) {
    return static_cast<Count>(valueOf<std::int64_t>(values, name));
}

PropertyDictionary stored(const X11Keyboards::Device& keyboard, const X11Key& key) {
    return {{"number", std::int64_t{keyboard.number}},
            {"name", keyboard.name},
            {"symbols", std::int64_t{key.symbols}},
            {"actions", std::int64_t{key.actions}},
            {"handSet", std::int64_t{key.handSet}},
            {"modifierMaps", std::int64_t{key.modifierMaps}},
            {"parts", key.parts}};
}

X11Keyboards::Device keyboardOf(const PropertyDictionary& values) {
    return {countOf<std::uint16_t>(values, "number"), valueOf<std::string>(values, "name")};
}

X11Key keyOf(const PropertyDictionary& values) {
    return {.symbols = countOf<std::uint16_t>(values, "symbols"),
            .actions = countOf<std::uint16_t>(values, "actions"),
            .handSet = countOf<std::uint8_t>(values, "handSet"),
            .modifierMaps = countOf<std::uint8_t>(values, "modifierMaps"),
            .parts = valueOf<PropertyData>(values, "parts")};
}

} // namespace

X11SavedKeys::X11SavedKeys(std::filesystem::path file) : file_(std::move(file)) {
    load();
}

void X11SavedKeys::load() {
    entries_.clear();
    const PropertyListFile found = PropertyListFile::load(file_);
    for (const PropertyValue& value : valueOf<PropertyArray>(found.values, kKeyboards)) {
        if (const auto* values = value.as<PropertyDictionary>()) {
            Entry entry = {keyboardOf(*values), keyOf(*values)};
            if (entry.key.isWhole()) {
                entries_.push_back(std::move(entry));
            }
        }
    }
}

bool X11SavedKeys::holds(const X11Keyboards::Device& keyboard) const {
    return std::ranges::find(entries_, keyboard, &Entry::keyboard) != entries_.end();
}

const X11Key* X11SavedKeys::find(const X11Keyboards::Device& keyboard) const {
    auto found = std::ranges::find(entries_, keyboard, &Entry::keyboard);
    if (found == entries_.end()) {
        found = std::ranges::find(entries_, keyboard.name,
                                  [](const Entry& entry) { return entry.keyboard.name; });
    }
    if (found == entries_.end()) {
        found = entries_.begin();
    }
    return found == entries_.end() ? nullptr : &found->key;
}

void X11SavedKeys::keep(const X11Keyboards::Device& keyboard, X11Key key) {
    entries_.push_back({keyboard, std::move(key)});
}

bool X11SavedKeys::write() const {
    PropertyArray keyboards;
    for (const Entry& entry : entries_) {
        keyboards.emplace_back(stored(entry.keyboard, entry.key));
    }
    const auto bytes =
        serializePropertyList(PropertyDictionary{{kKeyboards, std::move(keyboards)}});
    return bytes && !makePrivateFolder(file_.parent_path()) && !replaceFile(file_, *bytes);
}

void X11SavedKeys::clear() {
    entries_.clear();
    std::error_code ignored; // what stays describes no mapping that is in place
    std::filesystem::remove(file_, ignored);
}

} // namespace pello
