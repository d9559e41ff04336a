#import "platform/macos/PropertyListObjects.h"

#include "base/Text.h"

namespace pello {

namespace {

PropertyValue numberValue(NSNumber* number) {
    if (CFGetTypeID((__bridge CFTypeRef)number) == CFBooleanGetTypeID()) {
        return static_cast<bool>(number.boolValue);
    }
    // An unsigned number above the signed range compares greater than what it reads as.
    const bool isTooLarge = [number compare:@(number.longLongValue)] == NSOrderedDescending;
    if (isTooLarge || CFNumberIsFloatType((__bridge CFNumberRef)number)) {
        return number.doubleValue;
    }
    return static_cast<std::int64_t>(number.longLongValue);
}

PropertyValue arrayValue(NSArray* objects) {
    PropertyArray array;
    for (id object in objects) {
        if (auto value = propertyValue(object)) {
            array.push_back(*std::move(value));
        }
    }
    return array;
}

PropertyValue dictionaryValue(NSDictionary* objects) {
    PropertyDictionary dictionary;
    for (id key in objects) {
        auto value = propertyValue(objects[key]);
        if (value && [key isKindOfClass:NSString.class]) {
            dictionary.insert_or_assign(std::string([key UTF8String]), *std::move(value));
        }
    }
    return dictionary;
}

struct ObjectMaker {
    id operator()(const std::string& text) const { return stringObject(text); }
    id operator()(std::int64_t number) const { return @(number); }
    id operator()(double number) const { return @(number); }
    id operator()(bool flag) const { return flag ? @YES : @NO; }
    id operator()(const PropertyData& data) const {
        return [NSData dataWithBytes:data.data() length:data.size()];
    }
    id operator()(Date date) const {
        return [NSDate dateWithTimeIntervalSinceReferenceDate:date.sinceReference];
    }
    id operator()(const PropertyArray& array) const {
        NSMutableArray* objects = [NSMutableArray arrayWithCapacity:array.size()];
        for (const PropertyValue& value : array) {
            [objects addObject:propertyObject(value)];
        }
        return objects;
    }
    id operator()(const PropertyDictionary& dictionary) const {
        NSMutableDictionary* objects =
            [NSMutableDictionary dictionaryWithCapacity:dictionary.size()];
        for (const auto& [key, value] : dictionary) {
            objects[stringObject(key)] = propertyObject(value);
        }
        return objects;
    }
};

} // namespace

NSString* stringObject(std::string_view utf8) {
    const std::string whole = text::wellFormed(utf8); // anything else would give no object
    return [[NSString alloc] initWithBytes:whole.data()
                                    length:whole.size()
                                  encoding:NSUTF8StringEncoding];
}

id propertyObject(const PropertyValue& value) { return std::visit(ObjectMaker{}, value.storage); }

std::optional<PropertyValue> propertyValue(id object) {
    if ([object isKindOfClass:NSString.class]) {
        const char* utf8 = [object UTF8String];
        return utf8 != nullptr ? std::optional<PropertyValue>(utf8) : std::nullopt;
    }
    if ([object isKindOfClass:NSNumber.class]) {
        return numberValue(object);
    }
    if ([object isKindOfClass:NSData.class]) {
        const NSData* data = object;
        const auto* bytes = static_cast<const std::uint8_t*>(data.bytes);
        return PropertyData(bytes, bytes + data.length);
    }
    if ([object isKindOfClass:NSDate.class]) {
        return Date{[object timeIntervalSinceReferenceDate]};
    }
    if ([object isKindOfClass:NSArray.class]) {
        return arrayValue(object);
    }
    if ([object isKindOfClass:NSDictionary.class]) {
        return dictionaryValue(object);
    }
    return std::nullopt;
}

} // namespace pello
