# Completion of tobrix-template for bash. The tool is asked for its commands and their options, so that this never
# lags behind it.

# The commands of the tool, one a line.
_tobrix_template_commands() {
    "$1" --help 2> /dev/null | sed -n '/^Commands:$/,/^$/s/^  \([a-z][a-z-]*\)  .*/\1/p'
}

# The long options of the tool, or of a command of it, one a line.
_tobrix_template_options() {
    "$@" --help 2> /dev/null | sed -n '/^Options:$/,/^$/s/^  \(-[A-Za-z], \)\{0,1\}\(--[a-z-]*\).*/\2/p'
}

_tobrix_template() {
    local tool=$1 word=$2 previous=$3 command='' place
    for ((place = 1; place < COMP_CWORD; place++)); do
        case ${COMP_WORDS[place]} in
            --host-config | --as) ((place++)) ;;
            -*) ;;
            *) command=${COMP_WORDS[place]}; break ;;
        esac
    done

    COMPREPLY=()
    if [[ $previous == --host-config ]]; then
        mapfile -t COMPREPLY < <(compgen -f -X '!*.json' -- "$word"; compgen -d -- "$word")
    elif [[ $previous == --as ]]; then
        mapfile -t COMPREPLY < <(compgen -W 'current legacy' -- "$word")
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_tobrix_template_options "$tool" $command)" -- "$word")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_tobrix_template_commands "$tool")" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -X '!*.xml' -- "$word"; compgen -d -- "$word")
    fi
}

complete -o filenames -F _tobrix_template tobrix-template
