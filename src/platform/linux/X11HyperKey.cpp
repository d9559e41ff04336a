#include "platform/linux/X11HyperKey.h"

#include "platform/ModifierFlags.h"
#include "platform/linux/X11InputVersion.h"
#include "platform/linux/X11KeyCodes.h"
#include "platform/linux/X11Modifiers.h"
#include "platform/linux/X11Xkb.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace pello {
namespace {

constexpr xcb_keycode_t kKey = x11Keys::kCapsLock;
constexpr const char* kMerged = "merged";

} // namespace

X11HyperKey::X11HyperKey(const std::filesystem::path& file) : saved_(file) {
    isPossible_ = !connection_.isBroken() && watchXkb(connection_.get(), 0) != 0 &&
                  X11InputVersion::of(connection_.get()).major >= 2;
}

bool X11HyperKey::isPossible() const {
    return isPossible_ && !connection_.isBroken();
}

/// The merged one comes first: what it is given no other keyboard takes over before its next key.
std::vector<X11Keyboards::Device> X11HyperKey::keyboards() const {
    X11Keyboards found = X11Keyboards::of(connection_.get());
    std::vector<X11Keyboards::Device> all = {{found.merged, kMerged}};
    all.insert(all.end(), found.devices.begin(), found.devices.end());
    return all;
}

std::uint8_t X11HyperKey::mask() const {
    return X11Modifiers::of(connection_.get()).mask(modifiers::kShortcutMask);
}

bool X11HyperKey::isInPlace() const {
    if (!isPossible()) {
        return false;
    }
    const auto key = readKey(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, kKey);
    return key && key->setsModifiers(mask());
}

bool X11HyperKey::put() {
    if (!isPossible()) {
        return false;
    }
    restore(); // what is left of a change that another program undid in part
    const bool isDone = putOn(keyboards());
    releaseLock();
    return isDone;
}

void X11HyperKey::adopt() {
    if (!isOwn() || !isInPlace()) {
        return;
    }
    std::vector<X11Keyboards::Device> all = keyboards();
    std::erase_if(all, [this](const auto& keyboard) { return saved_.holds(keyboard); });
    putOn(all);
}

/// What the keys did is on the disk before any is changed.
bool X11HyperKey::putOn(const std::vector<X11Keyboards::Device>& keyboards) {
    const std::uint8_t all = mask();
    std::vector<std::uint16_t> changed;
    for (const auto& keyboard : keyboards) {
        auto key = readKey(connection_.get(), keyboard.number, kKey);
        if (key && !key->setsModifiers(all)) {
            saved_.keep(keyboard, std::move(*key));
            changed.push_back(keyboard.number);
        }
    }
    if (changed.empty()) {
        return false;
    }
    const X11Key hyper = X11Key::settingModifiers(kKey, all);
    const bool isDone = saved_.write() && std::ranges::all_of(changed, [&](std::uint16_t device) {
                            return writeKey(connection_.get(), device, kKey, hyper);
                        });
    if (!isDone) {
        restore();
    }
    return isDone;
}

bool X11HyperKey::restore() {
    if (!isPossible()) {
        return false;
    }
    if (saved_.isEmpty()) {
        saved_.load();
    }
    const std::uint8_t all = mask();
    bool isDone = true;
    for (const auto& keyboard : keyboards()) {
        const auto key = readKey(connection_.get(), keyboard.number, kKey);
        if (key && key->setsModifiers(all)) {
            const X11Key* before = saved_.find(keyboard);
            isDone = before != nullptr &&
                     writeKey(connection_.get(), keyboard.number, kKey, *before) && isDone;
        }
    }
    saved_.clear();
    return isDone;
}

void X11HyperKey::releaseLock() const {
    xcb_xkb_latch_lock_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, XCB_MOD_MASK_LOCK, 0, 0, 0,
                             0, 0, 0);
    xcb_flush(connection_.get());
}

} // namespace pello
