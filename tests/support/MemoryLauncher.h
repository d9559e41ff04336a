#pragma once

#include "core/controller/PelloController.h"
#include "platform/memory/MemoryAddressHandlers.h"
#include "platform/memory/MemoryBundleReader.h"
#include "platform/memory/MemoryDialogs.h"
#include "platform/memory/MemoryFileAccess.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryLoginEnvironment.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryNotifier.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryProcesses.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWorkspace.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pello {

/// A whole launcher over a folder of applications, on a desktop in memory.
class MemoryLauncher {
public:
    /// Makes applications of these names and indexes them.
    void install(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            bundles.descriptions[folder.makeFolder("Applications/" + name + ".app")] = {.name =
                                                                                            name};
        }
        reindex();
    }

    /// Makes a script of this text and indexes it; once started, it runs until it is ended.
    void addScript(const std::string& name, std::string_view text) {
        loginEnvironment.become({});
        const auto file = folder.write("Scripts/" + name, text);
        std::filesystem::permissions(file, std::filesystem::perms(0700));
        processes.programs[file] = std::nullopt;
        reindex();
    }

    void uninstall(const std::string& name) { std::filesystem::remove_all(path(name)); }

    void reindex(PelloController::Pruning pruning = PelloController::Pruning::keepAll) {
        controller.reindex(pruning);
        loop.settle();
    }

    /// The titles of the rows, from the top, but for the web search that every text ends in and for
    /// the launcher's own commands.
    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const SearchResult& result : controller.results()) {
            if (result.item->kind != LaunchItem::Kind::webSearch &&
                !result.item->id.starts_with("cmd:pello-")) {
                titles.push_back(result.item->title);
            }
        }
        return titles;
    }

    /// The titles that `query` finds.
    std::vector<std::string> found(std::string_view query) {
        controller.setQuery(query);
        return titles();
    }

    /// Types `query` and runs row `row` of what it finds.
    void pick(std::string_view query, int row = 0) {
        controller.setQuery(query);
        controller.setSelection(row);
        controller.runSelection();
        loop.settle();
    }

    /// The names of the applications that were opened, in order.
    [[nodiscard]] std::vector<std::string> opened() const {
        std::vector<std::string> names;
        for (const auto& application : workspace.openedApplications) {
            names.push_back(application.stem().string());
        }
        return names;
    }

    [[nodiscard]] std::filesystem::path path(const std::string& name) const {
        return applications / (name + ".app");
    }
    [[nodiscard]] std::string idOf(const std::string& name) const {
        return "app:" + path(name).string();
    }

    TemporaryFolder folder;
    std::filesystem::path applications = folder.makeFolder("Applications");
    MemoryMainLoop loop{Date{100'000'000}};
    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    MemoryFolderWatcher watcher;
    MemoryFileAccess fileAccess;
    MemoryBundleReader bundles{"app", {applications}};
    MemoryWorkspace workspace;
    MemoryAddressHandlers addressHandlers;
    MemoryPasteboard pasteboard;
    MemoryKeystrokes keystrokes;
    PelloSettings settings{defaults, loginItem};
    UsageStore usage{defaults, loop};
    QueryHistory history{defaults};
    AppIndexer indexer{loop, watcher, bundles, workspace, folder.path()};
    AliasIndex aliases{loop, addressHandlers, workspace};
    MemoryProcesses processes{loop};
    MemoryDialogs dialogs;
    MemoryNotifier notifier;
    MemoryLoginEnvironment loginEnvironment;
    ScriptFailureLog scriptFailures;
    ScriptRunner scriptRunner{{.loop = loop,
                               .processes = processes,
                               .dialogs = dialogs,
                               .notifier = notifier,
                               .environment = loginEnvironment,
                               .failures = scriptFailures,
                               .home = folder.path()}};
    RunningScripts runningScripts{loop, scriptRunner, dialogs};
    std::vector<std::string> scriptRuns; // "name|argument"
    ScriptsIndex scripts{loop, watcher, fileAccess, folder.path() / "Scripts",
                         [this](const ScriptCommand& command, std::string_view argument) {
                             scriptRuns.push_back(command.name + '|' + std::string(argument));
                             scriptRunner.run(command, argument);
                         }};
    QuickActions quickActions{loop, workspace, pasteboard};
    SystemActions systemActions{loop, pasteboard, keystrokes};
    GlyphCatalogue glyphs{loop, systemActions};
    PelloController controller{{.settings = settings,
                                .indexer = indexer,
                                .aliases = aliases,
                                .scripts = scripts,
                                .runningScripts = runningScripts,
                                .quickActions = quickActions,
                                .usage = usage,
                                .queryHistory = history,
                                .loop = loop,
                                .workspace = workspace,
                                .pasteboard = pasteboard,
                                .bundles = bundles,
                                .glyphs = glyphs}};
};

} // namespace pello
