#pragma once

#include "app/Platform.h"
#include "platform/linux/AutostartLoginItem.h"
#include "platform/linux/DBusNotifier.h"
#include "platform/linux/DesktopBundleReader.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/Environment.h"
#include "platform/linux/GioAddressHandlers.h"
#include "platform/linux/PlistUserDefaults.h"
#include "platform/linux/PosixProcesses.h"
#include "platform/linux/XdgFolders.h"
#include "platform/posix/PosixFileAccess.h"

#include <memory>

namespace pello {

/// The adapters of this desktop that need no display, over those that somebody else chose and keeps
/// alive. Needs the toolkit's application object to exist.
struct LinuxServices {
    /// How this program takes part in the user's session.
    enum class Session {
        /// Its desktop started it, with the environment of a desktop.
        connected,
        /// The user started it from a terminal, with the environment that programs have there.
        fromTerminal,
        /// It only reads, and need not connect to the session's services.
        leftAlone
    };

    /// What differs with where this program is used.
    struct Surface {
        MainLoop& loop;
        FolderWatcher& watcher;
        Pasteboard& pasteboard;
        Keystrokes& keystrokes;
        Dialogs& dialogs;
    };

    LinuxServices(const Surface& chosen, Session session);

    [[nodiscard]] Platform ports();

    Surface surface;
    Environment environment;
    XdgFolders folders;
    std::unique_ptr<Log> log;
    PlistUserDefaults defaults;
    PosixFileAccess fileAccess;
    DesktopBundleReader bundles;
    DesktopWorkspace workspace;
    GioAddressHandlers addressHandlers;
    AutostartLoginItem loginItem;
    DBusNotifier notifier;
    PosixProcesses processes;
    std::unique_ptr<LoginEnvironment> loginEnvironment;
};

} // namespace pello
