#include "app/ControlCaller.h"

#include <string>
#include <utility>

namespace pello {

ControlCaller::ControlCaller(std::unique_ptr<LocalConnection> connection)
    : connection_(std::move(connection)) {
    connection_->onReceived = nullptr;
    connection_->onGone = [this] {
        if (const auto gone = onGone) { // a copy: it may end this object
            gone();
        }
    };
}

void ControlCaller::answer(std::string_view line) {
    connection_->send(std::string(line) + '\n');
}

} // namespace pello
