#pragma once

#include "platform/EventTap.h"

#include <memory>

namespace pello {

/// An active tap of the session, ahead of the other taps, on the main run loop.
///
/// The system shows it every event, so a request changes nothing; and it is told of every key that
/// a session of Command-Tab takes, so there is nothing to hold.
class QuartzEventTap final : public EventTap {
public:
    QuartzEventTap();
    ~QuartzEventTap() override;
    QuartzEventTap(const QuartzEventTap&) = delete;
    QuartzEventTap& operator=(const QuartzEventTap&) = delete;

    [[nodiscard]] bool install(const TapRequest& request, Handler handler) override;
    void remove() override;
    void enable() override;
    [[nodiscard]] bool isEnabled() const override;
    void refresh() override;
    [[nodiscard]] std::optional<std::string> obstacle() const override { return std::nullopt; }
    void resetCapsLock() override;
    [[nodiscard]] std::uint64_t heldModifiers() const override;
    void holdKeyboard() override {}
    void releaseKeyboard() override {}
    [[nodiscard]] bool isSecureInputEngaged() const override;

private:
    class Installed;
    std::unique_ptr<Installed> installed_;
};

} // namespace pello
