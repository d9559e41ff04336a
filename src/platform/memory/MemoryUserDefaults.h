#pragma once

#include "platform/UserDefaults.h"

namespace pello {

/// User defaults that live as long as the object.
class MemoryUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    void registerDefaults(PropertyDictionary defaults) override;
    [[nodiscard]] std::vector<std::string> storedKeys() const override;
    bool flush() override { return true; }

    /// How many times `set` and `remove` were called.
    [[nodiscard]] int writeCount() const { return writeCount_; }

    /// The registration domain as it stands.
    [[nodiscard]] const PropertyDictionary& registered() const { return registered_; }

    /// Changes `key` as another process would.
    void setElsewhere(std::string_view key, PropertyValue value);

private:
    PropertyDictionary stored_;
    PropertyDictionary registered_;
    int writeCount_ = 0;
};

} // namespace pello
