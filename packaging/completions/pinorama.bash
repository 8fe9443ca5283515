# Completion of pinorama for bash.

_pinorama()
{
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}
    local IFS=$'\n' i
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then
            return  # files only, which is what bash offers by itself
        fi
    done
    # bash splits "--action=home" at the equals sign
    if [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD-2]}
    elif [[ $word == = ]]; then
        word=
    fi
    if [[ $before == --action ]]; then
        COMPREPLY=($(compgen -W $'home\ndonate\nquit' -- "$word"))
    elif [[ $word == -* && $before != --service-text && $before != --print-and-save && $before != --show ]]; then
        COMPREPLY=($(compgen -W \
            $'--service-text\n--service\n--action\n--show\n--print-and-save\n--help\n--version' -- "$word"))
    fi
}

complete -o default -F _pinorama pinorama
