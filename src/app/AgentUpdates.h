#pragma once

#include "app/Platform.h"
#include "core/controller/PelloController.h"
#include "platform/linux/LoadedFeedReader.h"
#include "ui/notes/NotesWindow.h"
#include "ui/notes/UpdateDialog.h"

#include <QPointer>

namespace pello {

/// The release notes and the check for updates of the running launcher: what its own commands and
/// the tray open. Nothing of it exists before, and nothing is read, until somebody asks for it.
class AgentUpdates {
public:
    /// Installs itself in `controller`. Both must outlive this object, and the adapters too.
    AgentUpdates(PelloController& controller, Platform platform);
    ~AgentUpdates();
    AgentUpdates(const AgentUpdates&) = delete;
    AgentUpdates& operator=(const AgentUpdates&) = delete;

private:
    [[nodiscard]] NotesServices services();
    void showReleaseNotes();
    void checkForUpdates();

    PelloController& controller_;
    Platform platform_;
    LoadedFeedReader reader_;
    QPointer<NotesWindow> notes_;
    QPointer<UpdateDialog> check_;
};

} // namespace pello
