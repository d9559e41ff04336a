#include "app/CommandLine.h"

#include "app/TypedMoment.h"
#include "app/Version.h"
#include "base/ReadersLocale.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {
namespace {

/// Collects what the parser finds; the last subcommand that matched decides.
class Parser {
public:
    Parser() : app_("Pello, a keyboard launcher: type a few letters, press Return.", "pello") {
        app_.set_version_flag("--version", std::string("pello ") + kVersion);
        app_.add_flag("--show", agent_.showsPanel, "Open the panel at once");
        app_.require_subcommand(0, 1);
        app_.callback([this] {
            if (app_.get_subcommands().empty()) {
                command_ = agent_;
            }
        });
        addClientVerb("toggle", "Open the panel of the running launcher, or close it");
        addShow();
        addClientVerb("hide", "Close the panel of the running launcher");
        addClientVerb("reindex", "Let the running launcher look for applications and scripts anew");
        addClientVerb("guide", "Open the set-up guide of the running launcher");
        addClientVerb("ping", "Tell by the exit status whether a launcher is running");
        addClientVerb("quit", "End the running launcher");
        app_.add_subcommand("version", "Print the version")->callback([this] {
            command_ = VersionCommand{};
        });
        addPick();
        addQuery();
        addGlyph();
        addAnswer("calc", "Print what an expression comes to: pello calc '12*(3+4)'",
                  AnswerCommand::Evaluator::calculator);
        addAnswer("convert", "Print a conversion: pello convert '5 km to mi'",
                  AnswerCommand::Evaluator::conversions);
        addSettings();
        addLearned();
        addHistory();
        addScripts();
        addLogs();
        app_.add_subcommand("doctor", "Look for what does not work, and say what to do")
            ->callback([this] { command_ = DoctorCommand{}; });
        app_.add_subcommand("keys", "Show what is heard of the keyboard, without what is typed")
            ->callback([this] { command_ = KeysCommand{}; });
        app_.add_subcommand("terminal", "Search and run in this terminal")->callback([this] {
            command_ = TerminalCommand{};
        });
    }

    std::variant<Command, int> parse(int argc, const char* const* argv) {
        try {
            app_.parse(takeLiteral(argc, argv), argv);
        } catch (const CLI::Success& request) { // help or version
            return app_.exit(request);
        } catch (const CLI::ParseError& error) {
            std::cerr << "pello: " << error.what() << "\nTry 'pello --help'.\n";
            return ExitStatus::kUsage;
        }
        return command_;
    }

private:
    /// Takes what follows "--" of a text to answer, where the parser would look for options of the
    /// program, and returns how many arguments are left.
    int takeLiteral(int argc, const char* const* argv) {
        const std::span arguments(argv, static_cast<std::size_t>(argc));
        const auto is = [](std::string_view text) {
            return [text](const char* argument) { return argument == text; };
        };
        const bool asksForAnswer =
            argc > 1 && (is("calc")(arguments[1]) || is("convert")(arguments[1]));
        const auto dashes =
            asksForAnswer ? std::ranges::find_if(arguments, is("--")) : arguments.end();
        if (dashes != arguments.end()) {
            literal_.assign(dashes + 1, arguments.end());
        }
        return static_cast<int>(dashes - arguments.begin());
    }

    void addClientVerb(const std::string& verb, const std::string& description) {
        app_.add_subcommand(verb, description)->callback([this, verb] {
            command_ = ClientCommand{.verb = verb, .text = {}};
        });
    }

    void addShow() {
        CLI::App* show = app_.add_subcommand("show", "Open the panel of the running launcher");
        show->add_option("TEXT", words_, "What to type into it");
        show->callback([this] {
            command_ = ClientCommand{.verb = "show", .text = CLI::detail::join(words_, " ")};
        });
    }

