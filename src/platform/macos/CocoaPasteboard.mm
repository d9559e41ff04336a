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

std::optional<std::string> CocoaPasteboard::text() {
    NSPasteboard* pasteboard = NSPasteboard.generalPasteboard;
    NSString* text = [pasteboard stringForType:NSPasteboardTypeString];
    if (text != nil) {
        return text.UTF8String;
    }
    const bool isPromised = [pasteboard.types containsObject:NSPasteboardTypeString];
    return isPromised ? std::nullopt : std::optional<std::string>("");
}

bool CocoaPasteboard::holdsOwn(std::string_view own) {
    return NSPasteboard.generalPasteboard.changeCount == ownChange_ && text() == own;
}

} // namespace pello
