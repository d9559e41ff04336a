#include "app/TerminalInput.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <unistd.h>
#include <utility>

namespace pello {

TerminalInput::TerminalInput(std::function<void(std::string_view)> typed,
                             std::function<void()> ended)
    : typed_(std::move(typed)),
      ended_(std::move(ended)),
      notifier_(STDIN_FILENO, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { read(); });
}

void TerminalInput::read() {
    std::array<char, 4096> bytes = {};
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count > 0) {
        typed_({bytes.data(), static_cast<std::size_t>(count)});
    } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
        notifier_.setEnabled(false);
        ended_();
    }
}

} // namespace pello
