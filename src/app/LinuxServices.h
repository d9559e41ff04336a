#pragma once

#include "app/Platform.h"
#include "platform/linux/AutostartLoginItem.h"
#include "platform/linux/DesktopBundleReader.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/Environment.h"
#include "platform/linux/GioAddressHandlers.h"
#include "platform/linux/PlistUserDefaults.h"
#include "platform/linux/XdgFolders.h"

#include <memory>

namespace pello {

/// The adapters of this desktop that need no display, over a main loop, a folder watcher, a
/// pasteboard and a keyboard that somebody else chose and keeps alive. Needs the toolkit's
/// application object to exist.
struct LinuxServices {
    /// Where the services of the session may be asked: programs that only read need not connect.
    enum class Session { connected, leftAlone };

    LinuxServices(MainLoop& mainLoop, FolderWatcher& folderWatcher, Pasteboard& generalPasteboard,
                  Keystrokes& pressedKeys, Session session);

    [[nodiscard]] Platform ports();

    MainLoop& loop;
    FolderWatcher& watcher;
    Pasteboard& pasteboard;
    Keystrokes& keystrokes;
    Environment environment;
    XdgFolders folders;
    std::unique_ptr<Log> log;
    PlistUserDefaults defaults;
    DesktopBundleReader bundles;
    DesktopWorkspace workspace;
    GioAddressHandlers addressHandlers;
    AutostartLoginItem loginItem;
};

} // namespace pello
