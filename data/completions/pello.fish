# Completion of pello's command line in fish.

function __pello_at_verb
    test (count (commandline -opc)) -eq 1
end

# Whether the words after the program are these, and the next one is being typed.
function __pello_after
    set -l words (commandline -opc)
    test (count $words) -eq (math (count $argv) + 1); and test "$words[2..]" = "$argv"
end

function __pello_setting_follows
    for action in get set reset
        __pello_after settings $action; and return
    end
    return 1
end

function __pello_switch_follows
    set -l words (commandline -opc)
    test (count $words) -eq 4; and test "$words[2..3]" = "settings set"
    and string match -qr '^(true|false)$' -- ($words[1] settings get $words[4] 2>/dev/null)
end

function __pello_prints
    set -l program (commandline -opc)[1]
    $program $argv 2>/dev/null
end

complete -c pello -f
for verb in "toggle|Open the panel, or close it" "show|Open the panel with a text" \
    "hide|Close the panel" "settings|Open, read and change the settings" \
    "guide|Open the set-up guide" "reindex|Look for applications and scripts anew" "ping|Tell whether a launcher is running" \
    "quit|End the running launcher" "version|Print the version" \
    "pick|Choose a line of standard input in the panel" \
    "query|Print the rows that a text finds" "glyph|Print the emoji and symbols that a text finds" \
    "calc|Print what an expression comes to" "convert|Print a conversion" \
    "learned|Print or forget what was learned" \
    "history|Print or forget the texts that ran something" "scripts|List the scripts, or run one" \
    "logs|Print the log" "terminal|Search and run in this terminal" \
    "doctor|Look for what does not work" "keys|Show what is heard of the keyboard"
    set -l parts (string split "|" -- $verb)
    complete -c pello -n __pello_at_verb -a $parts[1] -d $parts[2]
end
complete -c pello -n __pello_at_verb -l show -d "Open the panel at once"
complete -c pello -n __pello_at_verb -l version -d "Print the version"
complete -c pello -s h -l help -d "Print a summary"

complete -c pello -n "__fish_seen_subcommand_from query glyph" -l json -d "Print JSON"
complete -c pello -n "__fish_seen_subcommand_from query glyph" -l limit -x -d "At most this many"
complete -c pello -n "__fish_seen_subcommand_from query" -l explain -d "Say what made each row's place"
complete -c pello -n "__fish_seen_subcommand_from query calc convert" -l locale -x -d "Answer as in this locale"
complete -c pello -n "__fish_seen_subcommand_from query calc convert" -l now -x -d "Answer as at this moment"
complete -c pello -n "__fish_seen_subcommand_from pick" -l prompt -x -d "What is to be chosen"
complete -c pello -n "__fish_seen_subcommand_from logs" -s f -l follow -d "Go on with what is written"

complete -c pello -n "__pello_after settings" -a "general appearance sources bangs aliases" -d Page
complete -c pello -n "__pello_after settings" -a list -d "Print every setting"
complete -c pello -n "__pello_after settings" -a get -d "Print one setting"
complete -c pello -n "__pello_after settings" -a set -d "Change one setting"
complete -c pello -n "__pello_after settings" -a reset -d "Return one setting to its default"
complete -c pello -n "__pello_after settings" -a export -d "Write all settings as JSON"
complete -c pello -n "__pello_after settings" -a import -d "Take over settings that were exported"
complete -c pello -n "__pello_after settings export; or __pello_after settings import" -F
complete -c pello -n __pello_setting_follows -a "(__pello_prints settings list | string replace -r ' = .*' '')"
complete -c pello -n __pello_switch_follows -a "true false"

complete -c pello -n "__pello_after history" -a clear -d "Forget them"
complete -c pello -n "__pello_after learned" -a list -d "Print it"
complete -c pello -n "__pello_after learned" -a forget -d "Forget one item"
complete -c pello -n "__pello_after learned forget" -a "(__pello_prints learned | cut -f 1)"
complete -c pello -n "__pello_after scripts" -a run -d "Run one here"
complete -c pello -n "__pello_after scripts run" -a "(__pello_prints scripts | cut -f 1)"
