#pragma once

#include "base/Subscription.h"
#include "core/items/SearchResult.h"
#include "platform/Dialogs.h"
#include "platform/MainLoop.h"
#include "scripts/ScriptRunner.h"
#include "search/PreparedList.h"

#include <memory>
#include <unordered_map>

namespace pello {

/// The rows of scripts that run: they say for how long, stop the script instead of starting it, and
/// start it another time when that is asked for. Main thread only.
class RunningScripts {
public:
    /// Everything must outlive this object and its rows.
    RunningScripts(MainLoop& loop, ScriptRunner& runner, Dialogs& dialogs);

    [[nodiscard]] bool isEmpty() const { return running_.empty(); }

    /// The rows of those that run with an argument, the earliest first: no other source offers
    /// them. Never null.
    [[nodiscard]] std::shared_ptr<const PreparedList> items() const { return items_; }

    /// What stands in the place of `item` as long as its script runs with its argument; null when
    /// it does not.
    [[nodiscard]] LaunchItemRef row(const LaunchItem& item);

    /// Starts the script of `item` another time, beside the one that runs. Nothing happens when
    /// none does.
    void runAgain(const LaunchItem& item);

    /// Emitted after a script has started, ended or been asked to end.
    Signal<> changed;

private:
    void takeOver();
    void askToStop(const ScriptRunner::Running& script);

    MainLoop& loop_;
    ScriptRunner& runner_;
    Dialogs& dialogs_;
    /// By the id of their row; of several, the newest.
    std::unordered_map<std::string, ScriptRunner::Running> running_;
    std::shared_ptr<const PreparedList> items_;
    Subscription onChange_;
};

} // namespace pello
