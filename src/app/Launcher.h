#pragma once

#include "app/Platform.h"
#include "core/controller/PelloController.h"
#include "platform/PelloLog.h"
#include "scripts/ScriptFailureLog.h"
#include "scripts/ScriptRunner.h"

namespace pello {

/// Everything of the launcher that has no window, put together over one platform.
class Launcher {
public:
    /// Begins to prepare what is needed for answers in `surroundings`.
    explicit Launcher(const Platform& platform, const Surroundings& surroundings = {});

    [[nodiscard]] PelloController& controller() { return controller_; }
    [[nodiscard]] PelloSettings& settings() { return settings_; }
    [[nodiscard]] const GlyphCatalogue& glyphs() const { return glyphs_; }
    [[nodiscard]] const UsageStore& usage() const { return usage_; }
    [[nodiscard]] UsageStore& usage() { return usage_; }
    [[nodiscard]] QueryHistory& queryHistory() { return queryHistory_; }
    [[nodiscard]] const AppIndexer& applications() const { return indexer_; }
    [[nodiscard]] ScriptFailureLog& scriptFailures() { return scriptFailures_; }
    [[nodiscard]] const ScriptsIndex& scripts() const { return scripts_; }
    [[nodiscard]] const QuickActions& quickActions() const { return quickActions_; }

private:
    PelloLog log_;
    PelloSettings settings_;
    UsageStore usage_;
    QueryHistory queryHistory_;
    AppIndexer indexer_;
    AliasIndex aliases_;
    QuickActions quickActions_;
    SystemActions systemActions_;
    GlyphCatalogue glyphs_;
    ScriptFailureLog scriptFailures_;
    ScriptRunner scriptRunner_;
    RunningScripts runningScripts_;
    ScriptsIndex scripts_;
    PelloController controller_;
    Subscription onProblem_;
    Subscription onFailure_;
    Subscription onLostPasteboard_;
    Subscription onUnseenNotification_;
};

} // namespace pello
