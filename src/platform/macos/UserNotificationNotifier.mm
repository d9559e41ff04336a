#include "platform/macos/UserNotificationNotifier.h"

#import "platform/macos/PropertyListObjects.h"

#import <Foundation/Foundation.h>

#include <dlfcn.h>
#include <functional>

namespace {

constexpr NSUInteger kAlertAuthorization = 1U << 2U;
constexpr NSUInteger kListPresentation = 1U << 3U;
constexpr NSUInteger kBannerPresentation = 1U << 4U;

} // namespace

#if __has_include(<UserNotifications/UserNotifications.h>)
#import <UserNotifications/UserNotifications.h>
static_assert(UNAuthorizationOptionAlert == kAlertAuthorization);
static_assert(UNNotificationPresentationOptionList == kListPresentation);
static_assert(UNNotificationPresentationOptionBanner == kBannerPresentation);
#endif

// What is used of the system's classes, which are looked up at run time: not every SDK declares
// them.
@protocol PelloNotificationContent
@property(copy) NSString* title;
@property(copy) NSString* body;
@end

@protocol PelloNotificationRequest
+ (id)requestWithIdentifier:(NSString*)identifier
                    content:(id<PelloNotificationContent>)content
                    trigger:(id)trigger;
@end

@protocol PelloNotificationCenter
+ (id<PelloNotificationCenter>)currentNotificationCenter;
@property(weak) id delegate;
- (void)requestAuthorizationWithOptions:(NSUInteger)options
                      completionHandler:(void (^)(BOOL granted, NSError* error))handler;
- (void)addNotificationRequest:(id)request withCompletionHandler:(void (^)(NSError* error))handler;
@end

/// Lets notifications show while the program is the active one, too.
@interface PelloNotificationDelegate : NSObject
@end

@implementation PelloNotificationDelegate
- (void)userNotificationCenter:(id)center
       willPresentNotification:(id)notification
         withCompletionHandler:(void (^)(NSUInteger options))handler {
    handler(kListPresentation | kBannerPresentation);
}
@end

namespace pello {
namespace {

Class notificationClass(NSString* name) {
    dlopen("/System/Library/Frameworks/UserNotifications.framework/UserNotifications", RTLD_LAZY);
    return NSClassFromString(name);
}

/// None where the system would refuse to give one by an exception.
id<PelloNotificationCenter> currentCenter() {
    if (NSBundle.mainBundle.bundleIdentifier == nil) {
        return nil;
    }
    Class<PelloNotificationCenter> center = notificationClass(@"UNUserNotificationCenter");
    return [center currentNotificationCenter];
}

/// A request to show the texts at once.
id requestFor(std::string_view title, std::string_view body) {
    id<PelloNotificationContent> content =
        [[notificationClass(@"UNMutableNotificationContent") alloc] init];
    content.title = stringObject(title);
    content.body = stringObject(body);
    Class<PelloNotificationRequest> request = notificationClass(@"UNNotificationRequest");
    return [request requestWithIdentifier:NSUUID.UUID.UUIDString content:content trigger:nil];
}

} // namespace

/// Answers come on any thread, and at any time.
struct UserNotificationNotifier::Center {
    id<PelloNotificationCenter> system = currentCenter();
    PelloNotificationDelegate* delegate = [[PelloNotificationDelegate alloc] init];
    std::function<void(const std::string& reason)> fail;
};

UserNotificationNotifier::UserNotificationNotifier() : center_(std::make_shared<Center>()) {
    center_->system.delegate = center_->delegate;
    center_->fail = [this](const std::string& reason) {
        failed.emit("A notification could not be shown: " + reason);
    };
}

UserNotificationNotifier::~UserNotificationNotifier() = default;

void UserNotificationNotifier::notify(std::string_view title, std::string_view body) {
    const std::weak_ptr<Center> weakCenter = center_;
    void (^fail)(NSString*) = ^(NSString* reason) {
      dispatch_async(dispatch_get_main_queue(), ^{
        if (const auto center = weakCenter.lock()) {
            center->fail(reason.UTF8String);
        }
      });
    };
    id<PelloNotificationCenter> system = center_->system;
    if (system == nil) {
        fail(@"the program is no application");
        return;
    }
    id request = requestFor(title, body);
    [system requestAuthorizationWithOptions:kAlertAuthorization
                          completionHandler:^(BOOL granted, NSError* error) {
                            if (!granted) {
                                fail(error != nil ? error.localizedDescription
                                                  : @"the user does not allow them");
                                return;
                            }
                            [system addNotificationRequest:request
                                     withCompletionHandler:^(NSError* refusal) {
                                       if (refusal != nil) {
                                           fail(refusal.localizedDescription);
                                       }
                                     }];
                          }];
}

} // namespace pello
