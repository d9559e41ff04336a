#include "keyboard/hotkeys/Permissions.h"

#include "platform/PelloLog.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace pello::Permissions {
namespace {

constexpr std::string_view kRegrantKey = "regrantPermissionsAfterRelaunch";

/// Takes the program off the list of one `service`; `done` gets the tool's exit status.
void resetService(Shell& shell, const std::string& service, const std::string& bundleIdentifier,
                  Log& log, std::function<void(std::int32_t status)> done) {
    shell.run("/usr/bin/tccutil", {"reset", service, bundleIdentifier},
              [&log, service, done = std::move(done)](const Shell::Result& result) {
                  if (result.status != 0) {
                      PelloLog(log).hotkey.error("tccutil reset " + service +
                                                 " failed with status " +
                                                 std::to_string(result.status));
                  }
                  done(result.status);
              });
}

} // namespace

void openSettings(Workspace& workspace, SettingsPane pane) {
    workspace.openAddress(
        std::string("x-apple.systempreferences:com.apple.preference.security?") +
        (pane == SettingsPane::inputMonitoring ? "Privacy_ListenEvent" : "Privacy_Accessibility"));
}

void reset(Shell& shell, const std::string& bundleIdentifier, Log& log,
           std::function<void(bool isAccessibilityReset)> done) {
    const auto resetBoth = [&shell, bundleIdentifier, &log,
                            done = std::move(done)](std::int32_t accessibilityStatus) {
        const bool isReset = accessibilityStatus == 0;
        resetService(shell, "ListenEvent", bundleIdentifier, log,
                     [&log, isReset, done](std::int32_t /*status*/) {
                         PelloLog(log).hotkey.info(
                             std::string("Permissions reset (Accessibility reset = ") +
                             (isReset ? "true)" : "false)"));
                         done(isReset);
                     });
    };
    resetService(shell, "Accessibility", bundleIdentifier, log, resetBoth);
}

void expectRegrant(UserDefaults& defaults) {
    defaults.set(kRegrantKey, true);
    defaults.flush();
}

bool takeExpectedRegrant(UserDefaults& defaults) {
    const auto stored = defaults.value(kRegrantKey);
    if (stored) {
        defaults.remove(kRegrantKey);
    }
    const bool* isExpected = stored ? stored->as<bool>() : nullptr;
    return isExpected != nullptr && *isExpected;
}

} // namespace pello::Permissions
