# Completion of pinorama-info for fish.

complete -c pinorama-info -l recursive -s r -d 'Read all pictures in folders'
complete -c pinorama-info -l json -d 'Print one JSON object per file'
complete -c pinorama-info -l csv -d 'Print a table (CSV)'
complete -c pinorama-info -l raw -d 'Add the raw fields to the table'
complete -c pinorama-info -l kml -r -d 'Write a KML document of the places'
complete -c pinorama-info -l web -x -d 'Print the address in a web service'
complete -c pinorama-info -l search -d 'Print the address of the catalogue search'
complete -c pinorama-info -l print-script -d 'Print the script that flies a globe to the place'
complete -c pinorama-info -l quiet -s q -d 'Show no progress and no summary'
complete -c pinorama-info -l help -s h -d 'Print a short explanation'
complete -c pinorama-info -l version -s v -d 'Print the version'
