#pragma once

#include "platform/Pasteboard.h"
#include "platform/linux/X11Selection.h"

#include <chrono>

namespace pello {

/// The toolkit's clipboard, and under X11 a reading of it that does not wait for programs that
/// hang. Needs the toolkit's application object to exist.
class X11Pasteboard final : public Pasteboard {
public:
    void setText(std::string_view text) override;
    [[nodiscard]] std::optional<std::string> text() override;
    void read(const std::function<void(std::optional<std::string>)>& action) override;
    [[nodiscard]] bool holdsOwn(std::string_view text) override;

private:
    [[nodiscard]] std::optional<std::string> textOfOthers();

    X11Selection selection_;
    std::chrono::steady_clock::time_point askAgain_; // after somebody did not answer
};

} // namespace pello
