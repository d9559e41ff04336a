#include "platform/linux/X11KeyboardClaim.h"

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11EventTap.h"
#include "platform/linux/X11KeyCodes.h"

#include <xcb/xtest.h>

namespace pello {
namespace {

// Menus of the usual toolkits are gone some 20 ms after Escape; submenus close one by one.
constexpr std::chrono::milliseconds kPause{60};
constexpr int kAttempts = 4;

// Far beyond what a busy desktop takes to move the focus, and short enough for a keyboard to be
// silent where the focus does not come.
constexpr std::chrono::milliseconds kPatience{300};

} // namespace

/// Where keys are pressed for the user.
class X11KeyboardClaim::Keyboard {
public:
    Keyboard() {
        const auto* test = xcb_get_extension_data(connection_.get(), &xcb_test_id);
        canPress_ = test != nullptr && test->present != 0;
    }

    [[nodiscard]] bool isUsable() const { return canPress_ && !connection_.isBroken(); }

    void pressEscape() const {
        for (const int event : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
            xcb_test_fake_input(connection_.get(), static_cast<std::uint8_t>(event),
                                x11Keys::kEscape, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
        }
        xcb_flush(connection_.get());
    }

private:
    X11Connection connection_;
    bool canPress_ = false;
};

X11KeyboardClaim::X11KeyboardClaim(MainLoop& loop, X11EventTap& tap) : loop_(loop), tap_(tap) {}
X11KeyboardClaim::~X11KeyboardClaim() = default;

void X11KeyboardClaim::begin(std::uint32_t window, const Done& done) {
    end();
    window_ = window;
    attempt(1, done);
}

void X11KeyboardClaim::end() {
    next_.reset();
    deadline_.reset();
    tap_.deliverKeys();
}

void X11KeyboardClaim::attempt(int attempt, const Done& done) {
    const X11EventTap::Keeping keeping = tap_.keepKeysBack(window_);
    if (keeping == X11EventTap::Keeping::begun) {
        deadline_ = loop_.after(kPatience, [this] { end(); });
    }
    const bool isTaken = keeping == X11EventTap::Keeping::takenByAnother;
    if (isTaken && attempt <= kAttempts && pressEscape()) {
        next_ = loop_.after(kPause, [this, attempt, done] { this->attempt(attempt + 1, done); });
        return;
    }
    next_.reset();
    done(isTaken ? Outcome::held : Outcome::free);
}

/// Whether it could.
bool X11KeyboardClaim::pressEscape() {
    if (!keyboard_ || !keyboard_->isUsable()) {
        keyboard_ = std::make_unique<Keyboard>();
    }
    if (keyboard_->isUsable()) {
        keyboard_->pressEscape();
    }
    return keyboard_->isUsable();
}

} // namespace pello
