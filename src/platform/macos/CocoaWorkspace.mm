#include "platform/macos/CocoaWorkspace.h"

#include "platform/macos/FilePath.h"
#import "platform/macos/PropertyListObjects.h"

#import <AppKit/AppKit.h>

namespace pello {

void CocoaWorkspace::openApplication(const std::filesystem::path& application) {
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = YES;
    // Without a completion handler: the system tells the user itself what it cannot open.
    [NSWorkspace.sharedWorkspace openApplicationAtURL:fileURL(application)
                                        configuration:configuration
                                    completionHandler:nil];
}

void CocoaWorkspace::openAddress(std::string_view address) {
    NSURL* url = [NSURL URLWithString:stringObject(address)];
    if (url == nil || ![NSWorkspace.sharedWorkspace openURL:url]) {
        failed.emit("The address “" + std::string(address) + "” could not be opened.");
    }
}

void CocoaWorkspace::reveal(const std::filesystem::path& file) {
    [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ fileURL(file) ]];
}

} // namespace pello
