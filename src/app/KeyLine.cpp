#include "app/KeyLine.h"

#include "platform/ModifierFlags.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace pello {
namespace {

struct NamedFlag {
    std::uint64_t flag;
    std::string_view name;
};

constexpr auto kFlags = std::to_array<NamedFlag>({{modifiers::kControl, "Control"},
                                                  {modifiers::kOption, "Option"},
                                                  {modifiers::kShift, "Shift"},
                                                  {modifiers::kCommand, "Command"},
                                                  {modifiers::kCapsLock, "CapsLock"},
                                                  {modifiers::kRightControlSide, "right-Control"},
                                                  {modifiers::kRightOptionSide, "right-Option"},
                                                  {modifiers::kRightCommandSide, "right-Command"}});

std::string_view nameOf(InputEvent::Kind kind) {
    switch (kind) {
    case InputEvent::Kind::keyDown:
        return "down    ";
    case InputEvent::Kind::keyUp:
        return "up      ";
    case InputEvent::Kind::flagsChanged:
        return "modifier";
    case InputEvent::Kind::mouseDown:
        return "click   ";
    case InputEvent::Kind::disabledByTimeout:
        return "the system switched the listener off: too slow";
    case InputEvent::Kind::disabledByUserInput:
        return "the system switched the listener off";
    }
    return "";
}

bool isOfKey(InputEvent::Kind kind) {
    return kind == InputEvent::Kind::keyDown || kind == InputEvent::Kind::keyUp ||
           kind == InputEvent::Kind::flagsChanged;
}

} // namespace

std::string keyLine(const InputEvent& event) {
    std::string line(nameOf(event.kind));
    if (isOfKey(event.kind)) {
        line += "  key " + std::to_string(event.keyCode);
    }
    for (const NamedFlag& named : kFlags) {
        if ((event.flags & named.flag) != 0) {
            line.append("  ").append(named.name);
        }
    }
    return event.isRepeat ? line + "  repeated" : line;
}

} // namespace pello
