#include "platform/macos/CocoaOwnProgram.h"

#include "platform/PelloLog.h"

#import <AppKit/AppKit.h>

namespace pello {

std::string CocoaOwnProgram::identifier() const {
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    return identifier != nil ? identifier.UTF8String : std::string(PelloLog::kSubsystem);
}

void CocoaOwnProgram::openNewInstance(Opened opened) {
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.createsNewApplicationInstance = YES;
    [NSWorkspace.sharedWorkspace
        openApplicationAtURL:NSBundle.mainBundle.bundleURL
               configuration:configuration
           completionHandler:^(NSRunningApplication*, NSError* error) {
             dispatch_async(dispatch_get_main_queue(), ^{
               opened(error != nil
                          ? std::optional(std::string(error.localizedDescription.UTF8String))
                          : std::nullopt);
             });
           }];
}

void CocoaOwnProgram::terminate() { [NSApp terminate:nil]; }

} // namespace pello
