#pragma once

#include "platform/Log.h"
#include "platform/Shell.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

#include <functional>
#include <string>

/// The two privacy permissions that listening to the keyboard takes. Main thread only.
namespace pello::Permissions {

enum class SettingsPane { accessibility, inputMonitoring };

/// Shows the pane of the system's settings in which the permission is granted.
void openSettings(Workspace& workspace, SettingsPane pane);

/// Takes the program with `bundleIdentifier` off both lists. `done` is told whether that worked
/// for Accessibility. `shell` and `log` must live until then.
void reset(Shell& shell, const std::string& bundleIdentifier, Log& log,
           std::function<void(bool isAccessibilityReset)> done);

/// Makes the next launch ask for the permissions again. On the disk when this returns.
void expectRegrant(UserDefaults& defaults);

/// Whether this launch is to ask for the permissions again. True once.
[[nodiscard]] bool takeExpectedRegrant(UserDefaults& defaults);

} // namespace pello::Permissions
