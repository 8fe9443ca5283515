# Completion of pinorama-info for bash.

_pinorama_info()
{
    local word=${COMP_WORDS[COMP_CWORD]}
    local i
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then
            return  # files only, which is what bash offers by itself
        fi
    done
    if [[ $COMP_CWORD -gt 1 && ${COMP_WORDS[COMP_CWORD - 1]} == --format ]]; then
        COMPREPLY=($(compgen -W 'json csv kml kmz geojson gpx list' -- "$word"))
        return
    fi
    if [[ $word == -* ]]; then
        local IFS=$'\n'
        COMPREPLY=($(compgen -W $'--recursive\n--more\n--format\n--json\n--csv\n--raw\n--track\n--near\n--within\n--no-position\n--as-found\n--index\n--no-index\n--kml\n--web\n--search\n--print-script\n--files-from\n--null\n--watch\n--progress\n--quiet\n--help\n--version\n--verbose' -- "$word"))
    fi
}

complete -o default -F _pinorama_info pinorama-info
