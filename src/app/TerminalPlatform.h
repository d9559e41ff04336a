#pragma once

#include "app/LinuxServices.h"
#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/memory/MemoryKeystrokes.h"
#include "platform/qt/QtMainLoop.h"
#include "platform/qt/TerminalPasteboard.h"
#include "ui/terminal/TerminalDialogs.h"

#include <iosfwd>

namespace pello {

/// This machine with a terminal for its display. Needs the toolkit's application object to exist.
class TerminalPlatform {
public:
    /// `terminal` must outlive the platform.
    explicit TerminalPlatform(std::ostream& terminal);
    ~TerminalPlatform();
    TerminalPlatform(const TerminalPlatform&) = delete;
    TerminalPlatform& operator=(const TerminalPlatform&) = delete;

    [[nodiscard]] Platform ports() { return services_.ports(); }
    [[nodiscard]] MainLoop& loop() { return loop_; }
    [[nodiscard]] TerminalDialogs& dialogs() { return dialogs_; }

private:
    InotifyFolderWatcher watcher_;
    QtMainLoop loop_;
    TerminalPasteboard pasteboard_;
    MemoryKeystrokes keystrokes_;
    TerminalDialogs dialogs_{loop_};
    LinuxServices services_{{.loop = loop_,
                             .watcher = watcher_,
                             .pasteboard = pasteboard_,
                             .keystrokes = keystrokes_,
                             .dialogs = dialogs_},
                            LinuxServices::Session::fromTerminal};
};

} // namespace pello
