#pragma once

#include "platform/Notifier.h"

#include <vector>

namespace pello {

/// Keeps the notifications that it is given.
class MemoryNotifier final : public Notifier {
public:
    struct Notification {
        std::string title;
        std::string body;
        friend bool operator==(const Notification&, const Notification&) = default;
    };

    void notify(std::string_view title, std::string_view body) override {
        notifications.push_back({std::string(title), std::string(body)});
    }

    std::vector<Notification> notifications;
};

} // namespace pello
