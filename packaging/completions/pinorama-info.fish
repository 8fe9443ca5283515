# Completion of pinorama-info for fish.

complete -c pinorama-info -l json -d 'Print one JSON object per file and line'
complete -c pinorama-info -l help -d 'Print a short explanation'
complete -c pinorama-info -l version -d 'Print the version'
