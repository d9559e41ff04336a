#pragma once

#include "platform/MainLoop.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11EventTap.h"
#include "platform/linux/X11Grabs.h"
#include "platform/linux/X11KeyStream.h"

#include <QSocketNotifier>

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace pello {

/// One installation of a tap: the connection, what is claimed on it and the stream that is told.
/// Owned by a shared pointer, so that the handler may end it while it is called. Main thread only.
class X11KeyboardListener : public std::enable_shared_from_this<X11KeyboardListener> {
public:
    /// `loop` must outlive this object.
    X11KeyboardListener(MainLoop& loop, const TapRequest& request, EventTap::Handler handler)
        : loop_(loop), request_(request), stream_(request, std::move(handler)) {}

    /// Connects and claims. Whether it listens now; nothing else may be asked if not.
    bool begin();

    /// Tells nothing any more.
    void end();

    [[nodiscard]] bool isAlive() const { return !connection_.isBroken(); }
    void refresh();
    void resetCapsLock();
    [[nodiscard]] std::uint64_t heldModifiers();
    void holdKeyboard();
    void releaseKeyboard();
    [[nodiscard]] X11EventTap::Keeping keepKeysBack(xcb_window_t window);
    void deliverKeys();

    [[nodiscard]] const std::vector<X11Grab>& grabs() const { return grabs_->grabs(); }
    [[nodiscard]] bool isSettled() const { return claimsToCome_ == 0; }

private:
    // Window managers claim their keys again when the keyboard's map changes or they start, and
    // whoever claims last gets them. They are done with it after these times.
    static constexpr std::array kClaims = {std::chrono::milliseconds(50),
                                           std::chrono::milliseconds(300),
                                           std::chrono::milliseconds(1500)};

    struct DeleteLater {
        void operator()(QSocketNotifier* notifier) const {
            notifier->setEnabled(false);
            notifier->deleteLater(); // it may be the one that is calling
        }
    };

    /// The server's answer to how its keyboard is, and the number of the question.
    struct Snapshot {
        X11KeyStream::State state;
        std::uint32_t request = 0;
    };

    void readEvents();
    void handle(const xcb_generic_event_t& event);
    void handleInput(const xcb_generic_event_t& event);
    void handleXkb(const xcb_generic_event_t& event);
    void readEventsSoon();
    void readMap();
    void claimLater();
    void claim();
    [[nodiscard]] X11KeyStream::Map askMap() const;
    [[nodiscard]] std::optional<Snapshot> askState() const;
    void applySnapshot();

    MainLoop& loop_;
    TapRequest request_;
    X11Connection connection_;
    X11KeyStream stream_;
    std::unique_ptr<X11Grabs> grabs_;
    X11KeyStream::Map map_;
    std::uint8_t inputOpcode_ = 0;
    std::uint8_t xkbEvent_ = 0;
    xcb_atom_t windowManager_ = XCB_ATOM_NONE;
    bool isMapStale_ = false;
    bool isHolding_ = false;
    bool isKeepingBack_ = false;
    bool isOver_ = false;
    std::optional<Snapshot> snapshot_;
    std::array<Subscription, kClaims.size()> claims_;
    std::size_t claimsToCome_ = 0;
    std::unique_ptr<QSocketNotifier, DeleteLater> notifier_;
};

} // namespace pello
