#pragma once

#include "platform/EventTap.h"
#include "platform/MainLoop.h"
#include "platform/linux/X11Grab.h"

#include <memory>
#include <vector>

namespace pello {

class X11KeyboardListener;

/// Listens to the keyboard of the X server that DISPLAY names, on a connection of its own, and
/// takes the keys that it was asked to take.
///
/// Every key is watched without being held up: however slow this program is, or stopped, the
/// keyboard works on. What is swallowed is what the request names; the handler's answers change
/// nothing. Keys that another program holds the keyboard for, as open menus do, are seen and not
/// taken. Needs Qt's event loop.
class X11EventTap final : public EventTap {
public:
    /// `loop` must outlive this object.
    explicit X11EventTap(MainLoop& loop);
    ~X11EventTap() override;
    X11EventTap(const X11EventTap&) = delete;
    X11EventTap& operator=(const X11EventTap&) = delete;

    [[nodiscard]] bool install(const TapRequest& request, Handler handler) override;
    void remove() override;
    void enable() override {}
    [[nodiscard]] bool isEnabled() const override;
    void refresh() override;
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void resetCapsLock() override;
    [[nodiscard]] std::uint64_t heldModifiers() const override;
    void holdKeyboard() override;
    void releaseKeyboard() override;
    [[nodiscard]] bool isSecureInputEngaged() const override { return false; }

    /// The combos that are taken, as the server answered when they were claimed last; empty when
    /// not installed.
    [[nodiscard]] std::vector<X11Grab> grabs() const;

    /// Whether nothing happened lately after which window managers claim their keys again, so that
    /// a combo that both want may be theirs for some moments.
    [[nodiscard]] bool isSettled() const;

    /// What became of the wish to keep keys back.
    enum class Keeping {
        begun,
        /// Another program holds the keyboard, as open menus do.
        takenByAnother,
        /// The tap is not installed, or holds the keyboard itself, or the server does not let it.
        refused
    };

    /// The server keeps every key back until the focus comes to `window` or `deliverKeys` is
    /// called, and then gives them, in order, to whoever has the focus. For moments in which it is
    /// about to move. Waits for the server's answer.
    [[nodiscard]] Keeping keepKeysBack(std::uint32_t window);

    /// Nothing happens where none are kept back.
    void deliverKeys();

private:
    MainLoop& loop_;
    std::shared_ptr<X11KeyboardListener> listener_;
};

} // namespace pello
