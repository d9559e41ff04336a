#include "app/ControlCaller.h"

namespace pello {

ControlCaller::ControlCaller(QLocalSocket& client)
    : client_(&client),
      goes_(QObject::connect(&client, &QLocalSocket::disconnected, &client, [this] {
          if (const auto gone = onGone) { // a copy: it may end this object
              gone();
          }
      })) {}

ControlCaller::~ControlCaller() {
    QObject::disconnect(goes_);
    if (client_ != nullptr) {
        client_->disconnectFromServer();
    }
}

void ControlCaller::answer(std::string_view line) {
    if (isThere()) {
        client_->write(line.data(), static_cast<qint64>(line.size()));
        client_->write("\n");
        client_->flush();
    }
}

bool ControlCaller::isThere() const {
    return client_ != nullptr && client_->state() == QLocalSocket::ConnectedState;
}

} // namespace pello
