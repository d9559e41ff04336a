#include "app/Launcher.h"

namespace pello {

Launcher::Launcher(const Platform& platform)
    : log_(platform.log),
      settings_(platform.defaults, platform.loginItem),
      usage_(platform.defaults, platform.loop),
      queryHistory_(platform.defaults),
      indexer_(platform.loop, platform.watcher, platform.bundles, platform.workspace,
               platform.home),
      controller_({.settings = settings_,
                   .indexer = indexer_,
                   .usage = usage_,
                   .queryHistory = queryHistory_,
                   .loop = platform.loop,
                   .workspace = platform.workspace,
                   .bundles = platform.bundles}),
      onProblem_(platform.defaults.problem.connect(
          [this](const std::string& sentence) { controller_.report(sentence); })),
      onFailure_(platform.workspace.failed.connect([this](const std::string& sentence) {
          log_.panel.error(sentence);
          controller_.report(sentence);
      })) {}

} // namespace pello
