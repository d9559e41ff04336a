# Completion of pello's command line in bash.

_pello_fill() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word")
}

# One candidate on each line, blanks and all.
_pello_fill_lines() {
    local candidate
    compopt -o filenames 2>/dev/null # quotes what is special
    while IFS= read -r candidate; do
        [[ $candidate == "$word"* ]] && COMPREPLY+=("$candidate")
    done
}

_pello_fill_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
}

_pello_settings() {
    case $place:${COMP_WORDS[2]} in
    2:*) _pello_fill "general appearance sources bangs aliases list get set reset export import" ;;
    3:get | 3:set | 3:reset) _pello_fill "$("$program" settings list 2>/dev/null | sed 's/ = .*//')" ;;
    3:export | 3:import) _pello_fill_files ;;
    4:set)
        case $("$program" settings get "${COMP_WORDS[3]}" 2>/dev/null) in
        true | false) _pello_fill "true false" ;;
        esac
        ;;
    esac
}

_pello() {
    local program=$1 word=$2 place=$COMP_CWORD
    COMPREPLY=()
    if ((place == 1)); then
        _pello_fill "toggle show hide settings guide reindex ping quit version pick query glyph calc convert
            learned history scripts logs terminal doctor keys --show --help --version"
        return
    fi
    case ${COMP_WORDS[1]} in
    query) [[ $word == -* ]] && _pello_fill "--json --limit --explain --locale --now --help" ;;
    glyph) [[ $word == -* ]] && _pello_fill "--json --limit --help" ;;
    calc | convert) [[ $word == -* ]] && _pello_fill "--locale --now --help" ;;
    pick) _pello_fill "--prompt --help" ;;
    logs) _pello_fill "--follow --help" ;;
    settings) _pello_settings ;;
    history) ((place == 2)) && _pello_fill "clear" ;;
    learned)
        if ((place == 2)); then
            _pello_fill "list forget"
        elif ((place == 3)) && [[ ${COMP_WORDS[2]} == forget ]]; then
            _pello_fill_lines < <("$program" learned 2>/dev/null | cut -f 1)
        fi
        ;;
    scripts)
        if ((place == 2)); then
            _pello_fill "run"
        elif ((place == 3)) && [[ ${COMP_WORDS[2]} == run ]]; then
            _pello_fill_lines < <("$program" scripts 2>/dev/null | cut -f 1)
        elif ((place > 3)); then
            _pello_fill_files
        fi
        ;;
    esac
}

complete -F _pello pello
