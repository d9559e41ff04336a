#include "app/Launcher.h"

namespace pello {

Launcher::Launcher(const Platform& platform, const Surroundings& surroundings)
    : log_(platform.log),
      settings_(platform.defaults, platform.loginItem),
      usage_(platform.defaults, platform.loop),
      queryHistory_(platform.defaults),
      indexer_(platform.loop, platform.watcher, platform.bundles, platform.workspace,
               platform.home),
      aliases_(platform.loop, platform.addressHandlers, platform.workspace),
      quickActions_(platform.loop, platform.workspace, platform.pasteboard),
      systemActions_(platform.loop, platform.pasteboard, platform.keystrokes),
      glyphs_(platform.loop, systemActions_),
      scriptRunner_({.loop = platform.loop,
                     .processes = platform.processes,
                     .dialogs = platform.dialogs,
                     .notifier = platform.notifier,
                     .environment = platform.loginEnvironment,
                     .failures = scriptFailures_,
                     .home = platform.home}),
      runningScripts_(platform.loop, scriptRunner_, platform.dialogs),
      scripts_(platform.loop, platform.watcher, platform.fileAccess, platform.scripts,
               [this](const ScriptCommand& command, std::string_view argument) {
                   scriptRunner_.run(command, argument);
               }),
      controller_({.settings = settings_,
                   .indexer = indexer_,
                   .aliases = aliases_,
                   .scripts = scripts_,
                   .runningScripts = runningScripts_,
                   .quickActions = quickActions_,
                   .usage = usage_,
                   .queryHistory = queryHistory_,
                   .loop = platform.loop,
                   .workspace = platform.workspace,
                   .pasteboard = platform.pasteboard,
                   .bundles = platform.bundles,
                   .glyphs = glyphs_}),
      onProblem_(platform.defaults.problem.connect(
          [this](const std::string& sentence) { controller_.report(sentence); })),
      onFailure_(platform.workspace.failed.connect([this](const std::string& sentence) {
          log_.panel.error(sentence);
          controller_.report(sentence);
      })),
      onLostPasteboard_(systemActions_.failed.connect(
          [this](const std::string& sentence) { log_.panel.error(sentence); })),
      onUnseenNotification_(platform.notifier.failed.connect(
          [this](const std::string& sentence) { log_.panel.error(sentence); })) {
    quickActions_.prepare(surroundings);
    glyphs_.prepare();
}

} // namespace pello
