#pragma once

#include "app/LinuxServices.h"
#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/linux/X11Compositor.h"
#include "platform/linux/X11Keystrokes.h"
#include "platform/linux/X11Pasteboard.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtMainLoop.h"
#include "ui/icons/IconLoader.h"

namespace pello {

/// This machine with its display. Needs the toolkit's application object to exist.
class DesktopPlatform {
public:
    DesktopPlatform();
    ~DesktopPlatform();
    DesktopPlatform(const DesktopPlatform&) = delete;
    DesktopPlatform& operator=(const DesktopPlatform&) = delete;

    [[nodiscard]] Platform ports() { return services_.ports(); }
    [[nodiscard]] IconLoader& icons() { return icons_; }
    [[nodiscard]] const Compositor& compositor() const { return compositor_; }

private:
    InotifyFolderWatcher watcher_;
    QtMainLoop loop_;
    X11Pasteboard pasteboard_;
    X11Keystrokes keystrokes_;
    QtDialogs dialogs_;
    LinuxServices services_{{.loop = loop_,
                             .watcher = watcher_,
                             .pasteboard = pasteboard_,
                             .keystrokes = keystrokes_,
                             .dialogs = dialogs_},
                            LinuxServices::Session::connected};
    X11Compositor compositor_;
    IconLoader icons_;
};

} // namespace pello
