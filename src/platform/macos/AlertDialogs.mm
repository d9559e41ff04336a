#include "platform/macos/AlertDialogs.h"

#import "platform/macos/PropertyListObjects.h"

#import <AppKit/AppKit.h>

namespace pello {
namespace {

Dialogs::Answer ask(const Dialogs::Confirmation& question) {
    NSAlert* alert = [[NSAlert alloc] init];
    alert.alertStyle = NSAlertStyleWarning;
    alert.messageText = stringObject(question.title);
    alert.informativeText = stringObject(question.message);
    [alert addButtonWithTitle:stringObject(question.confirmTitle)];
    [alert addButtonWithTitle:@"Cancel"];
    [NSApp activateIgnoringOtherApps:YES];
    return [alert runModal] == NSAlertFirstButtonReturn ? Dialogs::Answer::confirmed
                                                        : Dialogs::Answer::cancelled;
}

} // namespace

void AlertDialogs::confirm(const Confirmation& question,
                           std::function<void(Answer answer)> answered) {
    const std::weak_ptr<int> weakAlive = alive_;
    const Confirmation asked = question;
    // Not by the main queue: while it is held up by the alert, it would serve nobody else.
    CFRunLoopPerformBlock(CFRunLoopGetMain(), kCFRunLoopCommonModes, ^{
      if (weakAlive.expired()) {
          return;
      }
      const Answer answer = ask(asked);
      if (!weakAlive.expired()) {
          answered(answer);
      }
    });
    CFRunLoopWakeUp(CFRunLoopGetMain());
}

} // namespace pello
