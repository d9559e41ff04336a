#include "platform/macos/CocoaAddressHandlers.h"

#import "platform/macos/PropertyListObjects.h"

#import <AppKit/AppKit.h>

namespace pello {

std::optional<std::filesystem::path>
CocoaAddressHandlers::applicationFor(std::string_view address) const {
    NSURL* url = [NSURL URLWithString:stringObject(address)];
    NSURL* application =
        url == nil ? nil : [NSWorkspace.sharedWorkspace URLForApplicationToOpenURL:url];
    return application == nil
               ? std::nullopt
               : std::optional<std::filesystem::path>(application.fileSystemRepresentation);
}

} // namespace pello
