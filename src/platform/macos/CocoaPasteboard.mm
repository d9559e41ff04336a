#include "platform/macos/CocoaPasteboard.h"

#import "platform/macos/PropertyListObjects.h"

#import <AppKit/AppKit.h>

namespace pello {

void CocoaPasteboard::setText(std::string_view text) {
    NSPasteboard* pasteboard = NSPasteboard.generalPasteboard;
    [pasteboard clearContents];
    [pasteboard setString:stringObject(text) forType:NSPasteboardTypeString];
    ownChange_ = pasteboard.changeCount;
}

std::string CocoaPasteboard::text() {
    NSString* text = [NSPasteboard.generalPasteboard stringForType:NSPasteboardTypeString];
    return text == nil ? std::string() : std::string(text.UTF8String);
}

bool CocoaPasteboard::holdsOwn(std::string_view own) {
    return NSPasteboard.generalPasteboard.changeCount == ownChange_ && text() == own;
}

} // namespace pello
