#pragma once

#include "platform/Workspace.h"
#include "platform/linux/Environment.h"

#include <memory>

class QDBusConnection;

namespace pello {

/// Opens things as a freedesktop session does.
///
/// An application is activated over the session bus where its desktop entry offers that, otherwise
/// its command is started as a process of its own and, where systemd runs the session, moved into a
/// scope of its own. Addresses go to the session's opener, files to its file manager. Nothing is
/// waited for; what fails later is told by `failed`. Needs Qt's event loop.
class DesktopWorkspace final : public Workspace {
public:
    /// What is started gets `environment`, less what concerns only this process. Calls go over
    /// `bus`, which need not be connected.
    DesktopWorkspace(Environment environment, QDBusConnection bus);
    ~DesktopWorkspace() override;
    DesktopWorkspace(const DesktopWorkspace&) = delete;
    DesktopWorkspace& operator=(const DesktopWorkspace&) = delete;

    void openApplication(const std::filesystem::path& application) override;
    void openAddress(std::string_view address) override;
    void reveal(const std::filesystem::path& file) override;

private:
    struct Context;

    void startProcess(const std::filesystem::path& application);
    void startOpener(const std::string& target, const std::string& subject);
    void start(const struct ProcessPlan& plan, const std::string& id, const std::string& subject);
    void awaitOutcome(int descriptor, const std::string& subject);
    void fail(const std::string& subject, const std::string& reason);

    Environment environment_;
    std::unique_ptr<Context> context_;
};

/// The bus of the session that `environment` describes; one that is not connected when it has none.
/// Connects before it returns.
[[nodiscard]] QDBusConnection sessionBus(const Environment& environment);

} // namespace pello
