# Completion of pinorama-info for fish.

complete -c pinorama-info -l recursive -s r -d 'Look through folders for pictures'
complete -c pinorama-info -l json -d 'Print one JSON object per file and line'
complete -c pinorama-info -l csv -d 'Print a table'
complete -c pinorama-info -l kml -r -d 'Write the places as a KML document'
complete -c pinorama-info -l web -x -d 'Print the address of a web service'
complete -c pinorama-info -l search -d 'Print the address of the catalogue search'
complete -c pinorama-info -l print-script -d 'Print the script that flies a globe to the place'
complete -c pinorama-info -l quiet -s q -d 'Show no progress and no summary'
complete -c pinorama-info -l help -d 'Print a short explanation'
complete -c pinorama-info -l version -d 'Print the version'
