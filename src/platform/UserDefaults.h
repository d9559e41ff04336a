#pragma once

#include "base/PropertyValue.h"
#include "base/Signal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The user's preferences: values by key, kept across runs.
///
/// Reading and setting never blocks on the disk. A write reaches the disk at the end of the turn
/// of the main loop, whole or not at all; `flush` forces it. Main thread only.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The value under `key`: the stored one, else the registered one, else nothing.
    [[nodiscard]] virtual std::optional<PropertyValue> value(std::string_view key) const = 0;

    /// Stores `value` under `key`.
    virtual void set(std::string_view key, PropertyValue value) = 0;

    /// Removes the stored value; the registered one shows again.
    virtual void remove(std::string_view key) = 0;

    /// Values that keys without a stored one read as. Never written to the disk. Adds to what was
    /// registered before.
    virtual void registerDefaults(PropertyDictionary defaults) = 0;

    /// The keys that hold a stored value, ascending. Registered ones do not count.
    [[nodiscard]] virtual std::vector<std::string> storedKeys() const = 0;

    /// Writes what is not written yet, before returning. False when the disk refused; what could
    /// not be written is kept and tried again with the next change.
    virtual bool flush() = 0;

    /// Another process changed the stored values of these keys (the values read are already new).
    Signal<const std::vector<std::string>&> changedElsewhere;

    /// Something that the user should know, as a sentence: a file that could not be read and where
    /// it was put aside, or a disk that refuses writes (said once until a write succeeds again).
    Signal<const std::string&> problem;
};

} // namespace pello
