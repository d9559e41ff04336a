#include "platform/macos/CocoaPreferenceDomains.h"

#import "platform/macos/PropertyListObjects.h"

namespace pello {

std::optional<PropertyValue> CocoaPreferenceDomains::value(std::string_view domain,
                                                           std::string_view key) const {
    @autoreleasepool {
        CFStringRef application = (__bridge CFStringRef)stringObject(domain);
        CFPreferencesAppSynchronize(application); // not what was read some time ago
        id object = CFBridgingRelease(
            CFPreferencesCopyAppValue((__bridge CFStringRef)stringObject(key), application));
        return object != nil ? propertyValue(object) : std::nullopt;
    }
}

} // namespace pello
