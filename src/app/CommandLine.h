#pragma once

#include "answers/Surroundings.h"
#include "app/client/ClientArguments.h"
#include "app/client/ExitStatus.h"
#include "base/Date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>

namespace pello {

/// `pello`, `pello --show`: runs the launcher until it is told to quit.
struct AgentCommand {
    /// Opens the panel at once.
    bool showsPanel = false;
};

/// Where and when a question is asked, for scripts that want the same answer every time.
struct AskedFrom {
    Surroundings surroundings;
    /// Without it, now.
    std::optional<Date> now;

    [[nodiscard]] Date moment() const { return now ? *now : Date::ofSystemClock(); }
};

/// `pello calc EXPR`, `pello convert TEXT`: prints the answer.
struct AnswerCommand {
    enum class Evaluator { calculator, conversions };

    Evaluator evaluator = Evaluator::calculator;
    std::string text;
    AskedFrom from;
};

/// `pello query TEXT`: prints the ranked rows.
struct QueryCommand {
    enum class Format { text, json };

    std::string text;
    Format format = Format::text;
    bool explains = false;
    /// At most this many rows; without it, as many as the panel shows.
    std::optional<std::ptrdiff_t> limit;
    AskedFrom from;
};

/// `pello glyph TEXT`: prints the glyphs that the text finds.
struct GlyphCommand {
    std::string text;
    QueryCommand::Format format = QueryCommand::Format::text;
    /// At most this many; without it, as many as the panel shows.
    std::optional<std::ptrdiff_t> limit;
};

/// `pello settings ...`: reads and changes the settings.
struct SettingsCommand {
    enum class Action { list, get, set, reset, exportAll, importAll };

    Action action = Action::list;
    std::string key;
    std::string value;
    /// To export to or import from; "-" is the standard stream.
    std::string file = "-";
};

/// `pello learned`, `pello learned forget ID`: prints or forgets what was learned.
struct LearnedCommand {
    enum class Action { list, forget };

    Action action = Action::list;
    std::string id;
};

/// `pello history`, `pello history clear`: prints or forgets the texts that were used.
struct HistoryCommand {
    enum class Action { list, clear };

    Action action = Action::list;
};

/// `pello logs`: prints what was logged.
struct LogsCommand {
    enum class Extent {
        written,  ///< what there is
        following ///< that, and what comes until it is interrupted
    };

    Extent extent = Extent::written;
};

/// `pello scripts`, `pello scripts run NAME [ARG]`: lists the scripts, or becomes one.
struct ScriptsCommand {
    enum class Action { list, run };

    Action action = Action::list;
    /// Of the script to run: its name, its keyword or its file's name.
    std::string name;
    std::optional<std::string> argument;
};

/// `pello terminal`: the launcher without a display.
struct TerminalCommand {};

/// `pello doctor`: looks for what does not work.
struct DoctorCommand {};

/// `pello keys`: shows what is heard of the keyboard.
struct KeysCommand {};

using Command =
    std::variant<AgentCommand, ClientCommand, PickCommand, VersionCommand, QueryCommand,
                 GlyphCommand, AnswerCommand, SettingsCommand, LearnedCommand, HistoryCommand,
                 ScriptsCommand, LogsCommand, TerminalCommand, DoctorCommand, KeysCommand>;

/// What the arguments ask for, or the status to exit with once help, the version or a complaint
/// has been printed.
[[nodiscard]] std::variant<Command, int> parseCommandLine(int argc, const char* const* argv);

} // namespace pello
