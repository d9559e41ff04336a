#include "platform/macos/CocoaBundleReader.h"

#include "platform/macos/FilePath.h"
#import "platform/macos/PropertyListObjects.h"

namespace pello {

std::optional<PropertyDictionary>
CocoaBundleReader::infoDictionary(const std::filesystem::path& bundle) const {
    @autoreleasepool {
        NSURL* url = fileURL(bundle);
        if ([NSBundle bundleWithURL:url] == nil) {
            return std::nullopt;
        }
        // A bundle object keeps the dictionary that it read first; an update would go unnoticed.
        NSDictionary* info =
            CFBridgingRelease(CFBundleCopyInfoDictionaryInDirectory((__bridge CFURLRef)url));
        const auto value = propertyValue(info);
        const auto* dictionary = value ? value->as<PropertyDictionary>() : nullptr;
        return dictionary != nullptr ? *dictionary : PropertyDictionary();
    }
}

} // namespace pello
