#include "scripts/RunningScripts.h"

#include "scripts/ScriptItem.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

std::string twoDigits(long long number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

/// Such as 0:07 or 1:02:03.
std::string elapsed(Date since, Date now) {
    const auto seconds = std::max<long long>(0, static_cast<long long>((now - since).count()));
    const long long minutes = seconds / 60;
    const std::string end = ':' + twoDigits(seconds % 60);
    return minutes < 60 ? std::to_string(minutes) + end
                        : std::to_string(minutes / 60) + ':' + twoDigits(minutes % 60) + end;
}

std::string titleOf(const ScriptRunner::Running& script) {
    const std::string& name = script.command.name;
    return script.argument.empty() ? name : name + ": " + script.argument;
}

} // namespace

RunningScripts::RunningScripts(MainLoop& loop, ScriptRunner& runner, Dialogs& dialogs)
    : loop_(loop),
      runner_(runner),
      dialogs_(dialogs),
      items_(PreparedList::make({})),
      onChange_(runner.changed.connect([this] { takeOver(); })) {}

void RunningScripts::takeOver() {
    running_.clear();
    std::vector<LaunchItem> items;
    for (ScriptRunner::Running& script : runner_.running()) {
        std::string id = ScriptItem::id(script.command, script.argument);
        const bool isOnlyOne = !running_.contains(id);
        if (isOnlyOne && !script.argument.empty()) {
            items.push_back({.id = id,
                             .title = titleOf(script),
                             .kind = LaunchItem::Kind::script,
                             .icon = script.command.launcherIcon(),
                             .keywords = {"script"},
                             .isEphemeral = true,
                             .revealURL = script.command.url});
        }
        running_.insert_or_assign(std::move(id), std::move(script));
    }
    items_ = PreparedList::make(std::move(items));
    changed.emit();
}

LaunchItemRef RunningScripts::row(const LaunchItem& item) {
    const auto found = running_.find(item.id);
    if (found == running_.end()) {
        return nullptr;
    }
    const ScriptRunner::Running& script = found->second;
    LaunchItem row = item;
    const std::string time = elapsed(script.since, loop_.now());
    row.subtitle = script.isStopping ? "Was asked to end" : "↩ stops it, ⇧↩ runs it again";
    row.accessory = (script.isStopping ? "Stopping " : "Running ") + time;
    row.isEphemeral = true; // stopping something is nothing to learn from
    row.run = [this, script] { askToStop(script); };
    return std::make_shared<const LaunchItem>(std::move(row));
}

void RunningScripts::askToStop(const ScriptRunner::Running& script) {
    dialogs_.confirm({.title = "Stop “" + titleOf(script) + "”?",
                      .message = "It has been running for " + elapsed(script.since, loop_.now()) +
                                 ". What it has not finished will be left undone.",
                      .confirmTitle = "Stop"},
                     [this, id = script.id](Dialogs::Answer answer) {
                         if (answer == Dialogs::Answer::confirmed) {
                             runner_.stop(id);
                         }
                     });
}

void RunningScripts::runAgain(const LaunchItem& item) {
    if (const auto found = running_.find(item.id); found != running_.end()) {
        const ScriptRunner::Running script = found->second;
        runner_.run(script.command, script.argument, ScriptRunner::Repetition::onPurpose);
    }
}

} // namespace pello
