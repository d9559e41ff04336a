#include "platform/macos/MainAppLoginItem.h"

#import <Foundation/Foundation.h>

#include <dlfcn.h>

#if __has_include(<ServiceManagement/SMAppService.h>)
#import <ServiceManagement/SMAppService.h>
static_assert(SMAppServiceStatusEnabled == 1);
#endif

/// What is used of the system's class, which is looked up at run time: not every SDK declares it.
@protocol PelloAppService
+ (id<PelloAppService>)mainAppService;
@property(readonly) NSInteger status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

namespace pello {

namespace {

constexpr NSInteger kEnabled = 1;

/// None where the system has no such service.
id<PelloAppService> mainAppService() {
    dlopen("/System/Library/Frameworks/ServiceManagement.framework/ServiceManagement", RTLD_LAZY);
    Class<PelloAppService> service = NSClassFromString(@"SMAppService");
    return [service mainAppService];
}

} // namespace

bool MainAppLoginItem::isEnabled() const { return mainAppService().status == kEnabled; }

bool MainAppLoginItem::registerItem() { return [mainAppService() registerAndReturnError:nil]; }

bool MainAppLoginItem::unregisterItem() { return [mainAppService() unregisterAndReturnError:nil]; }

} // namespace pello
