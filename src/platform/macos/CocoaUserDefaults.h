#pragma once

#include "platform/UserDefaults.h"

#include <memory>

namespace pello {

/// The standard user defaults of the system, which writes them to the disk by itself. Notices what
/// other processes do to the keys that were read or set here, but for those with a dot in them,
/// which the system's observing cannot name.
class CocoaUserDefaults final : public UserDefaults {
public:
    CocoaUserDefaults();
    ~CocoaUserDefaults() override;
    CocoaUserDefaults(const CocoaUserDefaults&) = delete;
    CocoaUserDefaults& operator=(const CocoaUserDefaults&) = delete;

    [[nodiscard]] std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    void registerDefaults(PropertyDictionary defaults) override;
    [[nodiscard]] std::vector<std::string> storedKeys() const override;
    bool flush() override;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa_;
};

} // namespace pello
