#pragma once

#include "base/Signal.h"
#include "core/settings/SettingCoding.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace pello {

/// What the settings of one store share.
struct SettingsScope {
    UserDefaults& defaults;
    /// Emitted after every setting's own `changed`.
    const Signal<>& changed;
};

/// One preference of the user: an observable value that is kept under its own key.
///
/// Read from the defaults once; written back whenever it is set. What is stored but cannot be read
/// counts as absent and is left as it is until the user changes the setting. Main thread only.
template <class T>
class Setting {
public:
    /// Reads `key`. Without a readable value there, reads `inheritedKey` if one is given, and
    /// otherwise takes `fallback`. What `scope` refers to must outlive the setting.
    Setting(const SettingsScope& scope, std::string_view key, T fallback,
            std::string_view inheritedKey = {})
        : scope_(scope),
          key_(key),
          inheritedKey_(inheritedKey),
          fallback_(std::move(fallback)),
          value_(read()) {}

    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

    [[nodiscard]] const T& get() const { return value_; }
    [[nodiscard]] const T& operator()() const { return value_; }

    /// Takes `value` and writes it to the defaults at once.
    void set(T value) {
        if (!isStoredAs(value)) {
            write(value);
        }
        take(std::move(value));
    }

    /// Forgets the stored value, so that the default shows again.
    void reset() {
        scope_.defaults.remove(key_);
        reload();
    }

    /// Reads the defaults again, after another process changed them.
    void reload() { take(read()); }

    [[nodiscard]] const std::string& key() const { return key_; }

    /// Whether the value may come from `key`: its own, or the one that it inherits from.
    [[nodiscard]] bool isReadFrom(std::string_view key) const {
        return key == key_ || key == inheritedKey_;
    }

    /// Emitted after the value became another one.
    Signal<> changed;

private:
    [[nodiscard]] std::optional<T> readFrom(const std::string& key) const {
        const auto stored = key.empty() ? std::nullopt : scope_.defaults.value(key);
        return stored ? SettingCoding<T>::read(*stored) : std::nullopt;
    }

    [[nodiscard]] T read() const {
        auto own = readFrom(key_);
        return own ? std::move(*own) : readFrom(inheritedKey_).value_or(fallback_);
    }

    /// Whether the user's own value under the key reads as `value`: a registered or inherited one,
    /// or one that cannot be read, is none.
    [[nodiscard]] bool isStoredAs(const T& value) const {
        const auto keys = scope_.defaults.storedKeys();
        const auto own =
            std::binary_search(keys.begin(), keys.end(), key_) ? readFrom(key_) : std::nullopt;
        return own && *own == value;
    }

    void write(const T& value) {
        if (auto stored = SettingCoding<T>::stored(value)) {
            scope_.defaults.set(key_, std::move(*stored));
        } else {
            scope_.defaults.remove(key_);
        }
    }

    void take(T value) {
        if (value == value_) {
            return;
        }
        value_ = std::move(value);
        changed.emit();
        scope_.changed.emit();
    }

    SettingsScope scope_;
    std::string key_;
    std::string inheritedKey_;
    T fallback_;
    T value_;
};

} // namespace pello
