#pragma once

#include "platform/Log.h"
#include "platform/LoginEnvironment.h"
#include "platform/MainLoop.h"
#include "platform/Processes.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The environment that the user's login shell has made, read once.
///
/// The shell is run as for a login, and asked to print its environment. What else it prints does
/// not matter. When it takes too long, refuses, or is none, the environment of this process stands
/// in for it.
class ShellLoginEnvironment final : public LoginEnvironment {
public:
    /// Where the shell runs, and what it has to begin with and scripts if it does not help: the
    /// environment of this process, less what only this process was told.
    struct Session {
        std::filesystem::path shell;
        std::filesystem::path home;
        EnvironmentVariables inherited;
    };

    /// How long the shell has.
    static constexpr std::chrono::seconds kLimit{2};

    /// Starts the shell. `processes`, `loop` and `log`, which is told when the shell does not help,
    /// must outlive this object.
    ShellLoginEnvironment(Processes& processes, MainLoop& loop, Log& log, const Session& session);
    ~ShellLoginEnvironment() override;
    ShellLoginEnvironment(const ShellLoginEnvironment&) = delete;
    ShellLoginEnvironment& operator=(const ShellLoginEnvironment&) = delete;

    void whenKnown(std::function<void(const EnvironmentVariables&)> action) override;

private:
    void finish(const ProcessResult& result);
    void makeDo(std::string_view reason);
    void settleOn(EnvironmentVariables variables);

    Log& log_;
    const std::string shell_;
    const EnvironmentVariables inherited_;
    std::optional<EnvironmentVariables> known_;
    std::vector<std::function<void(const EnvironmentVariables&)>> waiting_;
    Subscription limit_;
    /// What the shell's answer belongs to.
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

/// The login shell of this process's user, as the system's list of users has it.
[[nodiscard]] std::filesystem::path loginShell();

/// The variables in what the shell printed; nothing when they are not there completely.
[[nodiscard]] std::optional<EnvironmentVariables> printedEnvironment(std::string_view output);

} // namespace pello
