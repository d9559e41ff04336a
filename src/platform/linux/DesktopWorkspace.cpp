#include "platform/linux/DesktopWorkspace.h"

#include "base/Text.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/Executables.h"
#include "platform/linux/LaunchPlan.h"
#include "platform/linux/SessionCalls.h"
#include "platform/linux/SystemdScope.h"
#include "platform/linux/XdgFolders.h"

#include <QDBusConnection>
#include <QObject>
#include <QSocketNotifier>

#include <cstring>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <variant>

namespace pello {

namespace {

std::string inQuotes(std::string_view name) {
    return "“" + text::wellFormed(name) + "”";
}

} // namespace

/// What answers that are under way belong to: they end with it.
struct DesktopWorkspace::Context {
    explicit Context(QDBusConnection connection) : bus(std::move(connection)) {}

    QDBusConnection bus;
    QObject receiver;
};

DesktopWorkspace::DesktopWorkspace(Environment environment, QDBusConnection bus)
    : environment_(std::move(environment)), context_(std::make_unique<Context>(std::move(bus))) {}

DesktopWorkspace::~DesktopWorkspace() = default;

void DesktopWorkspace::openApplication(const std::filesystem::path& application) {
    const auto entry = readDesktopEntry(application);
    const bool isActivatable = entry && entry->flag("DBusActivatable");
    if (!isActivatable) {
        startProcess(application);
        return;
    }
    activateApplication(context_->bus, application.stem().native(), context_->receiver,
                        [this, application](const QDBusError* error) {
                            if (error == nullptr || error->type() == QDBusError::NoReply) {
                                return; // a slow start is none of our business
                            }
                            if (isNobodyThere(*error)) {
                                startProcess(application);
                            } else {
                                fail(inQuotes(application.stem().native()),
                                     error->message().toStdString());
                            }
                        });
}

void DesktopWorkspace::startProcess(const std::filesystem::path& application) {
    const auto entry = readDesktopEntry(application);
    if (!entry) {
        fail(inQuotes(application.stem().native()), "its desktop entry cannot be read");
        return;
    }
    const std::string subject = inQuotes(shownName(*entry, application, environment_));
    const auto plan = launchPlan(*entry, application, environment_);
    if (const auto* problem = std::get_if<LaunchProblem>(&plan)) {
        fail(subject, problem->reason);
    } else {
        start(std::get<ProcessPlan>(plan), application.stem().native(), subject);
    }
}

void DesktopWorkspace::openAddress(std::string_view address) {
    const std::string subject = "The address " + inQuotes(address);
    if (address.empty() || address.starts_with('-') ||
        address.find('\0') != std::string_view::npos) {
        fail(subject, "it is not an address");
        return;
    }
    startOpener(std::string(address), subject);
}

void DesktopWorkspace::startOpener(const std::string& target, const std::string& subject) {
    auto plan = commandPlan({"xdg-open", target}, environment_);
    if (std::holds_alternative<LaunchProblem>(plan)) {
        plan = commandPlan({"gio", "open", target}, environment_);
    }
    if (std::holds_alternative<LaunchProblem>(plan)) {
        fail(subject, "no program for that is installed (xdg-open)");
    } else {
        const auto& process = std::get<ProcessPlan>(plan);
        start(process, process.program.filename().native(), subject);
    }
}

void DesktopWorkspace::reveal(const std::filesystem::path& file) {
    const std::string subject = inQuotes(file.filename().native());
    std::error_code error;
    if (!std::filesystem::exists(std::filesystem::symlink_status(file, error))) {
        fail(subject, "it no longer exists");
        return;
    }
    showInFileManager(context_->bus, file, context_->receiver,
                      [this, file, subject](const QDBusError* refusal) {
                          if (refusal != nullptr && refusal->type() != QDBusError::NoReply) {
                              startOpener(file.parent_path().native(), subject);
                          }
                      });
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): who waits for the reply has the function

void DesktopWorkspace::start(const ProcessPlan& plan, const std::string& id,
                             const std::string& subject) {
    const StartedProcess started = startDetached(plan);
    if (started.pid < 0) {
        fail(subject, std::generic_category().message(started.error));
        return;
    }
    moveToScope(context_->bus, id, started.pid);
    awaitOutcome(started.outcome, subject);
}

void DesktopWorkspace::awaitOutcome(int descriptor, const std::string& subject) {
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, &context_->receiver);
    QObject::connect(notifier, &QSocketNotifier::activated, &context_->receiver,
                     [this, notifier, descriptor, subject] {
                         notifier->setEnabled(false);
                         notifier->deleteLater();
                         int error = 0;
                         if (::read(descriptor, &error, sizeof error) == sizeof error) {
                             fail(subject, std::generic_category().message(error));
                         }
                     });
    QObject::connect(notifier, &QObject::destroyed, [descriptor] { ::close(descriptor); });
}

void DesktopWorkspace::fail(const std::string& subject, const std::string& reason) {
    failed.emit(subject + " could not be opened: " + reason + ".");
}

QDBusConnection sessionBus(const Environment& environment) {
    const auto runtime = xdgFolders(environment).runtime;
    std::error_code error;
    const bool hasBus = !environment.value("DBUS_SESSION_BUS_ADDRESS").empty() ||
                        (runtime && std::filesystem::exists(*runtime / "bus", error));
    return hasBus ? QDBusConnection::sessionBus() : QDBusConnection(QStringLiteral("no session"));
}

} // namespace pello
