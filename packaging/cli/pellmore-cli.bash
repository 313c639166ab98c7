# bash completion for pellmore-cli

_pellmore_cli_values() {
    case $1 in
        --method) echo "copy move rename" ;;
        --if-exists) echo "ask skip replace" ;;
        --remove) echo "v1 v2" ;;
        --copy) echo "v1-to-v2 v2-to-v1" ;;
        --for-all) echo "artist album year genre release-date" ;;
        --as) echo "srt m3u" ;;
        --set) echo "title= artist= album= year= genre= track= comment= composer=" \
                    "original-artist= copyright= encoder= url=" ;;
    esac
}

_pellmore_cli_options() {
    local common="--json --dry-run --yes --null --in-pattern --out-pattern --replaces --setting
        --no-user-settings --help"
    case $1 in
        sort) echo "--to --method --if-exists --genre --no-genre --letter --no-letter --artist
            --no-artist --keep-names --fix-names" ;;
        tags) echo "--set --v1 --v2 --remove --copy --fix" ;;
        scan) echo "--any-line-ends --lines --ignore-first --ignore-last --artist --album --year
            --genre --release-date --for-all --keep-texts --fix-texts --apply --to-files --v1 --v2
            --no-tags --if-exists" ;;
        list) echo "--as --output --if-exists --existing" ;;
        demo) common=--help ;;
    esac
    echo "$common"
}

# The keys of the settings, each with "=" behind it.
_pellmore_cli_keys() {
    "${COMP_WORDS[0]}" settings --no-user-settings 2>/dev/null | sed 's/=.*/=/'
}

# True when the option $2 of the command $1 takes a text that cannot be guessed.
_pellmore_cli_takes_text() {
    case $2 in
        --in-pattern | --out-pattern | --artist | --album | --year | --release-date | --lines | \
            --ignore-first | --ignore-last) return 0 ;;
        --genre) [[ $1 == scan ]] ;;
        *) return 1 ;;
    esac
}

_pellmore_cli_reply() {
    mapfile -t COMPREPLY < <(compgen "$@")
    [[ ${COMPREPLY[0]} == *= ]] && compopt -o nospace 2>/dev/null
    return 0
}

_pellmore_cli() {
    local commands="names sort tags stream scan list settings demo --help --version"
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]} values
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _pellmore_cli_reply -W "$commands" -- "$current"
        return
    fi
    # For bash "title=" is a word of its own, and what follows it is free.
    [[ $current == "=" || $previous == "=" ]] && return
    values=$(_pellmore_cli_values "$previous")
    [[ $previous == --setting || ($command == settings && $current != -*) ]] &&
        values=$(_pellmore_cli_keys)
    if [[ -n $values ]]; then
        _pellmore_cli_reply -W "$values" -- "$current"
    elif _pellmore_cli_takes_text "$command" "$previous"; then
        return
    elif [[ $current == -* ]]; then
        _pellmore_cli_reply -W "$(_pellmore_cli_options "$command")" -- "$current"
    elif [[ $previous == --to ]]; then
        compopt -o filenames 2>/dev/null
        _pellmore_cli_reply -d -- "$current"
    elif [[ $command != demo ]]; then
        compopt -o filenames 2>/dev/null
        _pellmore_cli_reply -f -- "$current"
    fi
}

complete -F _pellmore_cli pellmore-cli
