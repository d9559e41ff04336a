#pragma once

#include "platform/Notifier.h"

#include <memory>

namespace pello {

/// Notifications by the system's notification centre, which asks the user for permission with the
/// first one. Fails where the program runs outside an application bundle.
class UserNotificationNotifier final : public Notifier {
public:
    UserNotificationNotifier();
    ~UserNotificationNotifier() override;
    UserNotificationNotifier(const UserNotificationNotifier&) = delete;
    UserNotificationNotifier& operator=(const UserNotificationNotifier&) = delete;

    void notify(std::string_view title, std::string_view body) override;

private:
    struct Center;
    std::shared_ptr<Center> center_;
};

} // namespace pello
