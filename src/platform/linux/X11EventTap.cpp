#include "platform/linux/X11EventTap.h"

#include "platform/linux/X11KeyboardListener.h"
#include "platform/linux/X11Listening.h"

#include <utility>

namespace pello {

X11EventTap::X11EventTap(MainLoop& loop) : loop_(loop) {}

X11EventTap::~X11EventTap() {
    remove();
}

bool X11EventTap::install(const TapRequest& request, Handler handler) {
    if (listeningObstacle()) {
        return false;
    }
    listener_ = std::make_shared<X11KeyboardListener>(loop_, request, std::move(handler));
    if (!listener_->begin()) {
        remove();
    }
    return listener_ != nullptr;
}

void X11EventTap::remove() {
    if (const auto listener = std::exchange(listener_, nullptr)) {
        listener->end();
    }
}

bool X11EventTap::isEnabled() const {
    return listener_ && listener_->isAlive();
}

void X11EventTap::refresh() {
    if (listener_) {
        listener_->refresh();
    }
}

std::optional<std::string> X11EventTap::obstacle() const {
    return listeningObstacle();
}

void X11EventTap::resetCapsLock() {
    if (listener_) {
        listener_->resetCapsLock();
    }
}

std::uint64_t X11EventTap::heldModifiers() const {
    return isEnabled() ? listener_->heldModifiers() : 0;
}

void X11EventTap::holdKeyboard() {
    if (isEnabled()) {
        listener_->holdKeyboard();
    }
}

void X11EventTap::releaseKeyboard() {
    if (listener_) {
        listener_->releaseKeyboard();
    }
}

std::vector<X11Grab> X11EventTap::grabs() const {
    return listener_ ? listener_->grabs() : std::vector<X11Grab>();
}

bool X11EventTap::isSettled() const {
    return !listener_ || listener_->isSettled();
}

X11EventTap::Keeping X11EventTap::keepKeysBack(std::uint32_t window) {
    return isEnabled() ? listener_->keepKeysBack(window) : Keeping::refused;
}

void X11EventTap::deliverKeys() {
    if (listener_) {
        listener_->deliverKeys();
    }
}

} // namespace pello
