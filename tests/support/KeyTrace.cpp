#include "support/KeyTrace.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace pello::testing {
namespace {

struct NamedKey {
    std::string_view name;
    std::uint16_t keyCode;
};
constexpr auto kNamedKeys = std::to_array<NamedKey>({{"rcmd", 54},
                                                     {"lcmd", 55},
                                                     {"lsh", 56},
                                                     {"caps", 57},
                                                     {"lopt", 58},
                                                     {"lctl", 59},
                                                     {"rsh", 60},
                                                     {"ropt", 61},
                                                     {"rctl", 62},
                                                     {"tab", 48},
                                                     {"space", 49},
                                                     {"esc", 53},
                                                     {"hyper", 79},
                                                     {"pad1", 83},
                                                     {"f5", 96},
                                                     {"left", 123},
                                                     {"right", 124}});

/// A modifier key: its class, and the bit of its side.
struct ModifierKey {
    std::uint16_t keyCode;
    std::uint64_t flag;
    std::uint64_t side;
};
constexpr auto kModifierKeys = std::to_array<ModifierKey>({{54, 0x100000, 0x10},
                                                           {55, 0x100000, 0x8},
                                                           {56, 0x20000, 0x2},
                                                           {58, 0x80000, 0x20},
                                                           {59, 0x40000, 0x1},
                                                           {60, 0x20000, 0x4},
                                                           {61, 0x80000, 0x40},
                                                           {62, 0x40000, 0x2000}});

std::string modifierSymbols(std::uint64_t flags) {
    std::string symbols = (flags & modifiers::kCapsLock) != 0 ? "⇪" : "";
    for (const auto& [flag, symbol] :
         {std::pair{0x40000U, "⌃"}, {0x80000U, "⌥"}, {0x20000U, "⇧"}, {0x100000U, "⌘"}}) {
        symbols += (flags & flag) != 0 ? symbol : "";
    }
    return symbols;
}

} // namespace

std::string nameOf(const CommandTabEvent& event) {
    using Kind = CommandTabEvent::Kind;
    switch (event.kind) {
    case Kind::advance:
        return (event.number > 0 ? "advance+" : "advance") + std::to_string(event.number);
    case Kind::choose:
        return "choose" + std::to_string(event.number);
    case Kind::quit:
        return "quit";
    case Kind::searchWindows:
        return "windows";
    case Kind::commit:
        return "commit";
    case Kind::cancel:
        return "cancel";
    }
    return {};
}

std::uint16_t keyCodeOf(std::string_view name) {
    const auto* const named = std::ranges::find(kNamedKeys, name, &NamedKey::name);
    if (named != kNamedKeys.end()) {
        return named->keyCode;
    }
    for (const auto& [keyCode, character] : MemoryKeyboardLayout().characters) {
        if (character == name) {
            return keyCode;
        }
    }
    throw std::invalid_argument("no key is named " + std::string(name));
}

Keyboard::Keyboard() {
    manager.onActivate = [this] { say("activate"); };
    manager.onActivateGlyphPicker = [this] { say("glyphs"); };
    manager.onCommandTab = [this](const CommandTabEvent& event) { say(nameOf(event)); };
}

Keyboard::Keyboard(const HotkeyConfiguration& configuration) : Keyboard() {
    manager.configure(configuration);
}

std::string Keyboard::play(std::string_view trace) {
    for (const std::string_view word : text::words(trace)) {
        step(word);
    }
    return std::exchange(said_, {});
}

std::vector<std::string> Keyboard::newLog() {
    auto lines = log.lines();
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(logRead_));
    logRead_ += lines.size();
    return lines;
}

