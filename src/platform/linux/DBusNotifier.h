#pragma once

#include "platform/Notifier.h"

#include <QDBusConnection>

#include <memory>

namespace pello {

/// The notifications of a freedesktop desktop. Needs Qt's event loop on this thread.
class DBusNotifier final : public Notifier {
public:
    /// `bus` is the session bus; without a connection every notification fails.
    explicit DBusNotifier(QDBusConnection bus);
    ~DBusNotifier() override;
    DBusNotifier(const DBusNotifier&) = delete;
    DBusNotifier& operator=(const DBusNotifier&) = delete;

    void notify(std::string_view title, std::string_view body) override;

private:
    struct Context;
    std::unique_ptr<Context> context_;
};

} // namespace pello
