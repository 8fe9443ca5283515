# Completion of pinorama for fish.

complete -c pinorama -l service-text -x -d 'Use a text as the path of a picture'
complete -c pinorama -l service -d 'Wait for requests on the session bus, without a window'
complete -c pinorama -l action -x -a 'home donate quit' -d 'Do what an entry of the icon does'
complete -c pinorama -l show -r -F -d 'Show a file in the open window and leave it where it is'
complete -c pinorama -l print-and-save -r -F -d 'Print what the window shows and save an image of it'
complete -c pinorama -s h -l help -d 'Print a short explanation'
complete -c pinorama -s v -l version -d 'Print the version'