    void addPick() {
        CLI::App* pick = app_.add_subcommand(
            "pick", "Choose a line of standard input in the panel of the running launcher");
        pick->add_option("--prompt", pick_.prompt, "What is to be chosen");
        pick->callback([this] { command_ = pick_; });
    }

    void addQuery() {
        CLI::App* query = app_.add_subcommand("query", "Print the rows that a text finds");
        query->add_option("TEXT", words_, "What to search for")->required();
        query->add_flag("--json", isJson_, "Print JSON");
        query->add_flag("--explain", query_.explains, "Say what made each row's place");
        addLimit(*query, query_.limit);
        addSurroundings(*query);
        query->callback([this] {
            query_.text = CLI::detail::join(words_, " ");
            query_.from = from_;
            query_.format = isJson_ ? QueryCommand::Format::json : QueryCommand::Format::text;
            command_ = query_;
        });
    }

    void addGlyph() {
        CLI::App* glyph =
            app_.add_subcommand("glyph", "Print the emoji and symbols that a text finds");
        glyph->add_option("TEXT", words_, "What to search for")->required();
        glyph->add_flag("--json", isJson_, "Print JSON");
        addLimit(*glyph, glyph_.limit);
        glyph->callback([this] {
            glyph_.text = CLI::detail::join(words_, " ");
            glyph_.format = isJson_ ? QueryCommand::Format::json : QueryCommand::Format::text;
            command_ = glyph_;
        });
    }

    static void addLimit(CLI::App& command, std::optional<std::ptrdiff_t>& limit) {
        command.add_option("--limit", limit, "At most this many rows")
            ->check([](const std::string& text) {
                const bool isWhole =
                    !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
                return isWhole ? "" : "takes a whole number from 0, not \"" + text + '"';
            });
    }

    void addAnswer(const std::string& name, const std::string& description,
                   AnswerCommand::Evaluator evaluator) {
        CLI::App* answer = app_.add_subcommand(name, description);
        addSurroundings(*answer);
        answer->allow_extras(); // not an option of its own: "-2+3" would be taken for a flag
        answer->callback([this, answer, evaluator] {
            auto words = answer->remaining();
            words.insert(words.end(), literal_.begin(), literal_.end());
            if (words.empty()) {
                throw CLI::RequiredError("A text to answer");
            }
            command_ = AnswerCommand{
                .evaluator = evaluator, .text = CLI::detail::join(words, " "), .from = from_};
        });
    }

    void addSurroundings(CLI::App& command) {
        command
            .add_option("--locale", from_.surroundings.locale,
                        "Answer as this locale reads and writes (de_DE)")
            ->check([](const std::string& name) {
                return isReadersLocale(name) ? ""
                                             : "takes a locale such as de_DE, not \"" + name + '"';
            });
        command
            .add_option_function<std::string>(
                "--now", [this](const std::string& text) { from_.now = typedMoment(text); },
                "Answer as at this moment (2026-11-21T16:53Z)")
            ->check([](const std::string& text) {
                return typedMoment(text)
                           ? ""
                           : "takes a moment such as 2026-11-21T16:53Z, not \"" + text + '"';
            });
    }

    void addLearned() {
        CLI::App* learned =
            app_.add_subcommand("learned", "Print what was learned from your choices");
        learned->require_subcommand(0, 1);
        learned->callback([this, learned] {
            if (learned->get_subcommands().empty()) {
                command_ = LearnedCommand{};
            }
        });
        learned->add_subcommand("list", "The same: id, runs, last one, texts that lead to it")
            ->callback([this] { command_ = LearnedCommand{}; });
        CLI::App* forget = learned->add_subcommand("forget", "Forget what was learned of one item");
        forget->add_option("ID", id_, "Its id, as it is listed")->required();
        forget->callback([this] {
            command_ = LearnedCommand{.action = LearnedCommand::Action::forget, .id = id_};
        });
    }

