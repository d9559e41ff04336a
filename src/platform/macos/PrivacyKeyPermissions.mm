#include "platform/macos/PrivacyKeyPermissions.h"

#import <ApplicationServices/ApplicationServices.h>
#import <IOKit/hidsystem/IOHIDLib.h>

namespace pello {

bool PrivacyKeyPermissions::isAccessibilityTrusted() const { return AXIsProcessTrusted(); }

bool PrivacyKeyPermissions::hasInputMonitoring() const {
    return IOHIDCheckAccess(kIOHIDRequestTypeListenEvent) == kIOHIDAccessTypeGranted;
}

} // namespace pello
