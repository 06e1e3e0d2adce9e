# Completion of estimate(1) for bash: commands, options, words of a fixed set, and files by their endings. Needs nothing
# but bash itself.
# shellcheck shell=bash

# The options of a command; of the program itself when it is called without one.
_estimate_options() {
    local common="-h --help --help-all"
    case $1 in
        "") echo "$common --version --installation" ;;
        price)
            echo "$common --jobs --vars --json --csv --bom --features --area --name --extra-costs -f --family --rates" \
                "-o --output"
            ;;
        convert) echo "$common --vars -o --output --vars-out --name --area --bom" ;;
        eval) echo "$common --var --vars -q --amount -d --decimals" ;;
        vars) echo "$common -u --unique -p --positions -q --amount" ;;
        capital) echo "$common --plain" ;;
        sort) echo "$common -k --kind" ;;
        libraries) echo "$common --find --family --section --item --kind --json" ;;
        overview) echo "$common --add" ;;
        extra-costs) echo "$common -f --family" ;;
        marks) echo "$common --quota --folder" ;;
        *) echo "$common" ;;
    esac
}

_estimate_commands() {
    case $1 in
        "") echo "price convert eval vars capital sort unit libraries overview extra-costs marks history backup" ;;
        backup) echo "open save discard changed" ;;
    esac
}

# What an option of a command takes: a fixed set of words, files with an ending, folders, or anything. Fails for one that
# takes no value.
_estimate_value() {
    case $1:$2 in
        *:--vars | *:--rates | *:--vars-out) echo "files csv" ;;
        price:-o | price:--output) echo "files" ;;
        convert:-o | convert:--output) echo "files csv xml" ;;
        :--installation) echo "folders" ;;
        sort:-k | sort:--kind) echo "words bill quota item" ;;
        libraries:--kind) echo "words bill quota drt config sub enterprise" ;;
        *:--jobs | *:--area | *:--name | *:--extra-costs | *:-f | *:--family | eval:--var | *:-q | *:--amount | \
            *:-d | *:--decimals | *:--find | *:--section | *:--item | *:--folder)
            echo "anything"
            ;;
        *) return 1 ;;
    esac
}

# What a command takes beside options.
_estimate_argument() {
    case $1 in
        price | convert) echo "files csv xml" ;;
        overview) echo "files xml" ;;
        marks) echo "words measures taxes fees other provisional" ;;
        "backup "*) echo "files" ;;
        *) echo "anything" ;;
    esac
}

# _estimate_offer WHAT WORD [ENDING-OR-WORD...]: fills COMPREPLY.
_estimate_offer() {
    local what=$1 word=$2 name ending
    shift 2
    case $what in
        words)
            mapfile -t COMPREPLY < <(compgen -W "$*" -- "$word")
            return
            ;;
        files | folders) ;;
        *) return ;;
    esac
    # Outside of a completion there is nothing to tell the shell about names.
    compopt -o filenames 2>/dev/null
    if [[ $what == folders ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        return
    fi
    while IFS= read -r name; do
        if [[ -d $name || $# -eq 0 ]]; then
            COMPREPLY+=("$name")
            continue
        fi
        for ending in "$@"; do
            [[ ${name,,} == *."$ending" ]] && COMPREPLY+=("$name")
        done
    done < <(compgen -f -- "$word")
}

_estimate() {
    local word=${COMP_WORDS[COMP_CWORD]} command="" behind="" value="" onlyArguments="" index words
    COMPREPLY=()
    for ((index = 1; index < COMP_CWORD; ++index)); do
        # The shell takes "--option=value" for three words.
        if [[ ${COMP_WORDS[index]} == "=" ]]; then
            continue
        elif [[ -n $value ]]; then
            value=""
        elif [[ -n $onlyArguments ]]; then
            continue
        elif [[ ${COMP_WORDS[index]} == "--" ]]; then
            onlyArguments=yes
        elif [[ ${COMP_WORDS[index]} == -* ]]; then
            behind=${COMP_WORDS[index]}
            _estimate_value "${command%% *}" "$behind" >/dev/null && value=yes
        elif [[ -z $command || $command == backup ]]; then
            command+="${command:+ }${COMP_WORDS[index]}"
        fi
    done
    [[ $word == "=" ]] && word=""
    if [[ -n $value ]]; then
        read -ra words < <(_estimate_value "${command%% *}" "$behind")
    elif [[ $word == -* && -z $onlyArguments ]]; then
        read -ra words < <(_estimate_options "$command")
        words=(words "${words[@]}")
    else
        read -ra words < <(_estimate_commands "$command")
        [[ ${#words[@]} -gt 0 ]] && words=(words "${words[@]}")
        [[ ${#words[@]} -gt 0 ]] || read -ra words < <(_estimate_argument "$command")
    fi
    _estimate_offer "${words[0]}" "$word" "${words[@]:1}"
}

complete -F _estimate estimate