    void addHistory() {
        CLI::App* history = app_.add_subcommand("history", "Print the texts that ran something");
        history->require_subcommand(0, 1);
        history->callback([this, history] {
            if (history->get_subcommands().empty()) {
                command_ = HistoryCommand{};
            }
        });
        history->add_subcommand("clear", "Forget them")->callback([this] {
            command_ = HistoryCommand{.action = HistoryCommand::Action::clear};
        });
    }

    void addLogs() {
        CLI::App* logs = app_.add_subcommand("logs", "Print what Pello wrote to its log");
        logs->add_flag("--follow,-f", followsLog_, "Go on with what is written from now on");
        logs->callback([this] {
            command_ = LogsCommand{.extent = followsLog_ ? LogsCommand::Extent::following
                                                         : LogsCommand::Extent::written};
        });
    }

    void addScripts() {
        CLI::App* scripts = app_.add_subcommand("scripts", "List the scripts");
        scripts->require_subcommand(0, 1);
        scripts->callback([this, scripts] {
            if (scripts->get_subcommands().empty()) {
                command_ = ScriptsCommand{};
            }
        });
        CLI::App* run = scripts->add_subcommand("run", "Run one here, with its output and status");
        run->add_option("NAME", script_.name, "Its name, keyword or file")->required();
        run->add_option("ARG", script_.argument, "What to hand it");
        run->callback([this] {
            script_.action = ScriptsCommand::Action::run;
            command_ = script_;
        });
    }

    void addSettings() {
        CLI::App* settings = app_.add_subcommand("settings", "Read and change the settings");
        settings->require_subcommand(0, 1);
        settings->add_option("PAGE", page_, "Open the window of the settings at this page")
            ->check(CLI::IsMember(
                std::vector<std::string>(kSettingsPages.begin(), kSettingsPages.end())));
        settings->callback([this, settings] {
            if (settings->get_subcommands().empty()) {
                command_ = ClientCommand{.verb = "settings", .text = page_};
            }
        });
        addSettingsAction(*settings, "list", "Print every setting with its value",
                          SettingsCommand::Action::list);
        CLI::App* get = addSettingsAction(*settings, "get", "Print the value of one setting",
                                          SettingsCommand::Action::get);
        get->add_option("KEY", settings_.key)->required();
        CLI::App* set =
            addSettingsAction(*settings, "set", "Change one setting", SettingsCommand::Action::set);
        set->add_option("KEY", settings_.key)->required();
        set->add_option("VALUE", settings_.value)->required();
        CLI::App* reset = addSettingsAction(*settings, "reset", "Return one setting to its default",
                                            SettingsCommand::Action::reset);
        reset->add_option("KEY", settings_.key)->required();
        addSettingsAction(*settings, "export", "Write all settings as JSON",
                          SettingsCommand::Action::exportAll)
            ->add_option("FILE", settings_.file, "Where to; - or none is standard output");
        addSettingsAction(*settings, "import", "Take over settings that were exported",
                          SettingsCommand::Action::importAll)
            ->add_option("FILE", settings_.file, "Where from; - or none is standard input");
    }

    CLI::App* addSettingsAction(CLI::App& settings, const std::string& name,
                                const std::string& description, SettingsCommand::Action action) {
        CLI::App* sub = settings.add_subcommand(name, description);
        sub->callback([this, action] {
            settings_.action = action;
            command_ = settings_;
        });
        return sub;
    }

    CLI::App app_;
    AgentCommand agent_;
    PickCommand pick_;
    QueryCommand query_;
    GlyphCommand glyph_;
    AskedFrom from_;
    std::string page_;
    SettingsCommand settings_;
    ScriptsCommand script_;
    std::vector<std::string> words_;
    std::vector<std::string> literal_;
    std::string id_;
    bool isJson_ = false;
    bool followsLog_ = false;
    Command command_;
};

} // namespace

std::variant<Command, int> parseCommandLine(int argc, const char* const* argv) {
    return Parser().parse(argc, argv);
}

} // namespace pello
