#include "platform/linux/X11KeyboardClaim.h"

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11InputVersion.h"
#include "platform/linux/X11KeyCodes.h"
#include "platform/linux/X11Keyboards.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <utility>

namespace pello {
namespace {

// Menus of the usual toolkits are gone some 20 ms after Escape; submenus close one by one.
constexpr std::chrono::milliseconds kPause{60};
constexpr int kAttempts = 4;

} // namespace

/// Grabs the keyboard for a moment, which fails exactly when another program holds it.
class X11KeyboardClaim::Client {
public:
    Client() : hasInput_(!connection_.isBroken() && hasInput()) {}

    [[nodiscard]] bool isUsable() const { return hasInput_ && !connection_.isBroken(); }

    [[nodiscard]] bool isHeldByOthers() const {
        xcb_connection_t* x = connection_.get();
        const std::uint16_t keyboard = X11Keyboards::of(x).merged;
        constexpr std::uint32_t kNoEvents = 0;
        const XcbReply<xcb_input_xi_grab_device_reply_t> reply(xcb_input_xi_grab_device_reply(
            x,
            xcb_input_xi_grab_device(x, connection_.root(), XCB_CURRENT_TIME, XCB_CURSOR_NONE,
                                     keyboard, XCB_INPUT_GRAB_MODE_22_ASYNC,
                                     XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, 1,
                                     &kNoEvents),
            nullptr));
        if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) {
            const auto request = xcb_input_xi_ungrab_device_checked(x, XCB_CURRENT_TIME, keyboard);
            const XcbReply<xcb_generic_error_t> error(xcb_request_check(x, request));
        }
        return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
    }

    void pressEscape() const {
        for (const int event : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
            xcb_test_fake_input(connection_.get(), static_cast<std::uint8_t>(event),
                                x11Keys::kEscape, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
        }
        xcb_flush(connection_.get());
    }

private:
    [[nodiscard]] bool hasInput() const {
        const auto* test = xcb_get_extension_data(connection_.get(), &xcb_test_id);
        return test != nullptr && test->present != 0 &&
               X11InputVersion::of(connection_.get()).isEnough();
    }

    X11Connection connection_;
    bool hasInput_;
};

X11KeyboardClaim::X11KeyboardClaim(MainLoop& loop, std::function<bool()> isOurs)
    : loop_(loop), isOurs_(std::move(isOurs)) {}
X11KeyboardClaim::~X11KeyboardClaim() = default;

void X11KeyboardClaim::begin(const Done& done) {
    next_.reset();
    if (!client_ || !client_->isUsable()) {
        client_ = std::make_unique<Client>();
    }
    attempt(1, done);
}

void X11KeyboardClaim::attempt(int attempt, const Done& done) {
    // What the own tap has was free before.
    if (isOurs_() || !client_->isUsable() || !client_->isHeldByOthers()) {
        next_.reset();
        done(Outcome::free);
        return;
    }
    if (attempt > kAttempts) {
        next_.reset();
        done(Outcome::held);
        return;
    }
    client_->pressEscape();
    next_ = loop_.after(kPause, [this, attempt, done] { this->attempt(attempt + 1, done); });
}

} // namespace pello
