#pragma once

#include "base/Signal.h"
#include "platform/Dialogs.h"
#include "platform/LoginEnvironment.h"
#include "platform/MainLoop.h"
#include "platform/Notifier.h"
#include "platform/Processes.h"
#include "scripts/ScriptCommand.h"
#include "scripts/ScriptFailureLog.h"
#include "scripts/ScriptOutput.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Runs scripts, and tells the user what came of them.
///
/// A script runs directly, with at most one argument, in the user's home folder and login
/// environment, for as long as it likes. What it printed is shown as a notification when it has
/// done its work; when it failed, that is kept in the log of failures as well. Scripts go on when
/// this object goes. Main thread only.
class ScriptRunner {
public:
    /// What it works with; all of it must outlive it.
    struct Surroundings {
        MainLoop& loop;
        Processes& processes;
        Dialogs& dialogs;
        Notifier& notifier;
        LoginEnvironment& environment;
        ScriptFailureLog& failures;
        /// The user's home folder.
        std::filesystem::path home;
    };
    /// A script on its way.
    struct Running {
        /// Tells it from every other one, earlier ones too.
        std::uint64_t id = 0;
        ScriptCommand command;
        std::string argument;
        Date since;
        /// It has been asked to end.
        bool isStopping = false;

        friend bool operator==(const Running&, const Running&) = default;
    };
    /// What happens when the script is on its way already, with the same argument.
    enum class Repetition { refused, onPurpose };

    /// How long a script has to end by itself when it is stopped.
    static constexpr std::chrono::seconds kStopLimit{3};

    explicit ScriptRunner(Surroundings surroundings);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    /// Runs the script with `argument` as its only one; with none when that is empty. Asks first
    /// where the command wants it. Refuses what is on its way already, or being asked about, unless
    /// it is repeated on purpose.
    void run(const ScriptCommand& command, std::string_view argument,
             Repetition repetition = Repetition::refused);

    /// Asks the script of this `id` to end, and ends it when it takes too long. Nothing happens
    /// when it has ended or was asked already.
    void stop(std::uint64_t id);

    /// The scripts on their way, the earliest first.
    [[nodiscard]] std::vector<Running> running() const;

    /// Emitted after every change of the list.
    Signal<> changed;

private:
    struct Job;

    /// The script of `job` is wanted: start it once the environment is known.
    void prepare(std::uint64_t id);
    void start(Job& job, const EnvironmentVariables& environment);
    void finish(std::uint64_t id, const ProcessResult& result);
    void tell(const Running& script, const ProcessResult& result);
    /// `what` happened, for the notification's title.
    void fail(const Running& script, std::int32_t status, std::string detail,
              const std::string& what = "failed");
    [[nodiscard]] Job* find(std::uint64_t id);

    Surroundings around_;
    std::uint64_t newest_ = 0;
    /// Those that run, and those that are about to.
    std::vector<std::unique_ptr<Job>> jobs_;
    /// What answers that are under way belong to: they end with it.
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
