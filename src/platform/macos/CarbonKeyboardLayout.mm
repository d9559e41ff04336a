#include "platform/macos/CarbonKeyboardLayout.h"

#include "platform/VirtualKeys.h"
#include "platform/macos/OwnedObject.h"

#import <Carbon/Carbon.h>
#import <Foundation/Foundation.h>

#include <array>

namespace pello {
namespace {

/// What `keyCode` types after what `deadKeys` stands for, which it changes; empty for nothing.
std::string translate(const UCKeyboardLayout* layout, std::uint16_t keyCode, UInt32& deadKeys) {
    constexpr UInt32 kNoModifiers = 0;
    constexpr OptionBits kNoOptions = 0;
    std::array<UniChar, 255> units{}; // the most that a key can type
    UniCharCount count = 0;
    const OSStatus status =
        UCKeyTranslate(layout, keyCode, kUCKeyActionDisplay, kNoModifiers, LMGetKbdType(),
                       kNoOptions, &deadKeys, units.size(), &count, units.data());
    if (status != noErr || count == 0) {
        return {};
    }
    const char* utf8 = [NSString stringWithCharacters:units.data() length:count].UTF8String;
    return utf8 != nullptr ? utf8 : std::string();
}

} // namespace

std::string CarbonKeyboardLayout::character(std::uint16_t keyCode) const {
    @autoreleasepool {
        const OwnedObject<TISInputSourceRef> source(TISCopyCurrentKeyboardLayoutInputSource());
        if (!source) {
            return {};
        }
        const auto* data = static_cast<CFDataRef>(
            TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData));
        if (data == nullptr) {
            return {};
        }
        const auto* layout = reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(data));
        UInt32 deadKeys = 0;
        const std::string typed = translate(layout, keyCode, deadKeys);
        // A dead key that types nothing yet shows its accent with a space after it.
        return typed.empty() && deadKeys != 0 ? translate(layout, virtualKeys::kSpace, deadKeys)
                                              : typed;
    }
}

} // namespace pello
