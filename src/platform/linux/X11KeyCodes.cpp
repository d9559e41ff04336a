#include "platform/linux/X11KeyCodes.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <array>

namespace pello::x11Keys {
namespace {

struct Key {
    std::uint16_t virtualCode;
    xcb_keycode_t code;
};

constexpr std::array kKeys = {
    // A to Z
    Key{0, 38}, Key{11, 56}, Key{8, 54}, Key{2, 40}, Key{14, 26}, Key{3, 41}, Key{5, 42},
    Key{4, 43}, Key{34, 31}, Key{38, 44}, Key{40, 45}, Key{37, 46}, Key{46, 58}, Key{45, 57},
    Key{31, 32}, Key{35, 33}, Key{12, 24}, Key{15, 27}, Key{1, 39}, Key{17, 28}, Key{32, 30},
    Key{9, 55}, Key{13, 25}, Key{7, 53}, Key{16, 29}, Key{6, 52},
    // 1 to 9 and 0
    Key{18, 10}, Key{19, 11}, Key{20, 12}, Key{21, 13}, Key{23, 14}, Key{22, 15}, Key{26, 16},
    Key{28, 17}, Key{25, 18}, Key{29, 19},
    // The signs around them: ` - = [ ] \ ; ' , . / and the one beside the left Shift
    Key{50, 49}, Key{27, 20}, Key{24, 21}, Key{33, 34}, Key{30, 35}, Key{42, 51}, Key{41, 47},
    Key{39, 48}, Key{43, 59}, Key{47, 60}, Key{44, 61}, Key{10, 94},
    // Space, Tab, Escape, Return, Delete, Forward Delete, Help (Insert), Menu
    Key{49, 65}, Key{48, 23}, Key{53, 9}, Key{36, 36}, Key{51, 22}, Key{117, 119}, Key{114, 118},
    Key{110, 135},
    // Left, right, down, up, Home, End, Page Up, Page Down
    Key{123, 113}, Key{124, 114}, Key{125, 116}, Key{126, 111}, Key{115, 110}, Key{119, 115},
    Key{116, 112}, Key{121, 117},
    // Command right and left, Shift, Option and Control left and right, Caps Lock
    Key{54, 134}, Key{55, 133}, Key{56, 50}, Key{60, 62}, Key{58, 64}, Key{61, 108}, Key{59, 37},
    Key{62, 105}, Key{57, 66},
    // F1 to F20
    Key{122, 67}, Key{120, 68}, Key{99, 69}, Key{118, 70}, Key{96, 71}, Key{97, 72}, Key{98, 73},
    Key{100, 74}, Key{101, 75}, Key{109, 76}, Key{103, 95}, Key{111, 96}, Key{105, 191},
    Key{107, 192}, Key{113, 193}, Key{106, 194}, Key{64, 195}, Key{79, 196}, Key{80, 197},
    Key{90, 198},
    // The keypad: 0 to 9, decimal point, * + / - =, Enter, Clear (Num Lock), comma
    Key{82, 90}, Key{83, 87}, Key{84, 88}, Key{85, 89}, Key{86, 83}, Key{87, 84}, Key{88, 85},
    Key{89, 79}, Key{91, 80}, Key{92, 81}, Key{65, 91}, Key{67, 63}, Key{69, 86}, Key{75, 106},
    Key{78, 82}, Key{81, 125}, Key{76, 104}, Key{71, 77}, Key{95, 129},
    // Volume up, down and off; and what Japanese keyboards have besides: ¥ _ eisu kana
    Key{72, 123}, Key{73, 122}, Key{74, 121}, Key{93, 132}, Key{94, 97}, Key{102, 102},
    Key{104, 100}};

constexpr auto kVirtualKeys = [] {
    std::array<std::uint16_t, 256> codes{};
    codes.fill(virtualKeys::kNone);
    for (const Key key : kKeys) {
        codes.at(key.code) = key.virtualCode;
    }
    return codes;
}();

constexpr auto kCodes = [] {
    std::array<xcb_keycode_t, 128> codes{};
    for (const Key key : kKeys) {
        codes.at(key.virtualCode) = key.code;
    }
    return codes;
}();

} // namespace

std::uint16_t virtualKey(xcb_keycode_t key) {
    return kVirtualKeys.at(key);
}

xcb_keycode_t keyOf(std::uint16_t virtualKey) {
    return virtualKey < kCodes.size() ? kCodes.at(virtualKey) : xcb_keycode_t{0};
}

std::uint64_t modifierOf(std::uint16_t virtualKey) {
    switch (virtualKey) {
    case virtualKeys::kLeftShift:
    case virtualKeys::kRightShift:
        return modifiers::kShift;
    case virtualKeys::kLeftControl:
    case virtualKeys::kRightControl:
        return modifiers::kControl;
    case virtualKeys::kLeftOption:
    case virtualKeys::kRightOption:
        return modifiers::kOption;
    case virtualKeys::kLeftCommand:
    case virtualKeys::kRightCommand:
        return modifiers::kCommand;
    default:
        return 0;
    }
}

std::uint64_t sideOf(std::uint16_t virtualKey) {
    switch (virtualKey) {
    case virtualKeys::kRightCommand:
        return modifiers::kRightCommandSide;
    case virtualKeys::kRightOption:
        return modifiers::kRightOptionSide;
    case virtualKeys::kRightControl:
        return modifiers::kRightControlSide;
    default:
        return 0;
    }
}

} // namespace pello::x11Keys