void Keyboard::step(std::string_view word) {
    using Kind = InputEvent::Kind;
    const std::size_t colon = word.find(':');
    const std::string_view verb = word.substr(0, colon);
    const std::string_view name =
        colon == std::string_view::npos ? std::string_view() : word.substr(colon + 1);
    if (verb == "t") {
        loop.advance(std::chrono::milliseconds(std::atoi(std::string(name).c_str())));
    } else if (verb == "click") {
        happen({.kind = Kind::mouseDown, .flags = flags_}, "click");
    } else if (verb == "timeout" || verb == "userinput") {
        happen({.kind = verb == "timeout" ? Kind::disabledByTimeout : Kind::disabledByUserInput},
               "");
        loop.settle();
    } else if (verb == "lost") {
        modifier(keyCodeOf(name), Kind::disabledByTimeout);
    } else {
        if (verb != "u") {
            key(Kind::keyDown, name, verb == "r");
        }
        if (verb == "u" || verb == "p") {
            key(Kind::keyUp, name, false);
        }
    }
}

void Keyboard::key(InputEvent::Kind kind, std::string_view name, bool isRepeat) {
    const std::uint16_t keyCode = keyCodeOf(name);
    if (keyCode == virtualKeys::kCapsLock) {
        capsLock(kind);
    } else if (std::ranges::find(kModifierKeys, keyCode, &ModifierKey::keyCode) !=
               kModifierKeys.end()) {
        modifier(keyCode, kind);
    } else {
        happen({.kind = kind, .keyCode = keyCode, .flags = flags_, .isRepeat = isRepeat}, name);
    }
}

/// Presses or releases a modifier key; for another kind turns it over without an event.
void Keyboard::modifier(std::uint16_t keyCode, InputEvent::Kind kind) {
    const auto* const key = std::ranges::find(kModifierKeys, keyCode, &ModifierKey::keyCode);
    const bool isPress = kind == InputEvent::Kind::keyDown ||
                         (kind != InputEvent::Kind::keyUp && (flags_ & key->side) == 0);
    flags_ = isPress ? flags_ | key->side : flags_ & ~key->side;
    flags_ &= ~key->flag;
    for (const ModifierKey& other : kModifierKeys) {
        flags_ |= (flags_ & other.side) != 0 ? other.flag : 0;
    }
    tap.held = flags_ & modifiers::kShortcutMask;
    if (kind == InputEvent::Kind::keyDown || kind == InputEvent::Kind::keyUp) {
        happen({.kind = InputEvent::Kind::flagsChanged, .keyCode = keyCode, .flags = flags_}, "");
    }
}

/// The lock turns over with each press; when the listener resets it, that comes back as an event.
void Keyboard::capsLock(InputEvent::Kind kind) {
    if (kind != InputEvent::Kind::keyDown) {
        return;
    }
    const int resets = tap.capsLockResets;
    flags_ ^= modifiers::kCapsLock;
    happen({.kind = InputEvent::Kind::flagsChanged,
            .keyCode = virtualKeys::kCapsLock,
            .flags = flags_},
           "caps");
    if (tap.capsLockResets > resets) {
        flags_ &= ~modifiers::kCapsLock;
        happen({.kind = InputEvent::Kind::flagsChanged,
                .keyCode = virtualKeys::kCapsLock,
                .flags = flags_},
               "caps");
    }
}

void Keyboard::happen(InputEvent event, std::string_view shown) {
    const bool isSwallowed = tap.happen(event);
    if (isSwallowed || shown.empty()) {
        return;
    }
    std::string verb;
    if (event.kind == InputEvent::Kind::keyDown) {
        verb = event.isRepeat ? "r:" : "d:";
    } else if (event.kind == InputEvent::Kind::keyUp) {
        verb = "u:";
    }
    say(verb + modifierSymbols(event.flags) + std::string(shown));
}

void Keyboard::say(std::string_view word) {
    said_ += said_.empty() ? "" : " ";
    said_ += word;
}

std::string play(const HotkeyConfiguration& configuration, std::string_view trace) {
    return Keyboard(configuration).play(trace);
}

} // namespace pello::testing
