#include "platform/memory/MemoryKeyboardLayout.h"

#include <string_view>

namespace pello {

MemoryKeyboardLayout::MemoryKeyboardLayout() {
    // By virtual code from 0; a blank is a key that types nothing visible, or is not there.
    constexpr std::string_view kMain = "asdfhgzxcv bqweryt123465=97-80]ou[ip lj'k;\\,/nm. ";
    std::uint16_t keyCode = 0;
    for (const char character : kMain) {
        if (character != ' ') {
            characters[keyCode] = character;
        }
        ++keyCode;
    }
    characters[50] = '`';
}

} // namespace pello
