#include "scripts/ScriptRunner.h"

#include <algorithm>
#include <utility>
#include <variant>

//            asked about          environment awaited            running
//  run ──┬── (confirmation) ──┬── (login environment) ── start ── (process) ── finish
//        └────────────────────┘                                       │
//                    stop: terminate, and kill after a while ─────────┘

namespace pello {
namespace {

/// What a shell makes of what ended a command.
constexpr std::int32_t kNotStartedStatus = 126;
constexpr std::int32_t kSignalStatus = 128;
/// What no program can end with.
constexpr std::int32_t kUnknownStatus = -1;

Dialogs::Confirmation questionAbout(const ScriptCommand& command, std::string_view argument) {
    std::string message =
        "The script “" + command.url.filename().string() + "” asks before it runs.";
    if (!argument.empty()) {
        message += "\nArgument: " + ScriptOutput::excerpt(argument);
    }
    return {.title = "Run “" + command.name + "”?",
            .message = std::move(message),
            .confirmTitle = "Run"};
}

} // namespace

struct ScriptRunner::Job {
    Running script;
    /// Its process, once there is one.
    std::optional<Processes::Handle> process;
    /// The end of its patience.
    Subscription killing;
};

ScriptRunner::ScriptRunner(Surroundings surroundings) : around_(std::move(surroundings)) {}
ScriptRunner::~ScriptRunner() = default;

void ScriptRunner::run(const ScriptCommand& command, std::string_view argument,
                       Repetition repetition) {
    const bool isOnItsWay = std::ranges::any_of(jobs_, [&](const auto& job) {
        return job->script.command.url == command.url && job->script.argument == argument;
    });
    if (isOnItsWay && repetition == Repetition::refused) {
        return;
    }
    const std::uint64_t id = ++newest_;
    jobs_.push_back(std::make_unique<Job>(
        Job{.script = {.id = id, .command = command, .argument = std::string(argument)}}));
    if (!command.confirm) {
        prepare(id);
        return;
    }
    around_.dialogs.confirm(
        questionAbout(command, argument),
        [this, weakAlive = std::weak_ptr(alive_), id](Dialogs::Answer answer) {
            if (weakAlive.expired()) {
                return;
            }
            if (answer == Dialogs::Answer::confirmed) {
                prepare(id);
            } else {
                std::erase_if(jobs_, [&](const auto& job) { return job->script.id == id; });
            }
        });
}

void ScriptRunner::prepare(std::uint64_t id) {
    around_.environment.whenKnown(
        [this, weakAlive = std::weak_ptr(alive_), id](const EnvironmentVariables& environment) {
            if (weakAlive.expired()) {
                return;
            }
            if (Job* job = find(id)) {
                start(*job, environment);
            }
        });
}

void ScriptRunner::start(Job& job, const EnvironmentVariables& environment) {
    const Running& script = job.script;
    Processes::Program program{
        .file = script.command.url, .folder = around_.home, .environment = environment};
    if (!script.argument.empty()) {
        program.arguments.push_back(script.argument);
    }
    job.script.since = around_.loop.now();
    job.process = around_.processes.start(
        program, [this, weakAlive = std::weak_ptr(alive_), id = script.id](const auto& result) {
            if (!weakAlive.expired()) {
                finish(id, result);
            }
        });
    changed.emit();
}

void ScriptRunner::stop(std::uint64_t id) {
    Job* job = find(id);
    if (job == nullptr || !job->process || job->script.isStopping) {
        return;
    }
    const Processes::Handle process = *job->process;
    job->script.isStopping = true;
    job->killing =
        around_.loop.after(kStopLimit, [this, process] { around_.processes.kill(process); });
    around_.processes.terminate(process);
    changed.emit();
}

void ScriptRunner::finish(std::uint64_t id, const ProcessResult& result) {
    const auto position =
        std::ranges::find(jobs_, id, [](const auto& job) { return job->script.id; });
    const std::unique_ptr<Job> job = std::move(*position);
    jobs_.erase(position);
    tell(job->script, result);
    changed.emit();
}

void ScriptRunner::tell(const Running& script, const ProcessResult& result) {
    const ScriptOutput output{.standard = result.standardOutput, .error = result.errorOutput};
    if (const auto* failed = std::get_if<ProcessResult::Failed>(&result.end)) {
        fail(script, kNotStartedStatus, "Could not be run: " + failed->reason + ".");
    } else if (const auto* unknown = std::get_if<ProcessResult::Unknown>(&result.end)) {
        fail(script, kUnknownStatus, "How it ended is not known: " + unknown->reason + ".");
    } else if (const auto* signal = std::get_if<ProcessResult::Signalled>(&result.end)) {
        if (script.isStopping) { // as the user wanted
            around_.notifier.notify(script.command.name + " was stopped", output.message());
            return;
        }
        const int status = kSignalStatus + signal->number;
        fail(script, status, output.failureDetail(status), "was ended by " + signal->name);
    } else if (const int status = std::get<ProcessResult::Exited>(result.end).status; status != 0) {
        fail(script, status, output.failureDetail(status));
    } else if (const std::string message = output.message(); !message.empty()) {
        around_.notifier.notify(script.command.name, message);
    }
}

void ScriptRunner::fail(const Running& script, std::int32_t status, std::string detail,
                        const std::string& what) {
    around_.notifier.notify(script.command.name + ' ' + what, detail);
    around_.failures.record({.name = script.command.name,
                             .fileName = script.command.url.filename().string(),
                             .status = status,
                             .detail = std::move(detail),
                             .date = around_.loop.now()});
}

std::vector<ScriptRunner::Running> ScriptRunner::running() const {
    std::vector<Running> scripts;
    for (const auto& job : jobs_) {
        if (job->process) {
            scripts.push_back(job->script);
        }
    }
    return scripts;
}

ScriptRunner::Job* ScriptRunner::find(std::uint64_t id) {
    const auto found = std::ranges::find(jobs_, id, [](const auto& job) { return job->script.id; });
    return found != jobs_.end() ? found->get() : nullptr;
}

} // namespace pello
