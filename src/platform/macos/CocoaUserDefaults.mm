#include "platform/macos/CocoaUserDefaults.h"

#import "platform/macos/PropertyListObjects.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <functional>

/// Hears of changed keys on whatever thread the system tells them, and passes each one on to the
/// main thread when its value is not the one last seen there. Only keys that it observes are
/// remembered.
@interface PelloDefaultsObserver : NSObject
- (instancetype)initWithHandler:(std::function<void(NSString*)>)handler;
- (void)observe:(NSString*)key;
- (void)remember:(NSString*)key;
- (void)rememberAll;
- (void)stop;
@end

static id valueOrNull(NSString* key) {
    id value = [NSUserDefaults.standardUserDefaults objectForKey:key];
    return value != nil ? value : NSNull.null;
}

@implementation PelloDefaultsObserver {
    std::function<void(NSString*)> _handler;
    NSMutableDictionary<NSString*, id>* _seen;
}

- (instancetype)initWithHandler:(std::function<void(NSString*)>)handler {
    if ((self = [super init])) {
        _handler = std::move(handler);
        _seen = [NSMutableDictionary dictionary];
    }
    return self;
}

- (void)observe:(NSString*)key {
    // Observing follows key paths: a key with a dot in it would be taken apart.
    if (_seen[key] == nil && ![key containsString:@"."]) {
        _seen[key] = valueOrNull(key);
        [NSUserDefaults.standardUserDefaults addObserver:self
                                              forKeyPath:key
                                                 options:0
                                                 context:nullptr];
    }
}

- (void)remember:(NSString*)key {
    if (_seen[key] != nil) {
        _seen[key] = valueOrNull(key);
    }
}

- (void)rememberAll {
    for (NSString* key in _seen.allKeys) {
        [self remember:key];
    }
}

- (void)stop {
    _handler = nullptr;
    for (NSString* key in _seen) {
        [NSUserDefaults.standardUserDefaults removeObserver:self forKeyPath:key];
    }
    [_seen removeAllObjects];
}

- (void)observeValueForKeyPath:(NSString*)key
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    dispatch_async(dispatch_get_main_queue(), ^{
      id now = valueOrNull(key);
      if (self->_handler && ![now isEqual:self->_seen[key]]) {
          self->_seen[key] = now;
          self->_handler(key);
      }
    });
}

@end

namespace pello {

struct CocoaUserDefaults::Cocoa {
    NSUserDefaults* defaults = NSUserDefaults.standardUserDefaults;
    PelloDefaultsObserver* observer;

    /// Does `change` to `key`, which is no news then.
    void change(std::string_view name, void (^change)(NSString* key)) const {
        NSString* key = stringObject(name);
        change(key);
        [observer observe:key];
        [observer remember:key];
    }
};

CocoaUserDefaults::CocoaUserDefaults() : cocoa_(std::make_unique<Cocoa>()) {
    cocoa_->observer = [[PelloDefaultsObserver alloc] initWithHandler:[this](NSString* key) {
        changedElsewhere.emit({std::string(key.UTF8String)});
    }];
}

CocoaUserDefaults::~CocoaUserDefaults() { [cocoa_->observer stop]; }

std::optional<PropertyValue> CocoaUserDefaults::value(std::string_view key) const {
    NSString* name = stringObject(key);
    [cocoa_->observer observe:name];
    id object = [cocoa_->defaults objectForKey:name];
    return object != nil ? propertyValue(object) : std::nullopt;
}

void CocoaUserDefaults::set(std::string_view key, PropertyValue value) {
    id object = propertyObject(value);
    cocoa_->change(key, ^(NSString* name) {
      [cocoa_->defaults setObject:object forKey:name];
    });
}

void CocoaUserDefaults::remove(std::string_view key) {
    cocoa_->change(key, ^(NSString* name) {
      [cocoa_->defaults removeObjectForKey:name];
    });
}

void CocoaUserDefaults::registerDefaults(PropertyDictionary defaults) {
    [cocoa_->defaults registerDefaults:propertyObject(defaults)];
    [cocoa_->observer rememberAll];
}

std::vector<std::string> CocoaUserDefaults::storedKeys() const {
    NSArray* names = CFBridgingRelease(CFPreferencesCopyKeyList(
        kCFPreferencesCurrentApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
    std::vector<std::string> keys;
    for (NSString* name in names) {
        keys.emplace_back(name.UTF8String);
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

bool CocoaUserDefaults::flush() {
    return CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

} // namespace pello
