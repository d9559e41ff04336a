#pragma once

#include "platform/AddressHandlers.h"
#include "platform/BundleReader.h"
#include "platform/Dialogs.h"
#include "platform/FileAccess.h"
#include "platform/FolderWatcher.h"
#include "platform/Keystrokes.h"
#include "platform/Log.h"
#include "platform/LoginEnvironment.h"
#include "platform/LoginItem.h"
#include "platform/MainLoop.h"
#include "platform/Notifier.h"
#include "platform/Pasteboard.h"
#include "platform/Processes.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

#include <filesystem>

namespace pello {

/// The desktop that the launcher runs on: one adapter per port. Whoever fills it keeps them alive.
struct Platform {
    MainLoop& loop;
    UserDefaults& defaults;
    FolderWatcher& watcher;
    const FileAccess& fileAccess;
    const BundleReader& bundles;
    Workspace& workspace;
    const AddressHandlers& addressHandlers;
    Pasteboard& pasteboard;
    Keystrokes& keystrokes;
    Dialogs& dialogs;
    Notifier& notifier;
    Processes& processes;
    LoginEnvironment& loginEnvironment;
    LoginItem& loginItem;
    Log& log;
    /// The user's home folder.
    std::filesystem::path home;
    /// Where the user's scripts are.
    std::filesystem::path scripts;
};

} // namespace pello
